// SPDX-License-Identifier: MIT
// Small calls about a window: its procedure in the window's own character set, its resolution,
// system metrics at that resolution.
#pragma once

#include <windows.h>

namespace vndesk {

// They use the A functions for windows of an ANSI class, so that the texts in their messages are
// not converted.
WNDPROC WindowProcedureOf(HWND window);
void SetWindowProcedure(HWND window, WNDPROC procedure);
LRESULT Forward(HWND window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam);

int DpiOf(HWND window);
int MetricAt(int metric, int dpi);

} // namespace vndesk
