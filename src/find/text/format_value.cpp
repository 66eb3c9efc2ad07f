// SPDX-License-Identifier: MIT
// The value forms of the search conditions.
#include "find/text/format_value.h"

#include "data/text/date_text.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

std::wstring FormatText(std::wstring_view value, std::wstring_view op, DatabaseKind dbKind) {
    const std::wstring escaped = DoubleQuotes(value);
    if (op == L"IN")
        return L"('" + ReplaceEach(escaped, L',', L"','") + L"')";
    const std::wstring_view close = op == L"LIKE" ? L"%'" : L"'";
    std::wstring result(UnicodePrefix(dbKind));
    return result.append(L"'").append(escaped).append(close);
}

std::wstring LeftPad(std::wstring_view digits, std::size_t width) {
    return std::wstring(digits.size() < width ? width - digits.size() : 0, L'0').append(digits);
}

// Only a part of exactly one character gets its zero: a missing day or month stays missing.
std::wstring DayOrMonth(std::wstring_view part) {
    return part.size() == 1 ? LeftPad(part, 2) : std::wstring(part);
}

} // namespace

ValueForm FormOfType(long typeCode) {
    switch (typeCode) {
    case kFieldFlag:
    case kFieldNumber:
    case kFieldAmount:
        return ValueForm::Number;
    case kFieldDate:
        return ValueForm::Date;
    case kFieldText:
    case kFieldMemo:
        return ValueForm::Text;
    default:
        return ValueForm::None;
    }
}

std::wstring FormatValue(std::wstring_view value, long typeCode, std::wstring_view op,
                         DatabaseKind dbKind) {
    switch (FormOfType(typeCode)) {
    case ValueForm::Number:
        return op == L"IN" ? L"(" + std::wstring(value) + L")" : std::wstring(value);
    case ValueForm::Date:
        return L"#" + ToUSDate(value) + L"#";
    case ValueForm::Text:
        return FormatText(value, op, dbKind);
    case ValueForm::None:
        break;
    }
    return {};
}

long CountChar(std::wstring_view text, std::wstring_view searched) {
    long count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        at = text.find(searched, at);
        if (at == std::wstring_view::npos)
            break;
        ++count;
    }
    return count;
}

std::wstring ToUSDate(std::wstring_view text) {
    if (!IsDate(text))
        return {};
    constexpr auto kNone = std::wstring_view::npos;
    const std::size_t first = text.find(L'/');
    const std::size_t second = first == kNone ? kNone : text.find(L'/', first + 1);
    // A part whose "/" is missing is empty, and the year is what follows the last cut: entries
    // with other separators go through whole.
    std::wstring_view day, month, year = text;
    if (first != kNone)
        day = text.substr(0, first);
    if (second != kNone) {
        month = text.substr(first + 1, second - first - 1);
        year = text.substr(second + 1);
    }
    return DayOrMonth(TrimBlanks(month)) + L"/" + DayOrMonth(TrimBlanks(day)) + L"/" +
           LeftPad(TrimBlanks(year), 4);
}

} // namespace vndesk
