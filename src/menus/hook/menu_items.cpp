// SPDX-License-Identifier: MIT
#include "menus/hook/menu_items.h"

#include <algorithm>
#include <iterator>

namespace vndesk {

namespace {

MENUITEMINFOW Info(UINT mask) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

} // namespace

bool ReadItem(HMENU menu, UINT position, MenuItem& item) {
    MENUITEMINFOW info =
        Info(MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_DATA | MIIM_BITMAP);
    if (!GetMenuItemInfoW(menu, position, TRUE, &info))
        return false;
    item.type = info.fType;
    item.state = info.fState;
    item.id = info.wID;
    item.submenu = info.hSubMenu;
    item.bitmap = info.hbmpItem;
    item.data = info.dwItemData;
    return true;
}

std::wstring ReadItemCaption(HMENU menu, UINT position) {
    // Hardly any is longer.
    wchar_t text[100];
    constexpr UINT kRoom = static_cast<UINT>(std::size(text));
    MENUITEMINFOW info = Info(MIIM_STRING);
    info.dwTypeData = text;
    info.cch = kRoom;
    if (!GetMenuItemInfoW(menu, position, TRUE, &info) || info.cch == 0)
        return {};
    if (info.cch + 1 < kRoom)
        return {text, info.cch};
    info.dwTypeData = nullptr;
    if (!GetMenuItemInfoW(menu, position, TRUE, &info))
        return {};
    std::wstring caption(++info.cch, L'\0');
    info.dwTypeData = caption.data();
    caption.resize(GetMenuItemInfoW(menu, position, TRUE, &info) ? info.cch : 0);
    return caption;
}

std::vector<MenuItem> ReadItems(HMENU menu) {
    std::vector<MenuItem> items(static_cast<std::size_t>(std::max(0, GetMenuItemCount(menu))));
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto position = static_cast<UINT>(i);
        if (!ReadItem(menu, position, items[i]))
            items.resize(i);
        else if (!(items[i].type & MFT_BITMAP))
            items[i].caption = ReadItemCaption(menu, position);
    }
    return items;
}

bool WriteItemType(HMENU menu, UINT position, UINT type, ULONG_PTR data) {
    MENUITEMINFOW info = Info(MIIM_FTYPE | MIIM_DATA);
    info.fType = type;
    info.dwItemData = data;
    return SetMenuItemInfoW(menu, position, TRUE, &info);
}

bool WriteItemData(HMENU menu, UINT position, ULONG_PTR data) {
    MENUITEMINFOW info = Info(MIIM_DATA);
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
