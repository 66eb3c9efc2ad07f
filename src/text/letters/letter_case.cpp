// SPDX-License-Identifier: MIT
#include "text/letters/letter_case.h"

#include "text/letters/marks.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace vndesk {

namespace {

struct Stretch {
    wchar_t first, last;
};

// Blanks, punctuation and symbols, by their places in the code.
constexpr Stretch kNoLetters[] = {
    {0x0000, 0x002F}, {0x003A, 0x0040}, {0x005B, 0x0060}, {0x007B, 0x00A9}, {0x00AB, 0x00B1},
    {0x00B4, 0x00B4}, {0x00B6, 0x00B8}, {0x00BB, 0x00BF}, {0x00D7, 0x00D7}, {0x00F7, 0x00F7},
    {0x02C2, 0x02DF}, {0x2000, 0x2070}, {0x20A0, 0x20CF}, {0x2100, 0x2101}, {0x2190, 0x245F},
    {0x2500, 0x2BFF}, {0x3000, 0x3003}, {0x3008, 0x3020}, {0xFE30, 0xFE6F}, {0xFF01, 0xFF0F},
};

template <class Change> std::wstring Changed(std::wstring_view text, Change change) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), change);
    return result;
}

// O'Brien is one word.
bool IsApostrophe(wchar_t ch) {
    return ch == L'\'' || ch == 0x2019;
}

// Most of what is asked for.
constexpr std::array<bool, 0x100> MakeWordBytes() {
    std::array<bool, 0x100> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] =
            std::none_of(std::begin(kNoLetters), std::end(kNoLetters), [i](const Stretch& at) {
                return static_cast<std::size_t>(at.first) <= i &&
                       i <= static_cast<std::size_t>(at.last);
            });
    return table;
}

constexpr auto kWordBytes = MakeWordBytes();

} // namespace

bool IsWordUnit(wchar_t ch) {
    if (const auto unit = static_cast<char32_t>(ch); unit < kWordBytes.size())
        return kWordBytes[unit];
    const Stretch* at =
        std::partition_point(std::begin(kNoLetters), std::end(kNoLetters),
                             [ch](const Stretch& stretch) { return stretch.last < ch; });
    return at == std::end(kNoLetters) || ch < at->first;
}

std::wstring ToUpper(std::wstring_view text) {
    return Changed(text, ToUpperLetter);
}

std::wstring ToLower(std::wstring_view text) {
    return Changed(text, ToLowerLetter);
}

std::wstring ToTitle(std::wstring_view text) {
    std::wstring result(text);
    bool inside = false; // a word
    for (std::size_t i = 0; i < result.size(); ++i) {
        wchar_t& ch = result[i];
        const bool word = IsWordUnit(ch);
        ch = inside ? ToLowerLetter(ch) : ToUpperLetter(ch);
        inside = word ||
                 (inside && IsApostrophe(ch) && i + 1 < result.size() && IsWordUnit(result[i + 1]));
    }
    return result;
}

} // namespace vndesk
