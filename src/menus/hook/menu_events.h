// SPDX-License-Identifier: MIT
// What the hook does for each message about menus.
#pragma once

#include <windows.h>

#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// Both return whether the item is one of ours.
bool OnMeasureItem(WndCoolMenu& window, MEASUREITEMSTRUCT& measured);
bool OnDrawItem(WndCoolMenu& window, const DRAWITEMSTRUCT& drawn);

// Before the first popup: items that the host added to the bar.
void OnInitMenu(WndCoolMenu& window, HMENU menu);
void OnInitMenuPopup(WndCoolMenu& window, HMENU popup, UINT position, bool systemMenu);
void OnUninitMenuPopup(WndCoolMenu& window, HMENU popup);
void OnMenuSelect(WndCoolMenu& window, UINT item, UINT flags, HMENU menu);

// The answer to WM_MENUCHAR; 0 when no item has the letter.
LRESULT OnMenuChar(wchar_t letter, HMENU menu);

// The frame may have got another menu.
void OnPositionChanged(WndCoolMenu& window);

} // namespace vndesk
