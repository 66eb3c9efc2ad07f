// SPDX-License-Identifier: MIT
// Number reading and writing that is the same in every locale, over the C functions: they are in
// the system already, while the tables of the standard charconv functions for doubles take 200 KB.
#include "data/text/number_text.h"

#include "text/ascii_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace vndesk {

namespace {

// Far outside what a double can hold, and far inside what an int can.
constexpr long kMaxExponent = 1000000;

// A number's text without sign, split up and reduced to narrow ASCII.
struct Parts {
    bool negative = false;
    std::string digits;   // of the whole part and the decimals
    long wholeDigits = 0; // how many of them stand before the point
    long exponent = 0;
};

// Reads digits from the front of `text`; true when there was at least one.
bool TakeDigits(std::wstring_view& text, std::string& digits) {
    const std::size_t before = digits.size();
    while (!text.empty() && IsAsciiDigit(text.front())) {
        digits.push_back(static_cast<char>(text.front()));
        text.remove_prefix(1);
    }
    return digits.size() > before;
}

// True when a sign stood in front and was a minus.
bool TakeMinus(std::wstring_view& text) {
    if (text.empty() || (text.front() != L'-' && text.front() != L'+'))
        return false;
    const bool minus = text.front() == L'-';
    text.remove_prefix(1);
    return minus;
}

bool TakeExponent(std::wstring_view& text, long& exponent) {
    text.remove_prefix(1);
    const bool minus = TakeMinus(text);
    std::string digits;
    if (!TakeDigits(text, digits))
        return false;
    for (char digit : digits)
        exponent = exponent < kMaxExponent ? exponent * 10 + (digit - '0') : kMaxExponent;
    exponent = minus ? -exponent : exponent;
    return true;
}

std::optional<Parts> SplitNumber(std::wstring_view text) {
    Parts parts;
    text = TrimBlanks(text);
    parts.negative = TakeMinus(text);
    bool anyDigit = TakeDigits(text, parts.digits);
    parts.wholeDigits = static_cast<long>(parts.digits.size());
    if (!text.empty() && text.front() == L'.') {
        text.remove_prefix(1);
        anyDigit = TakeDigits(text, parts.digits) || anyDigit;
    }
    if (!anyDigit)
        return std::nullopt;
    if (!text.empty() && ToUpperAscii(text.front()) == L'E' && !TakeExponent(text, parts.exponent))
        return std::nullopt;
    if (!text.empty())
        return std::nullopt;
    return parts;
}

// The significant digits of a finite value above 0, without trailing zeros, and the power of ten
// of the first one.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal ToDecimal(double value, int significantDigits) {
    // d.ddddde+xx, with the locale's own mark for the point
    char buffer[64];
    const int length = std::snprintf(buffer, sizeof buffer, "%.*e", significantDigits - 1, value);
    const std::string_view text(buffer, static_cast<std::size_t>(length));
    const std::size_t mark = text.find('e');
    Decimal decimal;
    std::copy_if(text.begin(), text.begin() + mark, std::back_inserter(decimal.digits),
                 [](char ch) { return IsAsciiDigit(ch); });
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    const bool minus = text[mark + 1] == '-';
    std::from_chars(buffer + mark + 2, buffer + length, decimal.exponent);
    decimal.exponent = minus ? -decimal.exponent : decimal.exponent;
    return decimal;
}

std::string WithExponent(const Decimal& decimal) {
    std::string text(1, decimal.digits[0]);
    if (decimal.digits.size() > 1)
        text.append(1, '.').append(decimal.digits, 1);
    text.append(decimal.exponent < 0 ? "E-" : "E+");
    const std::string power = std::to_string(std::abs(decimal.exponent));
    return text.append(power.size() < 2 ? 1 : 0, '0').append(power);
}

std::string WithoutExponent(const Decimal& decimal) {
    if (decimal.exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') +
               decimal.digits;
    std::string text = decimal.digits;
    const auto wholeDigits = static_cast<std::size_t>(decimal.exponent) + 1;
    if (text.size() <= wholeDigits)
        return text.append(wholeDigits - text.size(), '0');
    return text.insert(wholeDigits, 1, '.');
}

std::wstring ToText(double value, int significantDigits, int mostDecimals) {
    if (!std::isfinite(value))
        throw std::overflow_error("number is out of range");
    if (value == 0)
        return L"0";
    const Decimal decimal = ToDecimal(std::fabs(value), significantDigits);
    const int decimals = static_cast<int>(decimal.digits.size()) - 1 - decimal.exponent;
    const bool plain = decimal.exponent < significantDigits && decimals <= mostDecimals;
    const std::string text = plain ? WithoutExponent(decimal) : WithExponent(decimal);
    return (value < 0 ? L"-" : L"") + std::wstring(text.begin(), text.end());
}

} // namespace

std::optional<double> ParseNumber(std::wstring_view text) {
    const auto parts = SplitNumber(text);
    if (!parts)
        return std::nullopt;
    const std::size_t first = parts->digits.find_first_not_of('0');
    if (first == std::string::npos)
        return 0.0;
    // Without a point, whose form is the locale's.
    const long power =
        parts->wholeDigits - static_cast<long>(parts->digits.size()) + parts->exponent;
    const std::string plain =
        (parts->negative ? "-" : "") + parts->digits.substr(first) + "e" + std::to_string(power);
    const double value = std::strtod(plain.c_str(), nullptr);
    // Too small counts as 0, too large is no number.
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

bool IsNumericEntry(std::wstring_view text) {
    std::wstring plain;
    plain.reserve(text.size());
    bool whole = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'.')
            whole = false;
        // Only a comma between two digits of the whole part may be dropped.
        const bool separator = whole && text[i] == L',' && i > 0 && IsAsciiDigit(text[i - 1]) &&
                               i + 1 < text.size() && IsAsciiDigit(text[i + 1]);
        if (!separator)
            plain.push_back(text[i]);
    }
    return ParseNumber(plain).has_value();
}

std::wstring DoubleToText(double value) {
    return ToText(value, kDoubleDigits, kDoubleDigits);
}

std::wstring ToDecimals(double value, int significantDigits) {
    return ToText(value, significantDigits, std::numeric_limits<int>::max());
}

} // namespace vndesk
