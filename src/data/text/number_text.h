// SPDX-License-Identifier: MIT
// Numbers read from and written to text, the same way in every locale: decimal point, no grouping.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vndesk {

// Optional sign, digits with an optional decimal point, optional exponent; blanks around are
// allowed. Anything else, and a number too large for a double, gives no value.
std::optional<double> ParseNumber(std::wstring_view text);

// Whether a user's entry counts as numeric: a number as above, whose whole digits may also be
// separated by commas, so that a list of numbers such as 1,2 passes.
bool IsNumericEntry(std::wstring_view text);

// Up to 15 significant digits; exponent form (1.23E+20) from 1E15 on, and for small numbers that
// need more than 15 decimals. Throws std::overflow_error for a value that is not finite.
std::wstring DoubleToText(double value);

// Significant decimal digits of float and double.
inline constexpr int kDoubleDigits = 15, kSingleDigits = 7;

// As users read it: a small number has all its decimals. The exponent form begins where the whole
// part has more digits than are significant.
std::wstring ToDecimals(double value, int significantDigits);

} // namespace vndesk
