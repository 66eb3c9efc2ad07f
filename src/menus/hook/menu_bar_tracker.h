// SPDX-License-Identifier: MIT
// Shows which item of the menu bar the mouse is over, while no popup is open.
#pragma once

#include <windows.h>

#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// In place of a mouse message when there is none: only the position counts.
constexpr UINT kNoMouseMessage = static_cast<UINT>(-1);

void TrackMenuBar(WndCoolMenu& window, UINT mouseMessage);
void LeaveMenuBar(WndCoolMenu& window);

} // namespace vndesk
