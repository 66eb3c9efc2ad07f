// SPDX-License-Identifier: MIT
// Patterns of LIKE that are bound, so that what a user typed is found as it stands.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/text/engine.h"

namespace vndesk {

struct Pattern {
    std::wstring text;
    std::wstring_view clause;         // stands behind the `?`; empty where the engine needs none
    std::wstring_view like = L"Like"; // the engine's word before it
};

// For texts that begin so. Wildcards of the engine are letters in it.
Pattern BeginningWith(std::wstring_view typed, Engine engine);

// For all texts in which a search finds what was typed, whatever accents, letter case, blanks and
// places of the tone it lets pass, and for others: an engine knows less of letters than the search
// does. A typed letter that Vietnamese writes with marks is any character, the others are
// themselves, so that an index on the first one still serves. At the beginning of a text, or
// anywhere.
Pattern FindingNames(std::wstring_view typed, Engine engine, bool anywhere);

// Puts a condition on the column that ends the statement: the pattern, or the beginning where there
// is none.
void AppendLike(StatementWriter& statement, const std::optional<Pattern>& found,
                std::wstring_view typed);

} // namespace vndesk
