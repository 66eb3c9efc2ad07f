// SPDX-License-Identifier: MIT
// Locale-free helpers for the ASCII part of a text: letter case, blanks, searching. Statements and
// kinds are plain ASCII keywords, so the user's language must not change how they compare.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vndesk {

constexpr wchar_t ToUpperAscii(wchar_t ch) {
    return ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - L'a' + L'A') : ch;
}

constexpr bool IsAsciiDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

// Drops leading and trailing U+0020 only, as the hosts' own Trim does.
constexpr std::wstring_view TrimBlanks(std::wstring_view text) {
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

constexpr bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right) {
    if (left.size() != right.size())
        return false;
    for (std::size_t i = 0; i < left.size(); ++i)
        if (ToUpperAscii(left[i]) != ToUpperAscii(right[i]))
            return false;
    return true;
}

// Position of the first match, or npos.
constexpr std::size_t FindIgnoringCase(std::wstring_view text, std::wstring_view searched) {
    for (std::size_t i = 0; i + searched.size() <= text.size(); ++i)
        if (EqualsIgnoringCase(text.substr(i, searched.size()), searched))
            return i;
    return std::wstring_view::npos;
}

// Every occurrence of `from` becomes `to`; what was put in is not searched again.
inline std::wstring ReplaceEach(std::wstring_view text, wchar_t from, std::wstring_view to) {
    std::wstring result;
    result.reserve(text.size() + to.size());
    for (wchar_t ch : text) {
        if (ch == from)
            result.append(to);
        else
            result.push_back(ch);
    }
    return result;
}

} // namespace vndesk
