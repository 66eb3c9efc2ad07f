// SPDX-License-Identifier: MIT
// Literals read as an engine reads them, written apart from the library's own code.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/sql_lexer.h"

namespace vndesk::fuzz {

// The value of a text literal, with or without N; nothing when it is not exactly one.
inline std::optional<std::wstring> ReadLiteral(std::wstring_view literal) {
    if (!literal.empty() && literal.front() == L'N')
        literal.remove_prefix(1);
    if (literal.size() < 2 || literal.front() != L'\'' || literal.back() != L'\'')
        return std::nullopt;
    literal = literal.substr(1, literal.size() - 2);
    std::wstring value;
    for (std::size_t i = 0; i < literal.size(); ++i) {
        if (literal[i] == L'\'' && (++i == literal.size() || literal[i] != L'\''))
            return std::nullopt;
        value.push_back(literal[i]);
    }
    return value;
}

// What the library stores for a text: its double quotes are doubled, its apostrophes are not.
inline std::wstring Stored(std::wstring_view text) {
    std::wstring stored;
    for (const wchar_t ch : text)
        stored.append(ch == L'"' ? 2 : 1, ch);
    return stored;
}

// The values of a statement's text literals; nothing when a quote is left open.
inline std::optional<std::vector<std::wstring>> LiteralsOf(std::wstring_view statement) {
    std::vector<std::wstring> values;
    for (const auto& [kind, text] : ReadTokens(statement)) {
        if (kind == TokenKind::Unclosed)
            return std::nullopt;
        if (kind != TokenKind::Text && kind != TokenKind::NationalText)
            continue;
        const auto value = ReadLiteral(text);
        if (!value)
            return std::nullopt;
        values.push_back(*value);
    }
    return values;
}

} // namespace vndesk::fuzz
