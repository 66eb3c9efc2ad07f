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
    ULONG_PTR data = 0;
    std::wstring caption;

    bool OwnerDrawn() const { return (type & MFT_OWNERDRAW) != 0; }
    bool Separator() const { return (type & MFT_SEPARATOR) != 0; }
};

// False when there is no such item.
bool ReadMenuItem(HMENU menu, UINT position, MenuItem& item);
// The number in an item; by its command or its position.
ULONG_PTR ReadItemNumber(HMENU menu, UINT item, bool byPosition);

bool WriteItemType(HMENU menu, UINT position, UINT type, ULONG_PTR data);
bool WriteItemCaption(HMENU menu, UINT position, const std::wstring& caption);
bool WriteItemState(HMENU menu, UINT position, UINT state);

} // namespace vndesk
