// SPDX-License-Identifier: MIT
// Names in statements, between the quotes of an engine.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

struct NameQuotes {
    wchar_t open = L'[', close = L']';
    bool fold = false; // to lower case, as the engine does with bare names
};

// What stands between the quotes of a token.
std::wstring NameInside(std::wstring_view quoted);

// Between quotes, as it stands.
std::wstring QuotedName(std::wstring_view name, NameQuotes quotes = {});

// The name that the engine would find for it without quotes.
std::wstring FoldedName(std::wstring_view name, NameQuotes quotes);

} // namespace vndesk
