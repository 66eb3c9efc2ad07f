// SPDX-License-Identifier: MIT
#include "ado/text/dialect.h"

#include <cstddef>
#include <optional>
#include <vector>

#include "ado/text/date_value.h"
#include "text/ascii_text.h"
#include "text/sql_lexer.h"
#include "text/sql_name.h"

namespace vndesk::ado {

namespace {

constexpr Dialect kSqlite = {0, 0, false, false, DateStyle::Text};
constexpr Dialect kPostgres = {L'"', L'"', true, false, DateStyle::Typed};
constexpr Dialect kSqlServer = {0, 0, false, true, DateStyle::Text};
constexpr Dialect kJet = {0, 0, false, false, DateStyle::Native};

// Statements of one word; any other lone word names a table.
constexpr std::wstring_view kLoneStatements[] = {L"BEGIN",  L"COMMIT",    L"ROLLBACK", L"END",
                                                 L"ABORT",  L"VACUUM",    L"ANALYZE",  L"REINDEX",
                                                 L"SELECT", L"CHECKPOINT"};

bool IsLoneStatement(std::wstring_view word) {
    for (const std::wstring_view known : kLoneStatements)
        if (EqualsIgnoringCase(word, known))
            return true;
    return false;
}

// A bracketed name between the engine's own quotes.
std::wstring TranslateName(std::wstring_view bracketed, const Dialect& dialect) {
    const NameQuotes quotes = {dialect.openName, dialect.closeName, dialect.foldNames};
    return QuotedName(FoldedName(NameInside(bracketed), quotes), quotes);
}

std::optional<std::wstring> TranslateDate(std::wstring_view literal, DateStyle style) {
    const std::optional<DateValue> date = ParseDateLiteral(literal.substr(1, literal.size() - 2));
    if (!date || style == DateStyle::Native)
        return std::nullopt;
    const std::wstring text = L"'" + IsoText(*date) + L"'";
    const bool timeOnly = date->year == 0;
    switch (style) {
    case DateStyle::Typed:
        return (timeOnly ? L"TIME " : date->hasTime ? L"TIMESTAMP " : L"DATE ") + text;
    case DateStyle::Escape:
        return (timeOnly ? L"{t " : date->hasTime ? L"{ts " : L"{d ") + text + L"}";
    default:
        return text;
    }
}

// The token as the engine spells it; nothing when that is how it is written.
std::optional<std::wstring> Translate(const Token& token, const Dialect& dialect) {
    switch (token.kind) {
    case TokenKind::Bracketed:
        return dialect.openName ? std::optional(TranslateName(token.text, dialect)) : std::nullopt;
    case TokenKind::NationalText:
        return dialect.nationalText ? std::nullopt
                                    : std::optional(std::wstring(token.text.substr(1)));
    case TokenKind::Date:
        return TranslateDate(token.text, dialect.dates);
    case TokenKind::Unclosed: // the engine reports what is wrong
    default:
        return std::nullopt;
    }
}

// Whether texts that end and begin so are read as one: 'a''b', "a""b", andDATE, x'2020'.
bool RunTogether(wchar_t last, wchar_t first) {
    const bool quote = first == L'\'' || first == L'"' || first == L'`';
    return (quote && last == first) || (IsWordPart(last) && (IsWordPart(first) || first == L'\''));
}

// What was rewritten is kept apart from its neighbours: [a][b] are two names in any quotes.
std::wstring Join(const std::vector<Token>& tokens, const Dialect& dialect) {
    std::wstring statement;
    bool lastRewritten = false;
    for (const Token& token : tokens) {
        const std::optional<std::wstring> rewritten = Translate(token, dialect);
        const std::wstring_view text = rewritten ? std::wstring_view(*rewritten) : token.text;
        if ((rewritten || lastRewritten) && !statement.empty() &&
            RunTogether(statement.back(), text.front()))
            statement += L' ';
        statement += text;
        lastRewritten = rewritten.has_value();
    }
    return statement;
}

// The table when the tokens are a name and nothing else: parts joined by dots, perhaps a semicolon.
std::optional<std::wstring> LoneTable(const std::vector<Token>& tokens) {
    std::wstring table;
    bool expectsName = true;
    bool ended = false;
    for (const auto& [kind, text] : tokens) {
        if (kind == TokenKind::Space)
            continue;
        if (ended)
            return std::nullopt;
        if (expectsName) {
            const bool word = kind == TokenKind::Word && !IsAsciiDigit(text.front());
            if (!word && kind != TokenKind::Bracketed && kind != TokenKind::Quoted)
                return std::nullopt;
            if (word && IsLoneStatement(text))
                return std::nullopt;
            // Brackets let reserved words name a table.
            table += word ? QuotedName(text) : std::wstring(text);
            expectsName = false;
        } else if (text == L".") {
            table += text;
            expectsName = true;
        } else if (text == L";") {
            ended = true;
        } else {
            return std::nullopt;
        }
    }
    return expectsName ? std::nullopt : std::optional(table);
}

} // namespace

Dialect DialectOf(std::wstring_view engine, wchar_t quote) {
    const auto named = [engine](std::wstring_view part) {
        return FindIgnoringCase(engine, part) != std::wstring_view::npos;
    };
    if (named(L"sqlite"))
        return kSqlite;
    if (named(L"postgres"))
        return kPostgres;
    if (named(L"sql server"))
        return kSqlServer;
    if (named(L"access"))
        return kJet;
    if (quote == L' ' || quote == 0) // the driver has no quotes for names
        quote = L'"';
    return {quote, quote, false, false, DateStyle::Escape};
}

std::wstring TranslateStatement(std::wstring_view statement, const Dialect& dialect) {
    const std::vector<Token> tokens = ReadTokens(statement);
    if (const auto table = LoneTable(tokens))
        return L"SELECT * FROM " + Join(ReadTokens(*table), dialect);
    return Join(tokens, dialect);
}

std::wstring TableStatement(std::wstring_view table, const Dialect& dialect) {
    const std::wstring_view name = TrimBlanks(table);
    const auto lone = LoneTable(ReadTokens(name));
    return L"SELECT * FROM " + Join(ReadTokens(lone ? *lone : QuotedName(name)), dialect);
}

} // namespace vndesk::ado
