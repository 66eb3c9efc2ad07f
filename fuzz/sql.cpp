// SPDX-License-Identifier: MIT
// A statement. Its tokens joined are the statement again, and each keeps its meaning for the engine
// whatever stands beside it.
#include "support/input.h"

#include <algorithm>

#include "ado/text/dialect.h"
#include "ado/text/parameter_markers.h"
#include "text/sql_lexer.h"

namespace vndesk::fuzz {

namespace {

struct Piece {
    TokenKind kind;
    std::wstring text;
    bool operator==(const Piece&) const = default;
};
using Pieces = std::vector<Piece>;

Pieces WithoutSpace(std::wstring_view statement) {
    Pieces pieces;
    for (const auto& [kind, text] : ReadTokens(statement))
        if (kind != TokenKind::Space)
            pieces.push_back({kind, std::wstring(text)});
    return pieces;
}

// A token translated by itself, between brackets that keep it from being a table's name.
Pieces Alone(const Token& token, const ado::Dialect& dialect) {
    if (token.kind == TokenKind::Unclosed)
        return {{token.kind, std::wstring(token.text)}};
    Pieces pieces =
        WithoutSpace(TranslateStatement(L"( " + std::wstring(token.text) + L" )", dialect));
    MUST(pieces.size() >= 3 && pieces.front().text == L"(" && pieces.back().text == L")");
    return {pieces.begin() + 1, pieces.end() - 1};
}

void CheckTranslation(const std::wstring& statement, const ado::Dialect& dialect) {
    const std::wstring translated = TranslateStatement(statement, dialect);
    MUST(translated.size() <= 9 * statement.size() + 32);
    Pieces wanted;
    for (const Token& token : ReadTokens(statement))
        if (token.kind != TokenKind::Space)
            for (Piece& piece : Alone(token, dialect))
                wanted.push_back(std::move(piece));
    // A table's name alone becomes a statement on it.
    if (translated.starts_with(L"SELECT * FROM ") && !statement.starts_with(L"SELECT"))
        return;
    MUST(WithoutSpace(translated) == wanted);
}

} // namespace

// What is left for a driver that looks for markers itself says the same.
void CheckMarkers(const std::wstring& statement) {
    Pieces wanted;
    for (const Piece& piece : WithoutSpace(statement))
        wanted.push_back(piece.kind == TokenKind::Bracketed || piece.text.front() == L'`'
                             ? Piece{TokenKind::Quoted, L""}
                             : piece);
    Pieces left;
    const std::wstring bare = ado::BareMarkers(statement);
    for (const auto& [kind, text] : ReadTokens(bare)) {
        MUST(kind != TokenKind::Space || (text.front() != L'-' && text.front() != L'/'));
        if (kind == TokenKind::Space)
            continue;
        left.push_back({kind, std::wstring(text)});
    }
    MUST(left.size() == wanted.size());
    for (std::size_t i = 0; i < left.size(); ++i)
        MUST(wanted[i].text.empty() || left[i] == wanted[i]);
}

void RunOne(Input& input) {
    const std::wstring statement = input.RestText();
    std::wstring joined;
    for (const auto& [kind, text] : ReadTokens(statement)) {
        MUST(!text.empty());
        joined += text;
    }
    MUST(joined == statement);
    CheckMarkers(statement);
    for (const wchar_t* engine :
         {L"SQLite", L"PostgreSQL", L"Microsoft SQL Server", L"ACCESS", L"MariaDB"}) {
        const ado::Dialect dialect = ado::DialectOf(engine, L'`');
        CheckTranslation(statement, dialect);
        MUST(TableStatement(statement, dialect).starts_with(L"SELECT * FROM "));
    }
}

} // namespace vndesk::fuzz
