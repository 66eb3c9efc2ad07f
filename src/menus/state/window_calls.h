// SPDX-License-Identifier: MIT
// Small questions to the platform about a window: its procedure in the window's own character set,
// its resolution, system metrics at that resolution.
#pragma once

#include <windows.h>

namespace vndesk {

// Windows that were registered with the ANSI functions are spoken to with these, so that nobody
// converts the texts in their messages.
WNDPROC WindowProcedureOf(HWND window);
void SetWindowProcedure(HWND window, WNDPROC procedure);
LRESULT Forward(HWND window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam);

int DpiOf(HWND window);
int MetricAt(int metric, int dpi);

} // namespace vndesk
