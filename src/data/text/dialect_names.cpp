// SPDX-License-Identifier: MIT
#include "data/text/dialect_names.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "data/text/reserved_words.h"
#include "text/ascii_text.h"
#include "text/sql_lexer.h"

namespace vndesk {

namespace {

// The words of the library's statements that are no names.
constexpr std::wstring_view kKeywords[] = {
    L"select", L"from",  L"where",  L"and",    L"or",   L"not",    L"in",   L"is",     L"null",
    L"like",   L"order", L"by",     L"as",     L"case", L"when",   L"then", L"else",   L"end",
    L"insert", L"into",  L"values", L"update", L"set",  L"delete", L"iif",  L"escape",
};

// Names that the statements of 1.0 spell in more than one way.
constexpr std::wstring_view kSpellings[] = {L"User", L"Code"};

// Words of expressions: a name with blanks has none of them.
constexpr std::wstring_view kExpressionWords[] = {
    L"and", L"or", L"not", L"is", L"in", L"like", L"between", L"case", L"collate", L"at", L"as",
};

template <class Words> bool IsOneOf(std::wstring_view word, const Words& words) {
    return std::any_of(std::begin(words), std::end(words),
                       [word](std::wstring_view known) { return EqualsIgnoringCase(word, known); });
}

std::wstring InQuotes(std::wstring_view name, const Dialect& dialect) {
    return QuotedName(FoldedName(name, dialect.names), dialect.names);
}

std::wstring OwnName(std::wstring_view name, const Dialect& dialect) {
    for (const std::wstring_view spelling : kSpellings)
        if (EqualsIgnoringCase(name, spelling))
            name = spelling;
    return InQuotes(name, dialect);
}

bool IsNumber(std::wstring_view word) {
    return std::all_of(word.begin(), word.end(), IsAsciiDigit);
}

bool NeedsQuotes(std::wstring_view word) {
    return !IsNumber(word) && (IsAsciiDigit(word.front()) || IsReservedWord(word));
}

// A name of words with blanks between them.
bool IsNameWithBlanks(const std::vector<Token>& tokens) {
    return tokens.size() > 1 && std::all_of(tokens.begin(), tokens.end(), [](const Token& token) {
               return (token.kind == TokenKind::Space && token.text.front() != L'-' &&
                       token.text.front() != L'/') ||
                      (token.kind == TokenKind::Word && !IsOneOf(token.text, kExpressionWords));
           });
}

// Names joined by dots, nothing else.
bool IsPath(const std::vector<Token>& tokens) {
    bool expectsName = true;
    for (const Token& token : tokens) {
        const bool name = token.kind == TokenKind::Word || token.kind == TokenKind::Bracketed ||
                          token.kind == TokenKind::Quoted;
        if (expectsName ? !name : token.text != L".")
            return false;
        expectsName = !expectsName;
    }
    return !expectsName;
}

// Brackets behind a value are the place in an array.
bool IsPlaceInArray(const std::vector<Token>& tokens, std::size_t at) {
    if (at == 0)
        return false;
    const Token& before = tokens[at - 1];
    return before.kind == TokenKind::Word || before.kind == TokenKind::Quoted ||
           before.kind == TokenKind::Bracketed || before.text == L")";
}

} // namespace

std::wstring OwnText(std::wstring_view text, const Dialect& dialect) {
    std::wstring result;
    for (const auto& [kind, token] : ReadTokens(text)) {
        if (kind == TokenKind::Bracketed)
            result += OwnName(NameInside(token), dialect);
        else if (kind == TokenKind::Word && !IsNumber(token) && !IsOneOf(token, kKeywords))
            result += OwnName(token, dialect);
        else
            result += token;
    }
    return result;
}

std::wstring CatalogueName(std::wstring_view name, const Dialect& dialect) {
    const std::wstring_view trimmed = TrimBlanks(name);
    const std::vector<Token> tokens = ReadTokens(trimmed);
    if (IsNameWithBlanks(tokens))
        return InQuotes(trimmed, dialect);
    const bool path = IsPath(tokens);
    std::wstring result;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const auto& [kind, text] = tokens[i];
        if (kind == TokenKind::Bracketed && !IsPlaceInArray(tokens, i))
            result += InQuotes(NameInside(text), dialect);
        else if (kind == TokenKind::Word && path && NeedsQuotes(text))
            result += InQuotes(text, dialect);
        else
            result += text;
    }
    return result;
}

std::wstring ReportedName(std::wstring_view name, const Dialect& dialect) {
    return QuotedName(name, dialect.names);
}

} // namespace vndesk
