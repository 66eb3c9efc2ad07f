// SPDX-License-Identifier: MIT
// A small reader for typed dates and times.
#include "data/text/date_text.h"

#include "text/ascii_text.h"

#include <chrono>
#include <string>

namespace vndesk {

namespace {

// Reads a date or time from left to right.
class Reader {
public:
    explicit Reader(std::wstring_view text) : rest_(TrimBlanks(text)) {}

    bool AtEnd() const { return rest_.empty(); }

    bool SkipBlanks() {
        const std::size_t before = rest_.size();
        while (!rest_.empty() && rest_.front() == L' ')
            rest_.remove_prefix(1);
        return rest_.size() < before;
    }

    // Reads a number of at most `maxDigits` digits and returns how many it had; 0 for none or too
    // many.
    int TakeNumber(int maxDigits, int& number) {
        number = 0;
        int digits = 0;
        for (; !rest_.empty() && IsAsciiDigit(rest_.front()); rest_.remove_prefix(1)) {
            if (++digits > maxDigits)
                return 0;
            number = number * 10 + (rest_.front() - L'0');
        }
        return digits;
    }

    // The next character when it is one of `allowed`, else 0.
    wchar_t Take(std::wstring_view allowed) {
        if (rest_.empty() || allowed.find(rest_.front()) == std::wstring_view::npos)
            return 0;
        const wchar_t ch = rest_.front();
        rest_.remove_prefix(1);
        return ch;
    }

    wchar_t TakeSeparator(std::wstring_view allowed) {
        SkipBlanks();
        const wchar_t taken = Take(allowed);
        SkipBlanks();
        return taken;
    }

private:
    std::wstring_view rest_;
};

// Years below 100 stand for 1930 to 2029.
constexpr int FullYear(int year) {
    if (year >= 100)
        return year;
    return year + (year < 30 ? 2000 : 1900);
}

// Days since 30 December 1899; nothing when there is no such day.
std::optional<int> RealDay(int year, int month, int day) {
    using namespace std::chrono;
    constexpr sys_days kZero = 1899y / December / 30;
    const year_month_day date(std::chrono::year(FullYear(year)),
                              std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day)));
    if (!date.ok())
        return std::nullopt;
    return static_cast<int>((sys_days(date) - kZero).count());
}

std::optional<int> TakeDate(Reader& reader) {
    int numbers[3];
    int digits[3];
    std::wstring separator = L"/-.";
    for (int i = 0; i < 3; ++i) {
        if (i > 0) {
            const wchar_t taken = reader.TakeSeparator(separator);
            if (taken == 0)
                return std::nullopt;
            separator = taken;
        }
        digits[i] = reader.TakeNumber(4, numbers[i]);
        if (digits[i] == 0)
            return std::nullopt;
    }
    const int yearPlace = digits[0] > 2 ? 0 : 2;
    const int dayPlace = yearPlace == 0 ? 2 : 0;
    if (digits[dayPlace] > 2 || digits[1] > 2)
        return std::nullopt;
    const int year = numbers[yearPlace];
    const std::optional<int> dayFirst = RealDay(year, numbers[1], numbers[dayPlace]);
    return dayFirst ? dayFirst : RealDay(year, numbers[dayPlace], numbers[1]);
}

// hh, hh:mm or hh:mm:ss in seconds; the hour alone needs AM or PM.
std::optional<int> TakeTime(Reader& reader) {
    constexpr int kHour = 3600;
    int hour = 0;
    if (reader.TakeNumber(2, hour) == 0)
        return std::nullopt;
    int seconds = 0;
    int unit = kHour;
    while (unit > 1 && reader.TakeSeparator(L":") != 0) {
        int number = 0;
        if (reader.TakeNumber(2, number) == 0 || number > 59)
            return std::nullopt;
        unit /= 60;
        seconds += number * unit;
    }
    reader.SkipBlanks();
    const wchar_t half = reader.Take(L"APap");
    if (half == 0) {
        if (unit == kHour || hour > 23)
            return std::nullopt;
        return hour * kHour + seconds;
    }
    if (reader.Take(L"Mm") == 0 || hour > 12)
        return std::nullopt;
    return (hour % 12 + (ToUpperAscii(half) == L'P' ? 12 : 0)) * kHour + seconds;
}

} // namespace

std::optional<Moment> ReadDate(std::wstring_view text) {
    constexpr double kSecondsOfADay = 86400;
    Reader reader(text);
    const std::optional<int> day = TakeDate(reader);
    if (!day)
        return std::nullopt;
    if (reader.AtEnd())
        return Moment{static_cast<double>(*day)};
    const std::optional<int> time = reader.SkipBlanks() ? TakeTime(reader) : std::nullopt;
    if (!time || !reader.AtEnd())
        return std::nullopt;
    // The part of the day counts on from the day in both directions.
    const double part = *time / kSecondsOfADay;
    return Moment{*day < 0 ? *day - part : *day + part};
}

bool IsDate(std::wstring_view text) {
    return ReadDate(text).has_value();
}

} // namespace vndesk
