// SPDX-License-Identifier: MIT
// The dialog in which the user builds a search condition.
#pragma once

#include <windows.h>

#include <string>

#include "data/connect/database.h"

namespace vndesk {

// Returns the condition, to be put behind WHERE, or nothing after Cancel. Reads the database's
// catalogue. `owner` may be null.
std::wstring ShowFindDialog(const Database& database, const std::wstring& table, HWND owner);

} // namespace vndesk
