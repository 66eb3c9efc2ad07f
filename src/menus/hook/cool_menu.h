// SPDX-License-Identifier: MIT
// Installing drawn menus on a host's window and taking them away.
#pragma once

#include <windows.h>

#include "menus/state/image_source.h"
#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// False for a handle that is no window of the calling thread. Throws the duplicate-key error for a
// window that is installed already.
bool InstallMenus(HWND window, MenuHelp help, ImageSource images);

// Gives the window back as it was. A window that is not installed is left alone.
void UninstallMenus(HWND window);

// For an MDI child with a menu of its own: converts the menu that its frame has now.
void WatchChildMenu(HWND child);

// After a change of fonts: every item is measured anew.
void RemeasureMenus(WndCoolMenu& window);

} // namespace vndesk
