// SPDX-License-Identifier: MIT
// A kind, then a text. Whatever the text, its literal is one literal and holds the text.
#include "support/input.h"
#include "support/sql_text.h"

#include <algorithm>

#include "data/text/date_text.h"
#include "data/text/literals.h"
#include "data/text/number_text.h"

namespace vndesk::fuzz {

namespace {

void CheckLiteral(std::wstring_view literal, const std::wstring& wanted, DatabaseKind kind) {
    const auto value = ReadLiteral(literal);
    MUST(value && *value == wanted);
    MUST((literal.front() == L'N') == (kind == DatabaseKind::SqlServer));
    MUST(ReadTokens(literal).size() == 1 && LiteralsOf(literal));
}

void CheckNumber(std::wstring_view literal) {
    MUST(literal.find_first_not_of(L"0123456789.-+E") == std::wstring_view::npos);
    MUST(!literal.empty() && literal.find(L'.') != literal.size() - 1);
}

} // namespace

void RunOne(Input& input) {
    const std::wstring anyKind = input.Text();
    const std::wstring text = input.RestText();
    const std::wstring stored = Stored(text);
    for (const DatabaseKind kind : {DatabaseKind::Jet, DatabaseKind::SqlServer}) {
        CheckLiteral(Literal(text, L"S", kind), stored, kind);
        CheckLiteral(Literal(text, L"", kind), stored, kind);
        CheckLiteral(Literal(text, L"lr", kind), stored + L"%", kind);
        CheckLiteral(Literal(text, L"LL", kind), L"%" + stored + L"%", kind);
        CheckLiteral(Literal(text, L"La", kind), L"%" + stored + L"%", kind);
        CheckLiteral(FieldValue(text, kFieldText, kind), stored + L" ", kind);
        CheckNumber(Literal(text, L"N", kind));
        MUST(Literal(text, L"D", kind).size() == text.size() + 2);
        MUST(Literal(text, anyKind, kind).size() <= std::max<std::size_t>(2 * text.size() + 5, 24));
        MUST(SqlQuote(text, kind) == std::wstring(UnicodePrefix(kind)) + L"'" + text + L"'");

        const std::wstring number = FieldValue(text, kFieldNumber, kind);
        MUST(number == (ParseNumber(text) ? text : L"1"));
        const std::wstring date = FieldValue(text, kFieldDate, kind);
        MUST(date == (IsDate(text) ? L"#" + text + L"#" : L"1"));
    }
    const std::wstring doubled = DoubleQuotes(text);
    for (const wchar_t quote : {L'\'', L'"'})
        MUST(std::count(doubled.begin(), doubled.end(), quote) ==
             2 * std::count(text.begin(), text.end(), quote));
}

} // namespace vndesk::fuzz
