// SPDX-License-Identifier: MIT
// The program's window: the menu, a greeting or the list that was asked for, and a status bar with
// the user who is logged on.
#pragma once
#include <windows.h>

#include "tour.h"

HWND CreateMainWindow(Tour& tour);

// Shows who is logged on and enables the commands that the user may run. A list of another user
// goes.
void ShowState(HWND window, const Tour& tour);

void ShowList(HWND window, const List& list, const std::vector<Row>& rows);
