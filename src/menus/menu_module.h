// SPDX-License-Identifier: MIT
// What all windows with drawn menus of one user-interface thread share. It lives from the thread's
// first installation to its last uninstallation.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "item_data.h"
#include "menu_fonts.h"
#include "wnd_cool_menu.h"

namespace vndesk {

struct MenuModule {
    std::map<std::wstring, std::shared_ptr<WndCoolMenu>> windows; // by handle as decimal text
    CMyItemDatas items;
    SharedFonts fonts;

    const DWORD thread = GetCurrentThreadId();
    MenuModule* next = nullptr; // another thread's
};

// The calling thread's; null when none of its windows is installed.
MenuModule* CurrentMenuModule();
MenuModule& EnsureMenuModule();
// Releases everything when no window of the thread is left.
void ReleaseUnusedMenuModule();

std::wstring WindowKey(HWND window);

// Null when the window is not installed by the calling thread. The caller's hold outlives an
// uninstallation meanwhile.
std::shared_ptr<WndCoolMenu> FindCoolMenu(HWND window);

// The data of an item by the number that stands in it; null for items of others.
CMyItemData* FindItemData(ULONG_PTR number);
// The same where the menu is known: items of others may hold any number, the menu tells them from
// ours.
CMyItemData* FindItemData(HMENU menu, ULONG_PTR number);

} // namespace vndesk
