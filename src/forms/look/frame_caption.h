// SPDX-License-Identifier: MIT
// Captions of frames, whole to their last letter.
#pragma once

#include <windows.h>

namespace vndesk {

// Call it once for each group box (BS_GROUPBOX).
void KeepLastLetter(HWND frame);

} // namespace vndesk
