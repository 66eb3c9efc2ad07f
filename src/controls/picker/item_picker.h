// SPDX-License-Identifier: MIT
// The item picker: a modal form with the names that a statement gives, and a search box that jumps
// to the first name with the typed beginning. Where the host asks for it the list shrinks to the
// names that are found.
#pragma once

#include <string>

#include "data/connect/database.h"

namespace vndesk {

// Lists a statement's rows (code in the first column, name in the second); the code chosen, empty
// after a cancel. The search box starts with `searchText`. `asked` is what the statement looks for:
// of what it gives, a list that shrinks has what is found by that.
std::wstring PickItem(const Database& database, const Statement& sqlText,
                      const std::wstring& searchText, const std::wstring& asked = {});

} // namespace vndesk
