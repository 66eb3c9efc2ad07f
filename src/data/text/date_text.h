// SPDX-License-Identifier: MIT
// Reads dates that users type.
#pragma once

#include "data/text/statement.h"

#include <optional>
#include <string_view>

namespace vndesk {

// Day, month and year with "/", "-" or "." between them (the same one twice, blanks around it are
// allowed), and an optional time. Month before day is accepted too when only that is a real date;
// a first part of four digits is the year. Years below 100 are 1930 to 2029. Nothing for any other
// text.
std::optional<Moment> ReadDate(std::wstring_view text);

bool IsDate(std::wstring_view text);

} // namespace vndesk
