// SPDX-License-Identifier: MIT
#include "data/text/statement.h"

#include <algorithm>

#include "data/text/number_text.h"
#include "text/ascii_text.h"

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

StatementWriter& StatementWriter::operator<<(std::wstring_view text) {
    statement_.text += text;
    return *this;
}

StatementWriter& StatementWriter::operator<<(const Quoted& value) {
    return Write(SqlQuote(value.text, style_.kind), std::wstring(value.text));
}

StatementWriter& StatementWriter::operator<<(const QuotedBare& value) {
    return Write(SqlQuote(value.text, DatabaseKind::Jet), std::wstring(value.text));
}

StatementWriter& StatementWriter::operator<<(const Escaped& value) {
    return Write(Literal(value.text, L"S", style_.kind), std::wstring(value.text));
}

StatementWriter& StatementWriter::operator<<(const Beginning& value) {
    return Write(Literal(value.text, L"LR", style_.kind), std::wstring(value.text) + L"%");
}

StatementWriter& StatementWriter::operator<<(const Numbers& values) {
    if (!style_.bound)
        return *this << values.list;
    for (std::wstring_view rest = values.list; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(L','), rest.size());
        *this << static_cast<long>(ParseNumber(rest.substr(0, comma)).value_or(0));
        rest.remove_prefix(comma);
        if (!rest.empty()) {
            *this << L",";
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

std::wstring Bracketed(std::wstring_view name) {
    return L"[" + ReplaceEach(name, L']', L"]]") + L"]";
}

bool MayMeanMore(ValueStyle style, std::initializer_list<std::wstring_view> asTyped,
                 std::wstring_view doubled) {
    return !style.bound && MayMeanMore(asTyped, doubled);
}

bool EndsLiteral(ValueStyle style, std::wstring_view text) {
    return !style.bound && EndsLiteral(text);
}

} // namespace vndesk
