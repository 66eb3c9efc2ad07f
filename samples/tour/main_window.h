// SPDX-License-Identifier: MIT
// The program's window: the menu, a greeting or the list that was asked for, and a status bar with
// the user who is logged on.
#pragma once
#include <windows.h>

#include "tour.h"

HWND CreateMainWindow(Tour& tour);
