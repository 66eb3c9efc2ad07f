// SPDX-License-Identifier: MIT
#include "text/numbers/exact_number.h"

#include "text/ascii_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vndesk {

namespace {

// Drops zeros that say nothing, and the sign of 0.
void Tidy(ExactNumber& number) {
    number.whole.erase(0, std::min(number.whole.find_first_not_of('0'), number.whole.size()));
    number.fraction.erase(number.fraction.find_last_not_of('0') + 1);
    if (number.whole.empty() && number.fraction.empty())
        number.negative = false;
}

// `point` is how many digits stand before it; negative or beyond their end where zeros are left
// out.
ExactNumber FromPlain(std::string digits, int point, bool negative) {
    if (point < 0)
        digits.insert(0, static_cast<std::size_t>(-point), '0');
    const auto whole = static_cast<std::size_t>(std::max(point, 0));
    if (digits.size() < whole)
        digits.append(whole - digits.size(), '0');
    ExactNumber number{negative, digits.substr(0, whole), digits.substr(whole)};
    Tidy(number);
    return number;
}

} // namespace

ExactNumber FromScaled(std::uint32_t high, std::uint64_t low, int scale, bool negative) {
    // Nine digits at a time, the lowest first.
    constexpr std::uint64_t kStep = 1'000'000'000;
    std::uint32_t parts[3] = {high, static_cast<std::uint32_t>(low >> 32),
                              static_cast<std::uint32_t>(low)};
    char digits[36];
    char* first = digits + sizeof digits;
    while (parts[0] != 0 || parts[1] != 0 || parts[2] != 0) {
        std::uint64_t rest = 0;
        for (std::uint32_t& part : parts) {
            rest = rest << 32 | part;
            part = static_cast<std::uint32_t>(rest / kStep);
            rest %= kStep;
        }
        for (int i = 0; i < 9; ++i, rest /= 10)
            *--first = static_cast<char>('0' + rest % 10);
    }
    std::string plain(first, digits + sizeof digits);
    const int point = static_cast<int>(plain.size()) - scale;
    return FromPlain(std::move(plain), point, negative);
}

ExactNumber FromInteger(std::int64_t value) {
    const auto bits = static_cast<std::uint64_t>(value);
    return FromScaled(0, value < 0 ? 0 - bits : bits, 0, value < 0);
}

std::optional<ExactNumber> FromDouble(double value, int significantDigits, double largest) {
    if (!(std::fabs(value) <= largest))
        return std::nullopt;
    if (value == std::trunc(value))
        return FromInteger(static_cast<std::int64_t>(value));
    // d.ddddde+xx, with the locale's own mark for the point
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*e", significantDigits - 1, std::fabs(value));
    std::string digits;
    const char* at = buffer;
    for (; *at != 'e'; ++at)
        if (IsAsciiDigit(static_cast<wchar_t>(*at)))
            digits.push_back(*at);
    const int exponent = static_cast<int>(std::strtol(at + 1, nullptr, 10));
    return FromPlain(std::move(digits), exponent + 1, value < 0);
}

std::optional<ExactNumber> FromDigits(std::wstring_view text) {
    ExactNumber number;
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
        number.negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    std::string* part = &number.whole;
    for (const wchar_t ch : text) {
        if (IsAsciiDigit(ch))
            part->push_back(static_cast<char>(ch));
        else if (ch == L',' && part == &number.whole)
            part = &number.fraction;
        else if (ch != L'.' || part != &number.whole)
            return std::nullopt;
    }
    if (number.whole.size() + number.fraction.size() > kMostDigits)
        return std::nullopt;
    Tidy(number);
    return number;
}

ExactNumber Rounded(ExactNumber number, std::size_t decimals) {
    if (number.fraction.size() <= decimals)
        return number;
    const bool up = number.fraction[decimals] >= '5';
    number.fraction.resize(decimals);
    bool carry = up;
    for (std::string* part : {&number.fraction, &number.whole})
        for (auto digit = part->rbegin(); carry && digit != part->rend(); ++digit) {
            carry = *digit == '9';
            *digit = carry ? '0' : static_cast<char>(*digit + 1);
        }
    if (carry)
        number.whole.insert(0, 1, '1');
    Tidy(number);
    return number;
}

} // namespace vndesk
