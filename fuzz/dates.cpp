// SPDX-License-Identifier: MIT
// A date as users type it, then one as drivers write it. An entry that counts as a date reaches the
// engine as that date, and dates survive being written and read.
#include "support/input.h"

#include <cmath>

#include "ado/text/date_value.h"
#include "data/text/date_text.h"
#include "find/text/format_value.h"
#include "text/ascii_text.h"

namespace vndesk::fuzz {

namespace {

void CheckValue(const ado::DateValue& date) {
    MUST(date.hour >= 0 && date.hour <= 23 && date.minute >= 0 && date.minute <= 59);
    MUST(date.second >= 0 && date.second <= 59);
    MUST(date.year == 0 ? date.hasTime : date.year >= 100 && date.year <= 9999);
    MUST(date.year == 0 ||
         (date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= 31));
    const std::wstring text = ado::IsoText(date);
    const auto again = ado::ParseIsoDate(std::string(text.begin(), text.end()));
    MUST(again && ado::IsoText(*again) == text);
    MUST(ado::ToOleDate(*again) == ado::ToOleDate(date));
    MUST(ado::ToOleDate(date) >= -657435 && ado::ToOleDate(date) < 2958466);
    const auto counted = ado::FromOleDate(ado::ToOleDate(*again));
    MUST(counted && ado::ToOleDate(*counted) == ado::ToOleDate(date));
    const auto literal = ado::ParseDateLiteral(text);
    MUST(literal && ado::IsoText(*literal) == text);
}

// An entry with slashes and a year of four digits from 100 on, which is all that engines can hold.
bool IsUsual(std::wstring_view entry) {
    entry = TrimBlanks(entry);
    const std::size_t first = entry.find(L'/');
    const std::size_t second =
        first == std::wstring_view::npos ? first : entry.find(L'/', first + 1);
    if (second == std::wstring_view::npos || TrimBlanks(entry.substr(0, first)).size() > 2)
        return false;
    const std::wstring_view year = TrimBlanks(entry.substr(second + 1)).substr(0, 4);
    return year.size() == 4 && year.find_first_not_of(L"0123456789") == std::wstring_view::npos &&
           year.substr(0, 2) != L"00";
}

} // namespace

void RunOne(Input& input) {
    const std::wstring entry = input.Text();
    constexpr double kHalfASecond = 0.5 / 86400;
    const std::wstring american = ToUSDate(entry);
    MUST(american.empty() == !IsDate(entry));
    if (const auto moment = ReadDate(entry))
        MUST(moment->days > -657435 && moment->days < 2958466);
    if (IsDate(entry) && IsUsual(entry)) {
        const auto date = ado::ParseDateLiteral(american);
        MUST(date && date->year != 0);
        CheckValue(*date);
        // With parameters it is the same date.
        MUST(std::fabs(ado::ToOleDate(*date) - ReadDate(entry)->days) < kHalfASecond);
    }
    if (const auto literal = ado::ParseDateLiteral(entry))
        CheckValue(*literal);
    if (const auto driver = ado::ParseIsoDate(input.Bytes()))
        CheckValue(*driver);
}

} // namespace vndesk::fuzz
