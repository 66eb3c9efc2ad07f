// SPDX-License-Identifier: MIT
// Dates as statements and drivers write them, and as DATE values (days since 30 December 1899).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vndesk::ado {

struct DateValue {
    int year = 0; // 0: a time without a date
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool hasTime = false;
};

// The inside of a #...# literal: month/day/year (day/month/year when only that is a date),
// year-month-day, with or without a time, or a time alone.
std::optional<DateValue> ParseDateLiteral(std::wstring_view text);

// What drivers deliver: yyyy-mm-dd, optionally a time with a fraction and a zone (both dropped), or
// hh:mm:ss alone.
std::optional<DateValue> ParseIsoDate(std::string_view text);

// yyyy-mm-dd, yyyy-mm-dd hh:mm:ss or hh:mm:ss.
std::wstring IsoText(const DateValue& date);

double ToOleDate(const DateValue& date);

// Rounded to whole seconds; without a time at midnight. Nothing for what is no date of the hosts.
std::optional<DateValue> FromOleDate(double date);

} // namespace vndesk::ado
