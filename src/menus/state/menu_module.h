// SPDX-License-Identifier: MIT
// What all windows with drawn menus of one user-interface thread share. It lives from the thread's
// first installation to its last uninstallation, or to the thread's end.
#pragma once

#include <windows.h>

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>
#include <vector>

#include "menus/state/item_data.h"
#include "menus/state/menu_fonts.h"
#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// What was found in a menu when it was looked through last.
struct SeenMenu {
    struct Item {
        ULONG_PTR number;
        UINT id;
    };
    std::vector<Item> items;    // those that are ours
    HWND measuredFor = nullptr; // Windows keeps the sizes of items
};

struct MenuModule {
    std::map<HWND, std::shared_ptr<WndCoolMenu>> windows;
    CMyItemDatas items;
    std::unordered_map<HMENU, SeenMenu> menus;
    // Items that are gone, the oldest first: their hosts may put them in again.
    std::deque<ULONG_PTR> removed;
    // Menus that a window which is not installed any more has too: drawn only while they are open.
    std::set<HMENU> shared;
    SharedFonts fonts;
};

// The calling thread's; null when none of its windows is installed.
MenuModule* CurrentMenuModule();
MenuModule& EnsureMenuModule();
// Releases everything when no window of the thread is left.
void ReleaseUnusedMenuModule();

// Null when the window is not installed by the calling thread. The caller's hold outlives an
// uninstallation meanwhile.
std::shared_ptr<WndCoolMenu> FindCoolMenu(HWND window);

} // namespace vndesk
