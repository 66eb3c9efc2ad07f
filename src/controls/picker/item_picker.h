// SPDX-License-Identifier: MIT
// The item picker: a modal form with the names that a statement gives, and a search box that jumps
// to the first name with the typed beginning.
#pragma once

#include <string>

#include "data/connect/database.h"

namespace vndesk {

// Lists a statement's rows (code in the first column, name in the second); the code chosen, empty
// after a cancel. The search box starts with `searchText`.
std::wstring PickItem(const Database& database, const Statement& sqlText,
                      const std::wstring& searchText);

} // namespace vndesk
