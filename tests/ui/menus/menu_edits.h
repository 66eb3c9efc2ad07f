// SPDX-License-Identifier: MIT
// What a host does to its menus and the platform asks of them, while they are drawn.
#pragma once

#include "ui/menus/menu_canvas.h"

namespace vndesk::test {

// Of the item at kSaveAt, as its host wrote it.
constexpr wchar_t kSaveCaption[] = L"&Lưu\tCtrl+Shift+S|Ghi hồ sơ vào đĩa|2";

inline bool IsDrawn(HMENU menu, UINT position) {
    return (TypeOf(menu, position) & MFT_OWNERDRAW) != 0;
}

inline void OpenPopup(HWND window, HMENU popup) {
    SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), 0);
}

inline void OpenBar(const MenuHost& host) {
    SendMessageW(host.Window(), WM_INITMENU, reinterpret_cast<WPARAM>(host.Bar()), 0);
}

inline MENUITEMINFOW Info(UINT mask) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

inline void SetData(HMENU menu, UINT position, ULONG_PTR data) {
    MENUITEMINFOW info = Info(MIIM_DATA);
    info.dwItemData = data;
    ASSERT_TRUE(SetMenuItemInfoW(menu, position, TRUE, &info));
}

inline void SetType(HMENU menu, UINT position, UINT type) {
    MENUITEMINFOW info = Info(MIIM_FTYPE);
    info.fType = type;
    ASSERT_TRUE(SetMenuItemInfoW(menu, position, TRUE, &info));
}

inline void SetId(HMENU menu, UINT position, UINT id) {
    MENUITEMINFOW info = Info(MIIM_ID);
    info.wID = id;
    ASSERT_TRUE(SetMenuItemInfoW(menu, position, TRUE, &info));
}

inline void Insert(HMENU menu, UINT position, UINT type, UINT id, ULONG_PTR data,
                   const wchar_t* text, HMENU submenu = nullptr) {
    MENUITEMINFOW info = Info(MIIM_FTYPE | MIIM_ID | MIIM_DATA | (text ? MIIM_STRING : 0u) |
                              (submenu ? MIIM_SUBMENU : 0u));
    info.fType = type;
    info.wID = id;
    info.dwItemData = data;
    info.dwTypeData = const_cast<wchar_t*>(text);
    info.hSubMenu = submenu;
    ASSERT_TRUE(InsertMenuItemW(menu, position, TRUE, &info));
}

inline UINT Count(HMENU menu) {
    return static_cast<UINT>(GetMenuItemCount(menu));
}

// All that a host can read of an item.
struct ReadItem {
    ReadItem(HMENU menu, UINT position) {
        info.dwTypeData = text;
        info.cch = 256;
        EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &info));
    }
    ReadItem(const ReadItem&) = delete;
    ReadItem& operator=(const ReadItem&) = delete;
    void InsertInto(HMENU menu, UINT position) const {
        EXPECT_TRUE(InsertMenuItemW(menu, position, TRUE, &info));
    }

    wchar_t text[256] = L"";
    MENUITEMINFOW info =
        Info(MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_DATA | MIIM_STRING);
};

inline void Move(HMENU from, UINT position, HMENU to, UINT place) {
    const ReadItem item(from, position);
    ASSERT_TRUE(RemoveMenu(from, position, MF_BYPOSITION));
    item.InsertInto(to, place);
}

inline LRESULT TypeLetter(const MenuHost& host, HMENU menu, wchar_t letter) {
    return SendMessageW(host.Window(), WM_MENUCHAR, MAKEWPARAM(letter, MF_POPUP),
                        reinterpret_cast<LPARAM>(menu));
}

// Whether the library draws an item as the platform would have it draw it.
inline bool Draws(const MenuHost& host, HMENU menu, UINT position) {
    const Canvas canvas(120, 20);
    DRAWITEMSTRUCT drawn = {};
    drawn.CtlType = ODT_MENU;
    drawn.itemID = IdOf(menu, position);
    drawn.hwndItem = reinterpret_cast<HWND>(menu);
    drawn.hDC = canvas.Dc();
    drawn.rcItem = canvas.All();
    drawn.itemData = DataOf(menu, position);
    SendMessageW(host.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawn));
    return canvas.Count(Canvas::kUnpainted) == 0;
}

inline bool Measures(const MenuHost& host, HMENU menu, UINT position) {
    MEASUREITEMSTRUCT measured = {};
    measured.CtlType = ODT_MENU;
    measured.itemID = IdOf(menu, position);
    measured.itemData = DataOf(menu, position);
    SendMessageW(host.Window(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measured));
    return measured.itemWidth > 0 && measured.itemHeight > 0;
}

} // namespace vndesk::test
