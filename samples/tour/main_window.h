// SPDX-License-Identifier: MIT
// The program's window: the menu, a greeting, and a status bar with the user who is logged on.
#pragma once
#include <windows.h>

#include "tour.h"

HWND CreateMainWindow(Tour& tour);

// Shows who is logged on.
void ShowState(HWND window, const Tour& tour);
