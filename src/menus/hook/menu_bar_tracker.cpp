// SPDX-License-Identifier: MIT
#include "menus/hook/menu_bar_tracker.h"

#include "menus/hook/our_items.h"
#include "menus/paint/gdi.h"
#include "menus/paint/item_painter.h"

namespace vndesk {

namespace {

bool IsButtonDown(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_NCLBUTTONDOWN || message == WM_RBUTTONDOWN ||
           message == WM_NCRBUTTONDOWN;
}

int ItemUnderMouse(const WndCoolMenu& window, HMENU bar) {
    POINT mouse;
    if (window.PopedIndex() != WndCoolMenu::kNoItem || IsIconic(window.hWnd) ||
        GetForegroundWindow() != window.hWnd || !GetCursorPos(&mouse))
        return WndCoolMenu::kNoItem;
    return MenuItemFromPoint(window.hWnd, bar, mouse);
}

// The item's box in the window's own device context.
Box BoxInWindow(HWND window, const RECT& item) {
    RECT outer;
    GetWindowRect(window, &outer);
    const bool mirrored = (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
    const int left = mirrored ? outer.right - item.right : item.left - outer.left;
    return {left, item.top - outer.top, left + (item.right - item.left), item.bottom - outer.top};
}

void PaintBarItem(WndCoolMenu& window, HMENU bar, int index, bool hovered) {
    const CMyItemData* data = OurDrawnItem(bar, static_cast<UINT>(index));
    RECT rect;
    if (!data || !GetMenuItemRect(window.hWnd, bar, static_cast<UINT>(index), &rect))
        return;
    const UINT menuState = GetMenuState(bar, static_cast<UINT>(index), MF_BYPOSITION);
    ItemState state;
    state.menuBar = true;
    state.hovered = hovered;
    state.selected = (menuState & MF_HILITE) != 0;
    state.disabled = (menuState & (MF_GRAYED | MF_DISABLED)) != 0;
    state.hideMnemonics = (SendMessageW(window.hWnd, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0;
    const HDC dc = GetWindowDC(window.hWnd);
    PaintItem(dc, BoxInWindow(window.hWnd, rect), window, *data, state);
    ReleaseDC(window.hWnd, dc);
}

void Hover(WndCoolMenu& window, HMENU bar, int item) {
    const int before = window.hoveredItem;
    if (item == before)
        return;
    window.hoveredItem = item;
    if (before >= 0)
        PaintBarItem(window, bar, before, false);
    if (item < 0)
        return;
    PaintBarItem(window, bar, item, true);
    TRACKMOUSEEVENT leave = {};
    leave.cbSize = sizeof leave;
    leave.dwFlags = TME_LEAVE | TME_NONCLIENT;
    leave.hwndTrack = window.hWnd;
    TrackMouseEvent(&leave);
}

} // namespace

void TrackMenuBar(WndCoolMenu& window, UINT mouseMessage) {
    const HMENU bar = GetMenu(window.hWnd);
    if (!bar || (GetWindowLongPtrW(window.hWnd, GWL_STYLE) & WS_CHILD))
        return;
    Hover(window, bar,
          mouseMessage != kNoMouseMessage && IsButtonDown(mouseMessage)
              ? WndCoolMenu::kNoItem
              : ItemUnderMouse(window, bar));
}

void LeaveMenuBar(WndCoolMenu& window) {
    Hover(window, GetMenu(window.hWnd), WndCoolMenu::kNoItem);
}

} // namespace vndesk
