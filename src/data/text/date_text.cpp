// SPDX-License-Identifier: MIT
// A small reader for typed dates and times.
#include "data/text/date_text.h"

#include "text/ascii_text.h"

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

// Years below 100 stand for 1930 to 2029, where every fourth one is a leap year.
constexpr bool IsLeapYear(int year) {
    return year % 4 == 0 && (year < 100 || year % 100 != 0 || year % 400 == 0);
}

bool IsRealDate(int year, int month, int day) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12 || day < 1)
        return false;
    return day <= kDays[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

bool TakeDate(Reader& reader) {
    int numbers[3];
    int digits[3];
    std::wstring separator = L"/-.";
    for (int i = 0; i < 3; ++i) {
        if (i > 0) {
            const wchar_t taken = reader.TakeSeparator(separator);
            if (taken == 0)
                return false;
            separator = taken;
        }
        digits[i] = reader.TakeNumber(4, numbers[i]);
        if (digits[i] == 0)
            return false;
    }
    const int yearPlace = digits[0] > 2 ? 0 : 2;
    const int dayPlace = yearPlace == 0 ? 2 : 0;
    if (digits[dayPlace] > 2 || digits[1] > 2)
        return false;
    const int year = numbers[yearPlace];
    return IsRealDate(year, numbers[1], numbers[dayPlace]) ||
           IsRealDate(year, numbers[dayPlace], numbers[1]);
}

// hh, hh:mm or hh:mm:ss; the hour alone needs AM or PM.
bool TakeTime(Reader& reader) {
    int hour = 0;
    if (reader.TakeNumber(2, hour) == 0)
        return false;
    int colons = 0;
    while (colons < 2 && reader.TakeSeparator(L":") != 0) {
        int number = 0;
        if (reader.TakeNumber(2, number) == 0 || number > 59)
            return false;
        ++colons;
    }
    reader.SkipBlanks();
    if (reader.Take(L"APap") == 0)
        return colons > 0 && hour < 24;
    return reader.Take(L"Mm") != 0 && hour <= 12;
}

} // namespace

bool IsDate(std::wstring_view text) {
    Reader reader(text);
    if (!TakeDate(reader))
        return false;
    if (reader.AtEnd())
        return true;
    return reader.SkipBlanks() && TakeTime(reader) && reader.AtEnd();
}

} // namespace vndesk
