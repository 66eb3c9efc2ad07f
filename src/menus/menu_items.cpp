// SPDX-License-Identifier: MIT
#include "menu_items.h"

namespace vndesk {

namespace {

MENUITEMINFOW Info(UINT mask) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

} // namespace

bool ReadMenuItem(HMENU menu, UINT position, MenuItem& item) {
    MENUITEMINFOW info =
        Info(MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_DATA | MIIM_STRING);
    if (!GetMenuItemInfoW(menu, position, TRUE, &info))
        return false;
    item.type = info.fType;
    item.state = info.fState;
    item.id = info.wID;
    item.submenu = info.hSubMenu;
    item.data = info.dwItemData;
    item.caption.clear();
    if (info.cch > 0 && !(info.fType & MFT_BITMAP)) {
        item.caption.resize(info.cch + 1);
        info.fMask = MIIM_STRING;
        info.dwTypeData = item.caption.data();
        info.cch = static_cast<UINT>(item.caption.size());
        item.caption.resize(GetMenuItemInfoW(menu, position, TRUE, &info) ? info.cch : 0);
    }
    return true;
}

ULONG_PTR ReadItemNumber(HMENU menu, UINT item, bool byPosition) {
    MENUITEMINFOW info = Info(MIIM_FTYPE | MIIM_DATA);
    const bool read = GetMenuItemInfoW(menu, item, byPosition, &info);
    return read && (info.fType & MFT_OWNERDRAW) ? info.dwItemData : 0;
}

bool WriteItemType(HMENU menu, UINT position, UINT type, ULONG_PTR data) {
    MENUITEMINFOW info = Info(MIIM_FTYPE | MIIM_DATA);
    info.fType = type;
    info.dwItemData = data;
    return SetMenuItemInfoW(menu, position, TRUE, &info);
}

bool WriteItemCaption(HMENU menu, UINT position, const std::wstring& caption) {
    MENUITEMINFOW info = Info(MIIM_STRING);
    info.dwTypeData = const_cast<LPWSTR>(caption.c_str());
    return SetMenuItemInfoW(menu, position, TRUE, &info);
}

bool WriteItemState(HMENU menu, UINT position, UINT state) {
    MENUITEMINFOW info = Info(MIIM_STATE);
    info.fState = state;
    return SetMenuItemInfoW(menu, position, TRUE, &info);
}

} // namespace vndesk
