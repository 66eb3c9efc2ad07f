// SPDX-License-Identifier: MIT
// Texts that no user would enter, but that a database may hold, and how each engine is given them.
#pragma once

#include <string>

namespace vndesk::test {

struct BadText {
    const char* name;
    std::wstring text;
    bool endsLiteral = false; // an apostrophe: the statements take names as they are
};

constexpr size_t kLongText = 32768;

inline const BadText kBadTexts[] = {
    {"Empty", L""},
    {"Blanks", L"   "},
    {"Controls", L"a\x01\x02\tb\x1B\x7F z"},
    {"Lines", L"a\r\nb\nc"},
    {"RightToLeft", L"\u202Eשלום עולם\u202C ab"},
    {"SurrogatePairs", L"\U0001F600 \U0001D4B3 \U0001F468\u200D\U0001F469"},
    {"Combining", L"e\u0302\u0301 \uFEFF \uFFFD \u200B"},
    {"Tcvn3", L"NguyÔn V¨n \u00ADíc \u00B5\u00B6"},
    {"Quotes", L"\"x\" `y` [z] ; -- /* % _ \\ {d} ? & && %s"},
    {"Apostrophe", L"O'Brien", true},
    {"Long", std::wstring(kLongText - 1, L'ắ') + L"z"},
};

// An expression whose value is the text, for the engine behind the database. Characters that the
// drivers change in a statement go by their numbers.
inline std::wstring SqlText(const std::wstring& text, bool server) {
    std::wstring expression = L"''";
    bool open = false;
    const auto close = [&] {
        expression += open ? L"'" : L"";
        open = false;
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        const bool pair = (c & 0xFC00) == 0xD800 && i + 1 < text.size();
        if (c >= L' ' && c != 0x7F && c != L'\\' && c != L'{' && c != L'?' && !pair) {
            if (!open)
                expression += L"||'";
            open = true;
            expression.append(c == L'\'' ? 2 : 1, c);
            continue;
        }
        close();
        unsigned number = c;
        if (pair)
            number = 0x10000 + ((c & 0x3FFu) << 10) + (text[++i] & 0x3FFu);
        expression += (server ? L"||chr(" : L"||char(") + std::to_wstring(number) + L")";
    }
    close();
    return expression;
}

} // namespace vndesk::test
