// SPDX-License-Identifier: MIT
// The table in the middle of the program's window.
#pragma once
#include <windows.h>

#include "host_database.h"
#include "lists.h"

HWND CreateListView(HWND parent);

// Shows rows under a list's columns, in the place of what was there.
void FillListView(HWND view, const List& list, const std::vector<Row>& rows, int dpi);
