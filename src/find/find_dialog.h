// SPDX-License-Identifier: MIT
// The dialog in which the user builds a search condition.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

// Returns the condition, to be put behind WHERE, or nothing after Cancel. Reads the catalogue of
// the session's current database. `owner` may be null.
std::wstring ShowFindDialog(const std::wstring& table, HWND owner);

} // namespace vndesk
