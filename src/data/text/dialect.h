// SPDX-License-Identifier: MIT
// The languages of the engines that a host may name: how each writes names, texts, dates and
// patterns. Where none is named, statements are those of 1.0 for the kind of the connection.
#pragma once

#include <string>
#include <string_view>

#include "data/text/engine.h"
#include "settings/settings.h"
#include "text/sql_name.h"

namespace vndesk {

enum class DayOrder { MonthFirst, Digits, YearFirst }; // 03/05/2021, 20210305, 2021-03-05

// Whether a backslash in a literal is more than itself: never; always; where the literal begins
// with E.
enum class Escapes { None, Always, InMarkedTexts };

struct Dialect {
    Engine engine;
    NameQuotes names = {};
    std::wstring_view textPrefix = L""; // of Unicode
    Escapes escapes = Escapes::None;
    // A backslash in a pattern makes a letter of the wildcard behind it.
    bool escapesPatterns = false;
    DayOrder days = DayOrder::YearFirst;
    std::wstring_view beforeDay = L"", beforeMoment = L""; // a day, a day with a time
    wchar_t dateMark = L'\'';                              // on both sides
    std::wstring_view yes = L"1", no = L"0";               // for flags
};

const Dialect& DialectOf(Engine engine);
// None for DialectChoice::Auto.
const Dialect* DialectOf(DialectChoice choice);

// Between the engine's apostrophes. Every character means itself.
std::wstring TextLiteral(std::wstring_view text, const Dialect& dialect);
// For texts that begin so, as a value. Typed wildcards are wildcards, as in 1.0.
std::wstring PatternOf(std::wstring_view beginning, const Dialect& dialect);
std::wstring PatternLiteral(std::wstring_view beginning, const Dialect& dialect);
std::wstring DateLiteral(Moment moment, const Dialect& dialect);

} // namespace vndesk
