// SPDX-License-Identifier: MIT
// Cuts a statement into tokens, so that rewriting never touches what stands between quotes.
#pragma once

#include <string_view>
#include <vector>

namespace vndesk {

enum class TokenKind {
    Space,        // blanks, line ends and comments
    Word,         // names, keywords, numbers
    Text,         // '...'
    NationalText, // N'...'
    Quoted,       // "..." or `...`
    Bracketed,    // [...]
    Date,         // #...#, looking like a date or time
    Symbol,       // one character of anything else
    Unclosed      // from a quote that is never closed to the end
};

struct Token {
    TokenKind kind;
    std::wstring_view text;
};

// Whether a name, a keyword or a number may hold the character.
bool IsWordPart(wchar_t ch);

// The texts of all tokens joined give the statement again.
std::vector<Token> ReadTokens(std::wstring_view statement);

} // namespace vndesk
