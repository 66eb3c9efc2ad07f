// SPDX-License-Identifier: MIT
#include "data/text/dialect.h"

#include <chrono>
#include <cmath>

#include "text/ascii_text.h"

namespace vndesk {

namespace {

constexpr Dialect kDialects[] = {
    {.engine = Engine::Jet,
     .days = DayOrder::MonthFirst,
     .dateMark = L'#',
     .yes = L"True",
     .no = L"False"},
    {.engine = Engine::SqlServer, .textPrefix = L"N", .days = DayOrder::Digits},
    {.engine = Engine::PostgreSql,
     .names = {L'"', L'"', true},
     .escapes = Escapes::InMarkedTexts,
     .escapesPatterns = true,
     .beforeDay = L"DATE ",
     .beforeMoment = L"TIMESTAMP ",
     .yes = L"TRUE",
     .no = L"FALSE"},
    // In brackets: a name between double quotes that no column has would be a text.
    {.engine = Engine::Sqlite},
    {.engine = Engine::MySql,
     .names = {L'`', L'`'},
     .escapes = Escapes::Always,
     .escapesPatterns = true,
     .beforeDay = L"DATE ",
     .beforeMoment = L"TIMESTAMP "},
};

std::wstring Digits(long number, std::size_t width) {
    const std::wstring digits = std::to_wstring(number);
    return std::wstring(digits.size() < width ? width - digits.size() : 0, L'0') + digits;
}

std::wstring DayText(std::chrono::year_month_day day, DayOrder order) {
    const std::wstring y = Digits(static_cast<int>(day.year()), 4);
    const std::wstring m = Digits(static_cast<unsigned>(day.month()), 2);
    const std::wstring d = Digits(static_cast<unsigned>(day.day()), 2);
    switch (order) {
    case DayOrder::MonthFirst:
        return m + L"/" + d + L"/" + y;
    case DayOrder::Digits:
        return y + m + d;
    default:
        return y + L"-" + m + L"-" + d;
    }
}

} // namespace

const Dialect& DialectOf(Engine engine) {
    for (const Dialect& dialect : kDialects)
        if (dialect.engine == engine)
            return dialect;
    return kDialects[0];
}

const Dialect* DialectOf(DialectChoice choice) {
    struct Row {
        DialectChoice choice;
        Engine engine;
    };
    constexpr Row kRows[] = {{DialectChoice::Jet, Engine::Jet},
                             {DialectChoice::SqlServer, Engine::SqlServer},
                             {DialectChoice::PostgreSql, Engine::PostgreSql},
                             {DialectChoice::Sqlite, Engine::Sqlite},
                             {DialectChoice::MySql, Engine::MySql}};
    for (const Row& row : kRows)
        if (row.choice == choice)
            return &DialectOf(row.engine);
    return nullptr;
}

std::wstring TextLiteral(std::wstring_view text, const Dialect& dialect) {
    std::wstring inside = ReplaceEach(text, L'\'', L"''");
    std::wstring_view prefix = dialect.textPrefix;
    if (dialect.escapes != Escapes::None && inside.find(L'\\') != std::wstring::npos) {
        inside = ReplaceEach(inside, L'\\', L"\\\\");
        if (dialect.escapes == Escapes::InMarkedTexts)
            prefix = L"E";
    }
    return std::wstring(prefix) + L"'" + inside + L"'";
}

std::wstring PatternOf(std::wstring_view beginning, const Dialect& dialect) {
    const std::wstring letters =
        dialect.escapesPatterns ? ReplaceEach(beginning, L'\\', L"\\\\") : std::wstring(beginning);
    return letters + L"%";
}

std::wstring PatternLiteral(std::wstring_view beginning, const Dialect& dialect) {
    return TextLiteral(PatternOf(beginning, dialect), dialect);
}

std::wstring DateLiteral(Moment moment, const Dialect& dialect) {
    using namespace std::chrono;
    constexpr sys_days kZero = 1899y / December / 30;
    constexpr long kSecondsOfADay = 86400;
    // Before the first day the part of the day counts on from the day, too.
    double day = std::trunc(moment.days);
    long second = std::lround(std::fabs(moment.days - day) * kSecondsOfADay);
    if (second == kSecondsOfADay) {
        second = 0;
        ++day;
    }
    std::wstring text = DayText(year_month_day(kZero + days(static_cast<int>(day))), dialect.days);
    if (second != 0)
        text += L" " + Digits(second / 3600, 2) + L":" + Digits(second / 60 % 60, 2) + L":" +
                Digits(second % 60, 2);
    const std::wstring mark(1, dialect.dateMark);
    return std::wstring(second == 0 ? dialect.beforeDay : dialect.beforeMoment) + mark + text +
           mark;
}

} // namespace vndesk
