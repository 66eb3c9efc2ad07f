// SPDX-License-Identifier: MIT
// The window procedure that stands before a host window's own.
#pragma once

#include <windows.h>

namespace vndesk {

LRESULT CALLBACK MenuWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace vndesk
