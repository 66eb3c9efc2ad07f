// SPDX-License-Identifier: MIT
// Recognises dates that users type.
#pragma once

#include <string_view>

namespace vndesk {

// Day, month and year with "/", "-" or "." between them (the same one twice, blanks around it are
// allowed), and an optional time. Month before day is accepted too when only that is a real date;
// a first part of four digits is the year. Two-digit years are 1930 to 2029.
bool IsDate(std::wstring_view text);

} // namespace vndesk
