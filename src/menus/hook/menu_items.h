// SPDX-License-Identifier: MIT
// Reading and writing menu items (GetMenuItemInfo, SetMenuItemInfo).
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vndesk {

struct MenuItem {
    UINT type = 0;
    UINT state = 0;
    UINT id = 0;
    HMENU submenu = nullptr;
    HBITMAP bitmap = nullptr; // beside or instead of the caption
    ULONG_PTR data = 0;
    std::wstring caption;

    bool OwnerDrawn() const { return (type & MFT_OWNERDRAW) != 0; }
    bool Separator() const { return (type & MFT_SEPARATOR) != 0; }
};

// Without the caption, which takes longest to read. False when there is no such item.
bool ReadItem(HMENU menu, UINT position, MenuItem& item);
// All of a menu, with their captions; up to the first one that cannot be read.
std::vector<MenuItem> ReadItems(HMENU menu);
std::wstring ReadItemCaption(HMENU menu, UINT position);

bool WriteItemType(HMENU menu, UINT position, UINT type, ULONG_PTR data);
bool WriteItemData(HMENU menu, UINT position, ULONG_PTR data);
bool WriteItemCaption(HMENU menu, UINT position, const std::wstring& caption);
bool WriteItemState(HMENU menu, UINT position, UINT state);

} // namespace vndesk
