// SPDX-License-Identifier: MIT
// Turns the items of a menu into owner-drawn ones and back.
#pragma once

#include <windows.h>

#include <vector>

#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// Converts a menu and those below items that are converted. Called again, it picks up items that
// came, went or changed meanwhile.
void ConvertMenu(WndCoolMenu& window, HMENU menu, bool menuBar);

// Makes Windows send WM_MEASUREITEM anew for every item of a window.
void TouchMenus(WndCoolMenu& window);

// Gives the items of one menu, or of all menus of a window, back the type, data and caption that
// their host gave them.
void RestoreMenu(HMENU menu);
void RestoreMenus(WndCoolMenu& window);

// Menus that a window has, converted or not.
std::vector<HMENU> MenusOf(const WndCoolMenu& window);

} // namespace vndesk
