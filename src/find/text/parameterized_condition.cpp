// SPDX-License-Identifier: MIT
#include "find/text/parameterized_condition.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>

#include "data/text/date_text.h"
#include "data/text/number_text.h"
#include "data/text/pattern.h"
#include "find/text/format_value.h"
#include "find/text/joined.h"
#include "text/ascii_text.h"
#include "text/capitals.h"

namespace vndesk {

namespace {

BoundValue TextValue(std::wstring_view text) {
    return std::optional<std::wstring>(text);
}

// A flag takes any text.
BoundValue NumberValue(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::optional<double> number = ParseNumber(text);
    if (!number)
        return TextValue(text);
    if (*number == std::trunc(*number) && *number >= Limits::min() && *number <= Limits::max())
        return std::optional(static_cast<long>(*number));
    return number;
}

BoundValue DateValue(std::wstring_view text) {
    const std::optional<Moment> moment = ReadDate(text);
    if (!moment)
        return TextValue(text);
    if (moment->days == std::trunc(moment->days))
        return std::optional(Day{moment->days});
    return moment;
}

BoundValue ValueOf(std::wstring_view text, ValueForm form) {
    switch (form) {
    case ValueForm::Number:
        return NumberValue(text);
    case ValueForm::Date:
        return DateValue(text);
    default:
        return TextValue(text);
    }
}

// One `?` for each item between commas.
void WriteItems(StatementWriter& line, std::wstring_view list, ValueForm form) {
    for (;;) {
        const std::size_t comma = list.find(L',');
        line << Bind{ValueOf(list.substr(0, comma), form)};
        if (comma == std::wstring_view::npos)
            return;
        line << L",";
        list.remove_prefix(comma + 1);
    }
}

void WriteValue(StatementWriter& line, std::wstring_view value, long type, std::wstring_view op,
                Engine engine) {
    const ValueForm form = FormOfType(type);
    if (form == ValueForm::None)
        return;
    if (op == L"IN") {
        line << L"(";
        WriteItems(line, value, form);
        line << L")";
    } else if (form == ValueForm::Text && op == L"LIKE") {
        Pattern pattern = BeginningWith(value, engine);
        line << Bind{std::optional(std::move(pattern.text))} << pattern.clause;
    } else if (form == ValueForm::Number && IsNumericEntry(value)) {
        // A list needs IN: with another operator it is no valid statement, here as in GetRes.
        WriteItems(line, value, form);
    } else {
        line << Bind{ValueOf(value, form)};
    }
}

Statement LineOf(const ConditionLine& line, Engine engine, const Dialect* dialect) {
    const std::wstring op = InCapitals(line.operatorName);
    StatementWriter written({DatabaseKind::SqlServer, true, dialect});
    written << L"(" << Catalogued{line.fieldName} << L"  " << AsGiven{op} << L"  ";
    WriteValue(written, TrimBlanks(line.value), line.fieldType, op, engine);
    written << L")";
    return written;
}

} // namespace

Statement GetParameterized(const ConditionLines& lines, Engine engine, const Dialect* dialect) {
    Statement condition;
    condition.text =
        Joined(lines, &ConditionLine::joinName, L"And", [&](const ConditionLine& line) {
            Statement written = LineOf(line, engine, dialect);
            std::move(written.values.begin(), written.values.end(),
                      std::back_inserter(condition.values));
            return GetBrackets(written.text);
        });
    return condition;
}

} // namespace vndesk
