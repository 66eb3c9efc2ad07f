// SPDX-License-Identifier: MIT
// The loop that drops accents, for 16-bit characters as hosts pass them and for wider ones.
#pragma once

#include "text/letters/marks.h"
#include "text/unit_blocks.h"

#include <array>
#include <cstddef>

namespace vndesk {

// A mark in the table: no letter.
inline constexpr char16_t kDropped = 0;

// One entry for every character up to the last Latin letter, most of them the character itself.
constexpr std::array<char16_t, kEndLatinMore> MakePlainLetters() {
    std::array<char16_t, kEndLatinMore> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        char32_t letter = static_cast<char32_t>(i);
        for (LetterParts parts = PartsOf(letter); parts.base != 0; parts = PartsOf(letter))
            letter = parts.base;
        table[i] = IsMark(static_cast<char32_t>(i)) ? kDropped : static_cast<char16_t>(letter);
    }
    table[0x0111] = table[0x00F0] = u'd';
    table[0x0110] = table[0x00D0] = u'D';
    return table;
}

inline constexpr auto kPlainLetters = MakePlainLetters();

#ifdef VNDESK_SSE2
struct LettersToPlain {
    static __m128i Changed(__m128i low, __m128i high) {
        return InRange<kFirstLatin, kEndLatinMore>(low, high);
    }
    template <class Unit> static Unit Change(Unit unit) {
        return static_cast<Unit>(kPlainLetters[unit]);
    }
};
#endif

// Writes `length` units to `out`: plain letters, and kDropped for each mark.
template <class Unit> void DropAccents(Unit* out, const Unit* in, std::size_t length) {
    std::size_t i = 0;
#ifdef VNDESK_SSE2
    if constexpr (sizeof(Unit) == 2) {
        LettersToPlain direction;
        i = ConvertBlocks(direction, out, in, length);
    }
#endif
    for (; i < length; ++i) {
        const auto unit = static_cast<char32_t>(in[i]);
        out[i] = unit < kPlainLetters.size() ? static_cast<Unit>(kPlainLetters[unit]) : in[i];
    }
}

} // namespace vndesk
