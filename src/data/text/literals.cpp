// SPDX-License-Identifier: MIT
// Quoting and escaping of values in statement text.
#include "data/text/literals.h"

#include "data/text/date_text.h"
#include "data/text/number_text.h"
#include "text/ascii_text.h"

#include <algorithm>

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

// What may keep an engine from counting an apostrophe, or end the statement before it: other
// quotes, comments, the end of a statement, escapes, and the zero that cuts a text.
bool HidesApostrophes(std::wstring_view text) {
    using namespace std::string_view_literals;
    return text.find_first_of(L"\"`[]$\\{}?#;-/\0"sv) != std::wstring_view::npos;
}

} // namespace

std::wstring_view UnicodePrefix(DatabaseKind dbKind) {
    return dbKind == DatabaseKind::SqlServer ? L"N" : L"";
}

std::wstring SqlQuote(std::wstring_view text, DatabaseKind dbKind) {
    return std::wstring(UnicodePrefix(dbKind)) + Enclose(L"'", text, L"'");
}

bool EndsLiteral(std::wstring_view text) {
    return text.find(L'\'') != std::wstring_view::npos;
}

bool MayMeanMore(std::initializer_list<std::wstring_view> asTyped, std::wstring_view doubled) {
    long ended = 0;
    bool leavesOpen = false;
    bool hides = HidesApostrophes(doubled);
    for (const std::wstring_view text : asTyped) {
        hides = hides || HidesApostrophes(text);
        if (!EndsLiteral(text))
            continue;
        ++ended;
        leavesOpen = std::count(text.begin(), text.end(), L'\'') % 2 != 0;
    }
    return ended > 1 || (ended == 1 && (hides || !leavesOpen));
}

std::wstring WithoutPairs(std::wstring_view text) {
    std::wstring rest(text);
    if (rest.find(L'\\') != std::wstring::npos)
        return rest;
    for (size_t at = 0; (at = rest.find(L"''", at)) != std::wstring::npos;)
        rest.erase(at, 2);
    return rest;
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
