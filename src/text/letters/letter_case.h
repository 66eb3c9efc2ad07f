// SPDX-License-Identifier: MIT
// Small letters and capitals of the European alphabets, the same on every machine.
#pragma once

#include "text/capitals.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vndesk {

// What ToCapital leaves out: rare Latin, Greek with accents, the rest of Cyrillic, Armenian.
inline constexpr SmallLetters kFurtherSmallLetters[] = {
    {0x01A3, 0x01A5, 2, 1},  {0x01CE, 0x01DC, 2, 1},  {0x01DF, 0x01EF, 2, 1},
    {0x01F5, 0x01F5, 1, 1},  {0x01F9, 0x021F, 2, 1},  {0x0223, 0x0233, 2, 1},
    {0x03AC, 0x03AC, 1, 38}, {0x03AD, 0x03AF, 1, 37}, {0x03CC, 0x03CC, 1, 64},
    {0x03CD, 0x03CE, 1, 63}, {0x0461, 0x0481, 2, 1},  {0x048B, 0x04BF, 2, 1},
    {0x04C2, 0x04CE, 2, 1},  {0x04D1, 0x052F, 2, 1},  {0x0561, 0x0586, 1, 48},
    {0x1EFB, 0x1EFF, 2, 1},
};

// All these letters stand in two stretches of the code.
inline constexpr std::size_t kCaseEnd = 0x0590;
inline constexpr std::size_t kCaseMore = 0x1E00, kCaseMoreEnd = 0x1F00;
using CaseTable = std::array<char16_t, kCaseEnd + (kCaseMoreEnd - kCaseMore)>;

constexpr std::size_t CasePlace(std::size_t ch) {
    if (ch < kCaseEnd)
        return ch;
    return ch - kCaseMore < kCaseMoreEnd - kCaseMore ? ch - kCaseMore + kCaseEnd
                                                     : CaseTable().size();
}

struct CaseTables {
    CaseTable upper, lower;
};

constexpr CaseTables MakeCaseTables() {
    CaseTables tables{};
    for (std::size_t i = 0; i < tables.upper.size(); ++i)
        tables.upper[i] = tables.lower[i] =
            static_cast<char16_t>(i < kCaseEnd ? i : i - kCaseEnd + kCaseMore);
    const auto add = [&tables](const SmallLetters& row) {
        for (std::size_t letter = static_cast<std::size_t>(row.first);
             letter <= static_cast<std::size_t>(row.last);
             letter += static_cast<std::size_t>(row.step)) {
            const std::size_t capital = letter - static_cast<std::size_t>(row.distance);
            tables.upper[CasePlace(letter)] = static_cast<char16_t>(capital);
            tables.lower[CasePlace(capital)] = static_cast<char16_t>(letter);
        }
    };
    for (const SmallLetters& row : kSmallLetters)
        add(row);
    for (const SmallLetters& row : kFurtherSmallLetters)
        add(row);
    // The only small letter whose capital stands behind it.
    tables.upper[0x00FF] = 0x0178;
    tables.lower[0x0178] = 0x00FF;
    // One way only: Turkish i, Greek s at the end of a word, the German double s.
    tables.upper[0x0131] = u'I';
    tables.lower[0x0130] = u'i';
    tables.upper[0x03C2] = 0x03A3;
    tables.lower[CasePlace(0x1E9E)] = 0x00DF;
    return tables;
}

inline constexpr CaseTables kCaseTables = MakeCaseTables();

constexpr wchar_t ToUpperLetter(wchar_t letter) {
    const std::size_t place = CasePlace(static_cast<char32_t>(letter));
    return place < kCaseTables.upper.size() ? static_cast<wchar_t>(kCaseTables.upper[place])
                                            : letter;
}

constexpr wchar_t ToLowerLetter(wchar_t letter) {
    const std::size_t place = CasePlace(static_cast<char32_t>(letter));
    return place < kCaseTables.lower.size() ? static_cast<wchar_t>(kCaseTables.lower[place])
                                            : letter;
}

// Letters and digits of any script, and the marks on them: what words are made of.
bool IsWordUnit(wchar_t ch);

std::wstring ToUpper(std::wstring_view text);
std::wstring ToLower(std::wstring_view text);

// The first letter of each word is a capital, the others are small.
std::wstring ToTitle(std::wstring_view text);

} // namespace vndesk
