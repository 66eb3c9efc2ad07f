// SPDX-License-Identifier: MIT
// Quoting and escaping of values in statement text.
#include "data/literals.h"

#include "data/date_text.h"
#include "data/number_text.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

// What a literal kind puts around the escaped text, besides the Unicode prefix.
struct TextKind {
    std::wstring_view kind;
    std::wstring_view open;
    std::wstring_view close;
};

// LL and LA are the same on purpose: hosts use both names.
constexpr TextKind kTextKinds[] = {
    {L"", L"'", L"'"},     {L"S", L"'", L"'"},    {L"LR", L"'", L"%'"},
    {L"LL", L"'%", L"%'"}, {L"LA", L"'%", L"%'"},
};

std::wstring Enclose(std::wstring_view open, std::wstring_view text, std::wstring_view close) {
    std::wstring result;
    result.reserve(open.size() + text.size() + close.size());
    return result.append(open).append(text).append(close);
}

std::wstring TextLiteral(std::wstring_view open, std::wstring_view value, std::wstring_view close,
                         DatabaseKind dbKind) {
    return std::wstring(UnicodePrefix(dbKind)) + Enclose(open, DoubleQuotes(value), close);
}

} // namespace

std::wstring_view UnicodePrefix(DatabaseKind dbKind) {
    return dbKind == DatabaseKind::SqlServer ? L"N" : L"";
}

std::wstring SqlQuote(std::wstring_view text, DatabaseKind dbKind) {
    return std::wstring(UnicodePrefix(dbKind)) + Enclose(L"'", text, L"'");
}

std::wstring DoubleQuotes(std::wstring_view text) {
    return ReplaceEach(ReplaceEach(text, L'\'', L"''"), L'"', L"\"\"");
}

std::wstring Literal(std::wstring_view value, std::wstring_view literalKind, DatabaseKind dbKind) {
    if (EqualsIgnoringCase(literalKind, L"N"))
        return DoubleToText(ParseNumber(value).value_or(0));
    if (EqualsIgnoringCase(literalKind, L"D")) {
        const std::wstring_view mark = dbKind == DatabaseKind::SqlServer ? L"'" : L"#";
        return Enclose(mark, value, mark);
    }
    for (const TextKind& textKind : kTextKinds)
        if (EqualsIgnoringCase(literalKind, textKind.kind))
            return TextLiteral(textKind.open, value, textKind.close, dbKind);
    return {};
}

std::wstring FieldValue(std::wstring_view value, long code, DatabaseKind dbKind) {
    if (code == kFieldNumber && ParseNumber(value))
        return std::wstring(value);
    if (code == kFieldDate && IsDate(value))
        return Enclose(L"#", value, L"#");
    // Hosts' databases hold texts with this trailing blank; new rows must look the same.
    if (code == kFieldText)
        return TextLiteral(L"'", value, L" '", dbKind);
    return L"1";
}

} // namespace vndesk
