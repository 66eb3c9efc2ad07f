// SPDX-License-Identifier: MIT
#include "data/text/statement.h"

#include <algorithm>

#include "data/text/dialect.h"
#include "data/text/dialect_names.h"
#include "data/text/number_text.h"
#include "text/sql_name.h"

namespace vndesk {

StatementWriter& StatementWriter::Write(std::wstring literal, BoundValue value) {
    if (style_.bound) {
        statement_.text += L'?';
        statement_.values.push_back(std::move(value));
    } else {
        statement_.text += literal;
    }
    return *this;
}

StatementWriter& StatementWriter::WriteText(std::wstring_view text, std::wstring literal) {
    if (style_.dialect)
        literal = TextLiteral(text, *style_.dialect);
    return Write(std::move(literal), std::wstring(text));
}

StatementWriter& StatementWriter::operator<<(std::wstring_view text) {
    return *this << AsGiven{style_.dialect ? OwnText(text, *style_.dialect) : text};
}

StatementWriter& StatementWriter::operator<<(const AsGiven& text) {
    statement_.text += text.text;
    return *this;
}

StatementWriter& StatementWriter::operator<<(const Catalogued& given) {
    return *this << AsGiven{style_.dialect ? CatalogueName(given.name, *style_.dialect)
                                           : given.name};
}

StatementWriter& StatementWriter::operator<<(const Reported& column) {
    if (style_.dialect)
        return *this << AsGiven{ReportedName(column.name, *style_.dialect)};
    return *this << AsGiven{style_.bound ? Bracketed(column.name) : std::wstring(column.name)};
}

StatementWriter& StatementWriter::operator<<(const WholeTable& table) {
    if (style_.dialect)
        *this << L"Select * From ";
    return *this << table.name;
}

StatementWriter& StatementWriter::operator<<(const Quoted& value) {
    return WriteText(value.text, SqlQuote(value.text, style_.kind));
}

StatementWriter& StatementWriter::operator<<(const QuotedBare& value) {
    return WriteText(value.text, SqlQuote(value.text, DatabaseKind::Jet));
}

StatementWriter& StatementWriter::operator<<(const Escaped& value) {
    return WriteText(value.text, Literal(value.text, L"S", style_.kind));
}

// Bound, a text is stored as it was typed.
StatementWriter& StatementWriter::operator<<(const Trailed& value) {
    if (style_.dialect && !style_.bound)
        return *this << AsGiven{TextLiteral(std::wstring(value.text) + L" ", *style_.dialect)};
    return Write(FieldValue(value.text, kFieldText, style_.kind), std::wstring(value.text));
}

StatementWriter& StatementWriter::operator<<(const Beginning& value) {
    if (style_.dialect)
        return Write(PatternLiteral(value.text, *style_.dialect),
                     PatternOf(value.text, *style_.dialect));
    return Write(Literal(value.text, L"LR", style_.kind), std::wstring(value.text) + L"%");
}

StatementWriter& StatementWriter::operator<<(const Numbers& values) {
    if (!style_.bound)
        return *this << AsGiven{values.list};
    for (std::wstring_view rest = values.list; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(L','), rest.size());
        *this << static_cast<long>(ParseNumber(rest.substr(0, comma)).value_or(0));
        rest.remove_prefix(comma);
        if (!rest.empty()) {
            *this << AsGiven{L","};
            rest.remove_prefix(1);
        }
    }
    return *this;
}

StatementWriter& StatementWriter::operator<<(long value) {
    return Write(std::to_wstring(value), std::optional(value));
}

// A bound number is the one that the literal means: rows are written by hosts of both kinds.
StatementWriter& StatementWriter::operator<<(double value) {
    const std::wstring literal = DoubleToText(value);
    return Write(literal, ParseNumber(literal));
}

StatementWriter& StatementWriter::operator<<(const Bind& bound) {
    statement_.text += L'?';
    statement_.values.push_back(bound.value);
    return *this;
}

StatementWriter& StatementWriter::operator<<(const std::optional<Moment>& value) {
    return *this << Bind{value};
}

Statement OwnStatement(std::wstring_view text, ValueStyle style) {
    return StatementWriter(style) << text;
}

std::wstring Bracketed(std::wstring_view name) {
    return QuotedName(name);
}

bool MayMeanMore(ValueStyle style, std::initializer_list<std::wstring_view> asTyped,
                 std::wstring_view doubled) {
    return !style.KeepsTexts() && MayMeanMore(asTyped, doubled);
}

bool EndsLiteral(ValueStyle style, std::wstring_view text) {
    return !style.KeepsTexts() && EndsLiteral(text);
}

} // namespace vndesk
