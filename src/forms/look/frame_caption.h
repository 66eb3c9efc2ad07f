// SPDX-License-Identifier: MIT
// Captions of frames, whole to their last letter.
#pragma once

#include <windows.h>

namespace vndesk {

// For a group box of the platform, once after it has been made.
void KeepLastLetter(HWND frame);

} // namespace vndesk
