// SPDX-License-Identifier: MIT
// Turns the items of a menu into owner-drawn ones and back.
#pragma once

#include <windows.h>

#include "wnd_cool_menu.h"

namespace vndesk {

// Converts a menu and its submenus for a window. Called again, it picks up items that came, went or
// changed meanwhile.
void ConvertMenu(WndCoolMenu& window, HMENU menu, bool menuBar);

// Makes the platform measure every item of a window anew.
void TouchMenus(WndCoolMenu& window);

// Gives every item of a window back the type, data and caption that its host gave it.
void RestoreMenus(HWND window);

} // namespace vndesk
