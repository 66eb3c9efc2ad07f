// SPDX-License-Identifier: MIT
// The look-up statements of the selection boxes. They begin with what the host gives, which ends
// with the compared column.
#pragma once

#include <string>
#include <string_view>

#include "data/text/statement.h"

namespace vndesk {

// Entries whose name begins with the text.
Statement NamesBeginningStatement(std::wstring_view sqlName, std::wstring_view text,
                                  ValueStyle style);

// The entry with the code.
Statement CodeStatement(std::wstring_view sqlID, std::wstring_view code, ValueStyle style);

} // namespace vndesk
