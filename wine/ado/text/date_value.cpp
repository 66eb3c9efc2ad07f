// SPDX-License-Identifier: MIT
#include "ado/text/date_value.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace vndesk::ado {

namespace {

constexpr int kFirstYear = 100; // what the hosts' dates can hold
constexpr int kLastYear = 9999;
constexpr int kSecondsPerDay = 24 * 60 * 60;

bool IsLeap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysIn(int month, int year) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kDays[month - 1] + (month == 2 && IsLeap(year) ? 1 : 0);
}

bool IsDate(const DateValue& date) {
    return date.year >= kFirstYear && date.year <= kLastYear && date.month >= 1 &&
           date.month <= 12 && date.day >= 1 && date.day <= DaysIn(date.month, date.year);
}

bool IsTime(const DateValue& date) {
    return date.hour >= 0 && date.hour <= 23 && date.minute >= 0 && date.minute <= 59 &&
           date.second >= 0 && date.second <= 59;
}

// Reads forward over a text; every step says whether it fitted.
template <class Char> class Scanner {
public:
    explicit Scanner(std::basic_string_view<Char> text) : text_(text) {}

    bool AtEnd() const { return position_ == text_.size(); }

    char Next() const {
        return AtEnd() || text_[position_] > 0x7F ? '\0' : static_cast<char>(text_[position_]);
    }

    bool Take(char ch) {
        if (AtEnd() || Next() != ch)
            return false;
        ++position_;
        return true;
    }

    // Blanks around it do not matter.
    bool TakeSeparator(char ch) {
        SkipBlanks();
        const bool taken = Take(ch);
        if (taken)
            SkipBlanks();
        return taken;
    }

    bool TakeEither(char first, char second) { return Take(first) || Take(second); }

    void SkipBlanks() {
        while (Take(' ')) {
        }
    }

    // `digits` is how many there were.
    bool Number(int& value, int& digits) {
        value = digits = 0;
        while (Next() >= '0' && Next() <= '9' && digits < 6) {
            value = value * 10 + (Next() - '0');
            ++position_;
            ++digits;
        }
        return digits > 0;
    }

    bool Number(int& value) {
        int digits;
        return Number(value, digits);
    }

    std::size_t Position() const { return position_; }
    void Return(std::size_t position) { position_ = position; }

private:
    std::basic_string_view<Char> text_;
    std::size_t position_ = 0;
};

bool ReadIsoTime(Scanner<char>& scanner, DateValue& date) {
    if (!scanner.Number(date.hour) || !scanner.Take(':') || !scanner.Number(date.minute))
        return false;
    if (scanner.Take(':') && !scanner.Number(date.second))
        return false;
    date.hasTime = true;
    return true;
}

// As users type it: AM or PM may follow, and with it the hour may stand alone.
bool ReadLiteralTime(Scanner<wchar_t>& scanner, DateValue& date) {
    if (!scanner.Number(date.hour))
        return false;
    const bool minutes = scanner.TakeSeparator(':');
    if (minutes && (!scanner.Number(date.minute) ||
                    (scanner.TakeSeparator(':') && !scanner.Number(date.second))))
        return false;
    date.hasTime = true;
    scanner.SkipBlanks();
    const bool morning = scanner.TakeEither('A', 'a');
    const bool evening = !morning && scanner.TakeEither('P', 'p');
    if (!morning && !evening)
        return minutes;
    if (!scanner.TakeEither('M', 'm') || date.hour > 12)
        return false;
    date.hour = date.hour % 12 + (evening ? 12 : 0);
    return true;
}

bool ReadLiteralDate(Scanner<wchar_t>& scanner, DateValue& date) {
    int first, second, third, firstDigits, thirdDigits;
    if (!scanner.Number(first, firstDigits))
        return false;
    scanner.SkipBlanks();
    const char separator = scanner.Next();
    if (separator != '/' && separator != '-' && separator != '.')
        return false;
    if (!scanner.TakeSeparator(separator) || !scanner.Number(second) ||
        !scanner.TakeSeparator(separator) || !scanner.Number(third, thirdDigits))
        return false;
    if (firstDigits == 4) {
        date.year = first;
        date.month = second;
        date.day = third;
        return IsDate(date);
    }
    date.month = first;
    date.day = second;
    date.year = third;
    if (thirdDigits <= 2) // the hosts' own window for years of two digits
        date.year += date.year < 30 ? 2000 : 1900;
    if (!IsDate(date))
        std::swap(date.month, date.day);
    return IsDate(date);
}

std::wstring Digits(int value, std::size_t width) {
    std::wstring text = std::to_wstring(value);
    return text.size() < width ? std::wstring(width - text.size(), L'0') + text : text;
}

// Days since 1 March of year 0, by which leap days come last in a year.
long DayNumber(int year, int month, int day) {
    const long shifted = month < 3 ? year - 1 : year;
    const long months = month < 3 ? month + 9 : month - 3;
    return shifted * 365 + shifted / 4 - shifted / 100 + shifted / 400 + (months * 306 + 5) / 10 +
           day - 1;
}

// The other way round.
void SetDay(DateValue& date, long number) {
    const long era = number / 146097; // 400 years
    const long day = number % 146097;
    const long yearOfEra = (day - day / 1460 + day / 36524 - day / 146096) / 365;
    const long dayOfYear = day - (yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100);
    const long month = (dayOfYear * 5 + 2) / 153; // 0: March
    date.day = static_cast<int>(dayOfYear - (month * 153 + 2) / 5 + 1);
    date.month = static_cast<int>(month < 10 ? month + 3 : month - 9);
    date.year = static_cast<int>(era * 400 + yearOfEra + (date.month < 3 ? 1 : 0));
}

} // namespace

std::optional<DateValue> ParseDateLiteral(std::wstring_view text) {
    Scanner<wchar_t> scanner(text);
    DateValue date;
    scanner.SkipBlanks();
    const std::size_t start = scanner.Position();
    if (ReadLiteralDate(scanner, date)) {
        scanner.SkipBlanks();
    } else {
        scanner.Return(start);
        date = {};
    }
    if (!scanner.AtEnd() && !ReadLiteralTime(scanner, date))
        return std::nullopt;
    scanner.SkipBlanks();
    if (!scanner.AtEnd() || !IsTime(date) || (date.year == 0 && !date.hasTime))
        return std::nullopt;
    return date;
}

std::optional<DateValue> ParseIsoDate(std::string_view text) {
    Scanner<char> scanner(text);
    DateValue date;
    int digits = 0;
    if (!scanner.Number(date.year, digits))
        return std::nullopt;
    if (digits <= 2 && scanner.Next() == ':') {
        scanner.Return(0);
        date.year = 0;
    } else {
        if (digits != 4 || !scanner.Take('-') || !scanner.Number(date.month) ||
            !scanner.Take('-') || !scanner.Number(date.day) || !IsDate(date))
            return std::nullopt;
        if (scanner.AtEnd())
            return date;
        if (!scanner.TakeEither(' ', 'T'))
            return std::nullopt;
    }
    if (!ReadIsoTime(scanner, date) || !IsTime(date))
        return std::nullopt;
    int dropped;
    if (scanner.Take('.') && !scanner.Number(dropped))
        return std::nullopt;
    while (scanner.Number(dropped)) {
    }
    if (scanner.TakeEither('+', '-'))
        while (scanner.Number(dropped) || scanner.Take(':')) {
        }
    else
        scanner.Take('Z');
    if (!scanner.AtEnd())
        return std::nullopt;
    return date;
}

std::wstring IsoText(const DateValue& date) {
    std::wstring text;
    if (date.year)
        text = Digits(date.year, 4) + L"-" + Digits(date.month, 2) + L"-" + Digits(date.day, 2);
    if (date.hasTime) {
        if (!text.empty())
            text += L' ';
        text +=
            Digits(date.hour, 2) + L":" + Digits(date.minute, 2) + L":" + Digits(date.second, 2);
    }
    return text;
}

double ToOleDate(const DateValue& date) {
    const double time =
        (date.hour * 3600 + date.minute * 60 + date.second) / static_cast<double>(kSecondsPerDay);
    if (date.year == 0)
        return time;
    const long days = DayNumber(date.year, date.month, date.day) - DayNumber(1899, 12, 30);
    // Before the first day the fraction still counts forward from midnight.
    return days < 0 ? static_cast<double>(days) - time : static_cast<double>(days) + time;
}

std::optional<DateValue> FromOleDate(double date) {
    constexpr double kBeforeFirst = -657435; // 1 January 100 is the day after
    constexpr double kAfterLast = 2958466;
    if (!(date > kBeforeFirst && date < kAfterLast)) // nor is what is no number
        return std::nullopt;
    const double whole = std::trunc(date);
    long day = static_cast<long>(whole);
    long second = std::lround(std::fabs(date - whole) * kSecondsPerDay);
    if (second == kSecondsPerDay) {
        second = 0;
        ++day;
    }
    DateValue value;
    SetDay(value, day + DayNumber(1899, 12, 30));
    value.hour = static_cast<int>(second / 3600);
    value.minute = static_cast<int>(second / 60 % 60);
    value.second = static_cast<int>(second % 60);
    value.hasTime = second != 0;
    return IsDate(value) ? std::optional(value) : std::nullopt;
}

} // namespace vndesk::ado
