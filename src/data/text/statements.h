// SPDX-License-Identifier: MIT
// Builds and patches statement text around the values that data/text/literals.h writes.
#pragma once

#include "data/text/literals.h"

#include <string>
#include <string_view>

namespace vndesk {

// An INSERT statement with one more column and text value at the end of both lists.
// Throws std::invalid_argument when the statement has no such lists.
std::wstring AddInsertColumn(std::wstring_view statement, std::wstring_view column,
                             std::wstring_view value, DatabaseKind dbKind);

// An UPDATE statement with one more text assignment at the front of its list; empty when the
// statement has no SET.
std::wstring AddUpdateAssignment(std::wstring_view statement, std::wstring_view column,
                                 std::wstring_view value, DatabaseKind dbKind);

// Lists the column in ascending order; the last row holds its highest value.
std::wstring LastValueStatement(std::wstring_view table, std::wstring_view column);

} // namespace vndesk
