// SPDX-License-Identifier: MIT
// The dialog in which the user builds a search condition.
#pragma once

#include <windows.h>

#include <string>

#include "data/connect/database.h"

namespace vndesk {

// A condition to be put behind WHERE, with its values as literals and with parameters.
struct SearchCondition {
    std::wstring text;
    Statement parameterized;
};

// Returns the condition, or nothing after Cancel. Reads the database's catalogue. `owner` may be
// null.
SearchCondition ShowFindDialog(const Database& database, const std::wstring& table, HWND owner);

} // namespace vndesk
