// SPDX-License-Identifier: MIT
#include "find/text/dialect_value.h"

#include "data/text/date_text.h"
#include "data/text/number_text.h"
#include "find/text/format_value.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

std::wstring NumberOrText(std::wstring_view value, const Dialect& dialect) {
    // As it was typed: a double has fewer digits than some columns.
    if (ParseNumber(value))
        return std::wstring(TrimBlanks(value));
    if (EqualsIgnoringCase(value, L"true"))
        return std::wstring(dialect.yes);
    if (EqualsIgnoringCase(value, L"false"))
        return std::wstring(dialect.no);
    return TextLiteral(value, dialect);
}

std::wstring DateOrText(std::wstring_view value, const Dialect& dialect) {
    const std::optional<Moment> date = ReadDate(value);
    return date ? DateLiteral(*date, dialect) : TextLiteral(value, dialect);
}

std::wstring WriteOne(std::wstring_view value, ValueForm form, const Dialect& dialect) {
    switch (form) {
    case ValueForm::Number:
        return NumberOrText(value, dialect);
    case ValueForm::Date:
        return DateOrText(value, dialect);
    default:
        return TextLiteral(value, dialect);
    }
}

std::wstring WriteItems(std::wstring_view list, ValueForm form, const Dialect& dialect) {
    std::wstring items;
    for (;;) {
        const std::size_t comma = list.find(L',');
        items += WriteOne(list.substr(0, comma), form, dialect);
        if (comma == std::wstring_view::npos)
            return items;
        items += L',';
        list.remove_prefix(comma + 1);
    }
}

} // namespace

std::wstring WriteValue(std::wstring_view value, long typeCode, std::wstring_view op,
                        const Dialect& dialect) {
    const ValueForm form = FormOfType(typeCode);
    if (form == ValueForm::None)
        return {};
    if (op == L"IN")
        return L"(" + WriteItems(value, form, dialect) + L")";
    if (form == ValueForm::Text && op == L"LIKE")
        return PatternLiteral(value, dialect);
    // A list needs IN: with another operator it is no valid statement, as in 1.0.
    if (form == ValueForm::Number && IsNumericEntry(value))
        return WriteItems(value, form, dialect);
    return WriteOne(value, form, dialect);
}

} // namespace vndesk
