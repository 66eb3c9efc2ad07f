// SPDX-License-Identifier: MIT
// Grouping of thousands and its way back.
#include "find/text/number_display.h"

#include "data/text/number_text.h"
#include "text/ascii_text.h"

#include <cmath>

namespace vndesk {

namespace {

constexpr auto kNone = std::wstring_view::npos;

std::size_t DecimalSeparator(std::wstring_view number) {
    const std::size_t point = number.find(L'.');
    return point != kNone ? point : number.find(L',');
}

// "." between thousands, counted from the right.
std::wstring GroupThousands(std::wstring_view whole) {
    std::wstring result;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0)
            result.push_back(L'.');
        result.push_back(whole[i]);
    }
    return result;
}

} // namespace

std::wstring Sign(std::wstring_view text) {
    const bool has = !text.empty() && (text.front() == L'-' || text.front() == L'+');
    return std::wstring(text.substr(0, has ? 1 : 0));
}

std::wstring Mid1(std::wstring_view text, long position) {
    if (position < 1 || static_cast<unsigned long>(position) > text.size())
        return {};
    return std::wstring(1, text[static_cast<std::size_t>(position) - 1]);
}

std::wstring CvNStr(std::wstring_view numberText) {
    std::wstring_view whole = TrimBlanks(numberText);
    const std::wstring sign = Sign(whole);
    whole.remove_prefix(sign.size());
    std::wstring_view fraction;
    if (const std::size_t at = DecimalSeparator(whole); at != kNone) {
        fraction = whole.substr(at + 1);
        whole = whole.substr(0, at);
    }
    std::wstring result = sign + GroupThousands(whole);
    if (!fraction.empty())
        result.append(L",").append(fraction);
    return result;
}

double CvTextToN(std::wstring_view text) {
    double sign = 1;
    double fraction = 0;
    std::wstring_view whole = text;
    if (const std::size_t comma = text.find(L','); comma != kNone) {
        // A blank before the minus leaves it to the conversion of the whole part, which then does
        // not reach the decimals.
        const bool minus = text.front() == L'-';
        sign = minus ? -1 : 1;
        const std::wstring_view decimals = TrimBlanks(text.substr(comma + 1));
        whole = TrimBlanks(text.substr(0, comma));
        whole.remove_prefix(minus ? 1 : 0);
        fraction = ParseNumber(decimals).value_or(0) /
                   std::pow(10.0, static_cast<double>(decimals.size()));
    }
    const double integer = ParseNumber(ReplaceEach(whole, L'.', L"")).value_or(0);
    return (integer + fraction) * sign;
}

} // namespace vndesk
