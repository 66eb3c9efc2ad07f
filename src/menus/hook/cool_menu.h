// SPDX-License-Identifier: MIT
// Installing drawn menus on a host's window and taking them away.
#pragma once

#include <windows.h>

#include "menus/state/image_source.h"
#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// False for a handle that is no window of this process. A window that is installed already throws
// the duplicate-key error.
bool InstallMenus(HWND window, MenuHelp help, ImageSource images);

// Gives the window back as it was. A window that is not installed is left alone.
void UninstallMenus(HWND window);

// An MDI child came with a menu of its own: its frame is told to look.
void WatchChildMenu(HWND child);

// After a change of fonts: every item is measured anew.
void RemeasureMenus(WndCoolMenu& window);

} // namespace vndesk
