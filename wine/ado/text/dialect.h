// SPDX-License-Identifier: MIT
// Statements arrive in the language of Jet or SQL Server; this rewrites what the engine at hand
// spells otherwise.
#pragma once

#include <string>
#include <string_view>

namespace vndesk::ado {

enum class DateStyle {
    Native, // #...# is left to the engine
    Text,   // '2020-12-31'
    Typed,  // DATE '2020-12-31'
    Escape  // {d '2020-12-31'}
};

struct Dialect {
    wchar_t openName; // what replaces the brackets around names; 0 keeps them
    wchar_t closeName;
    bool foldNames;    // bracketed names become lower case, as the engine does with bare ones
    bool nationalText; // the engine knows N'...'
    DateStyle dates;
};

// By the name that the driver gives its engine; `quote` is the engine's quote for names.
Dialect DialectOf(std::wstring_view engine, wchar_t quote);

// A statement that is nothing but a name opens that table.
std::wstring TranslateStatement(std::wstring_view statement, const Dialect& dialect);

// The statement that opens a table by its name, which may hold blanks.
std::wstring TableStatement(std::wstring_view table, const Dialect& dialect);

} // namespace vndesk::ado
