// SPDX-License-Identifier: MIT
// The look-up statements of the selection boxes. They begin with what the host gives, which ends
// with the compared column.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/text/pattern.h"
#include "data/text/statement.h"

namespace vndesk {

// Entries whose name begins with the text, or has the pattern where there is one.
Statement NamesBeginningStatement(std::wstring_view sqlName, std::wstring_view text,
                                  ValueStyle style,
                                  const std::optional<Pattern>& pattern = std::nullopt);

// The entry with the code.
Statement CodeStatement(std::wstring_view sqlID, std::wstring_view code, ValueStyle style);

} // namespace vndesk
