// SPDX-License-Identifier: MIT
// A number by its decimal digits, exact whatever type it comes from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vndesk {

struct ExactNumber {
    bool negative = false; // never of 0
    std::string whole;     // without zeros in front; empty for 0
    std::string fraction;  // without zeros behind

    bool operator==(const ExactNumber&) const = default;
};

// What a double holds exactly; more digits than users write.
inline constexpr double kLargestExact = 9007199254740992.0;
inline constexpr double kLargestExactSingle = 16777216.0;
inline constexpr std::size_t kMostDigits = 99;

// An unsigned number of 96 bits divided by ten to the scale, as the types Decimal and Currency are.
ExactNumber FromScaled(std::uint32_t high, std::uint64_t low, int scale, bool negative);

ExactNumber FromInteger(std::int64_t value);

// Whole numbers exactly, others with as many significant digits. Nothing for what is not finite or
// beyond `largest`.
std::optional<ExactNumber> FromDouble(double value, int significantDigits = 15,
                                      double largest = kLargestExact);

// A sign, digits with points between them, decimals behind a comma: 1.234,5. Nothing for any other
// text and for more than kMostDigits.
std::optional<ExactNumber> FromDigits(std::wstring_view text);

// Half away from zero.
ExactNumber Rounded(ExactNumber number, std::size_t decimals);

} // namespace vndesk
