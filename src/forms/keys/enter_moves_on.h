// SPDX-License-Identifier: MIT
// Enter as Tab in a form of a host's own: in its edit, combo and date boxes. No key is sent.
#pragma once

#include <windows.h>

namespace vndesk {

// Boxes that are made later are taken up, too. It ends with the window. Refuses what is no window
// of the calling thread.
void SetEnterMovesOn(HWND form, bool on);

} // namespace vndesk
