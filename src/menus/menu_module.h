// SPDX-License-Identifier: MIT
// What all windows with drawn menus share. It lives from the first installation to the last
// uninstallation and, like the hook, belongs to one user-interface thread.
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
};

// Set by every installation, for the measuring of items.
struct MenuSizes {
    short imageSize = 16; // for 96 dpi
    long extraWidth = 0;
};
MenuSizes& SharedMenuSizes();

// Null when no window is installed.
MenuModule* CurrentMenuModule();
MenuModule& EnsureMenuModule();
// Releases everything when no window is left.
void ReleaseUnusedMenuModule();

std::wstring WindowKey(HWND window);

// Null when the window is not installed. The caller's hold outlives an uninstallation meanwhile.
std::shared_ptr<WndCoolMenu> FindCoolMenu(HWND window);

// The data of an item by the number that stands in it; null for items of others.
CMyItemData* FindItemData(ULONG_PTR number);
// The same where the menu is known: items of others may hold any number, the menu tells them from
// ours.
CMyItemData* FindItemData(HMENU menu, ULONG_PTR number);

} // namespace vndesk
