// SPDX-License-Identifier: MIT
// Capitals of the Vietnamese and the other European alphabets, the same on every machine: they do
// not depend on the user's language or on CharUpper.
#pragma once

#include <string>

namespace vndesk {

// Letters from `first` to `last` whose capitals stand `distance` before them; in steps of 2 where
// small letters and capitals take turns.
struct SmallLetters {
    wchar_t first;
    wchar_t last;
    int step;
    int distance;
};

inline constexpr SmallLetters kSmallLetters[] = {
    {L'a', L'z', 1, 32},     {0x00E0, 0x00F6, 1, 32}, {0x00F8, 0x00FE, 1, 32},
    {0x0101, 0x012F, 2, 1},  {0x0133, 0x0137, 2, 1},  {0x013A, 0x0148, 2, 1},
    {0x014B, 0x0177, 2, 1},  {0x017A, 0x017E, 2, 1},  {0x01A1, 0x01A1, 1, 1}, // ơ
    {0x01B0, 0x01B0, 1, 1},                                                   // ư
    {0x03B1, 0x03C1, 1, 32}, {0x03C3, 0x03CB, 1, 32}, {0x0430, 0x044F, 1, 32},
    {0x0450, 0x045F, 1, 80}, {0x1E01, 0x1E95, 2, 1},  {0x1EA1, 0x1EF9, 2, 1},
};

constexpr wchar_t ToCapital(wchar_t letter) {
    if (letter == 0x00FF) // the only one whose capital stands behind it
        return 0x0178;
    for (const SmallLetters& row : kSmallLetters)
        if (letter >= row.first && letter <= row.last && (letter - row.first) % row.step == 0)
            return static_cast<wchar_t>(letter - row.distance);
    return letter;
}

inline std::wstring InCapitals(std::wstring text) {
    for (wchar_t& letter : text)
        letter = ToCapital(letter);
    return text;
}

} // namespace vndesk
