// SPDX-License-Identifier: MIT
#include "text/sql_name.h"

#include <algorithm>

namespace vndesk {

namespace {

// Letters outside ASCII keep their case in bare names, too.
wchar_t ToLowerAscii(wchar_t ch) {
    return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch - L'A' + L'a') : ch;
}

} // namespace

std::wstring NameInside(std::wstring_view quoted) {
    const wchar_t close = quoted.back();
    std::wstring name;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        if (quoted[i] == close)
            ++i; // only doubled ones stand inside
        name += quoted[i];
    }
    return name;
}

std::wstring QuotedName(std::wstring_view name, NameQuotes quotes) {
    std::wstring quoted(1, quotes.open);
    for (const wchar_t ch : name) {
        quoted += ch;
        if (ch == quotes.close)
            quoted += ch;
    }
    return quoted + quotes.close;
}

std::wstring FoldedName(std::wstring_view name, NameQuotes quotes) {
    std::wstring folded(name);
    if (quotes.fold)
        std::transform(folded.begin(), folded.end(), folded.begin(), ToLowerAscii);
    return folded;
}

} // namespace vndesk
