// SPDX-License-Identifier: MIT
// Reading and writing the items of a platform menu.
#pragma once

#include <windows.h>

#include <string>

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

// Both are false when there is no such item. The first one leaves the caption out, which takes
// longest to read.
bool ReadItem(HMENU menu, UINT position, MenuItem& item);
bool ReadItemAndCaption(HMENU menu, UINT position, MenuItem& item);
std::wstring ReadItemCaption(HMENU menu, UINT position);

bool WriteItemType(HMENU menu, UINT position, UINT type, ULONG_PTR data);
bool WriteItemData(HMENU menu, UINT position, ULONG_PTR data);
bool WriteItemCaption(HMENU menu, UINT position, const std::wstring& caption);
bool WriteItemState(HMENU menu, UINT position, UINT state);

} // namespace vndesk
