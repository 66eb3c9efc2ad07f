// SPDX-License-Identifier: MIT
// Synthetic key strokes, as if typed: they reach whatever window has the keyboard.
#pragma once

#include <windows.h>

namespace vndesk {

// One key event. `flags` 0 presses the key, 2 releases it.
void ESendKey(long key, long flags);

// A whole stroke. `shift`: 0 none, 1 Shift, 2 Control, 3 Alt; any other value sends the key alone.
void Gui_Phim(long key, long shift);

// For forms where Enter moves on like Tab: true when the character was Enter and Tab has been sent.
bool EnterAsTab(wchar_t character);

// Whether a key that is pressed now is Delete by itself, without Shift or Control.
bool IsDeleteAlone(WPARAM key);

} // namespace vndesk
