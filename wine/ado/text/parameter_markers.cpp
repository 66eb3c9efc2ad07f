// SPDX-License-Identifier: MIT
#include "ado/text/parameter_markers.h"

#include <cstddef>

#include "text/sql_lexer.h"
#include "text/ascii_text.h"

namespace vndesk::ado {

namespace {

bool IsComment(const Token& token) {
    return token.kind == TokenKind::Space &&
           (token.text.front() == L'-' || token.text.front() == L'/');
}

// Other names keep their brackets: SQLite takes an unknown name in double quotes for a text.
bool IsMisreadName(const Token& token) {
    const bool name = token.kind == TokenKind::Bracketed ||
                      (token.kind == TokenKind::Quoted && token.text.front() == L'`');
    return name && token.text.substr(1, token.text.size() - 2).find_first_of(L"'\"?`{") !=
                       std::wstring_view::npos;
}

// Between blanks: a neighbour's quote would be read together with its own.
std::wstring InDoubleQuotes(std::wstring_view name) {
    const wchar_t closing = name.back();
    std::wstring quoted = L" \"";
    for (std::size_t i = 1; i + 1 < name.size(); ++i) {
        quoted += name[i];
        if (name[i] == L'"')
            quoted += L'"';
        if (name[i] == closing)
            ++i; // only doubled ones stand inside
    }
    return quoted + L"\" ";
}

} // namespace

std::wstring BareMarkers(std::wstring_view statement) {
    std::wstring bare;
    for (const Token& token : ReadTokens(statement)) {
        if (IsComment(token))
            bare += L' ';
        else if (IsMisreadName(token))
            bare += InDoubleQuotes(token.text);
        else
            bare += token.text;
    }
    return bare;
}

} // namespace vndesk::ado
