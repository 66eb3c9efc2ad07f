// SPDX-License-Identifier: MIT
// TCVN3 with what gets lost: the letters are those of the conversion in tcvn3.h, to the letter.
#pragma once

#include "text/encodings/encoding.h"
#include "text/tcvn3_units.h"

#include <cstddef>
#include <cstdint>

namespace vndesk::tcvn3 {

// Whether a character of Unicode does not come back from TCVN3: toned capitals, characters that
// are codes of letters, and those that are no bytes.
constexpr bool IsLost(char32_t ch) {
    if (ch >= kEncode.size())
        return true;
    const char16_t code = kEncode[ch];
    return code >= kDecode.size() || kDecode[code] != ch;
}

constexpr std::array<char16_t, kLastLetter + 1> MakeEncodeOrLost() {
    std::array<char16_t, kLastLetter + 1> table = kEncode;
    for (std::size_t i = 0; i < table.size(); ++i)
        if (IsLost(static_cast<char32_t>(i)))
            table[i] |= 0x8000;
    return table;
}

// The codes, with the highest bit where something is lost.
inline constexpr auto kEncodeOrLost = MakeEncodeOrLost();

// Converts and keeps whether anything was lost.
struct Encoder {
    char16_t seen = 0;

#ifdef VNDESK_SSE2
    static __m128i Changed(__m128i low, __m128i high) {
        // All but ASCII: as an unsigned number, 80 and more.
        const __m128i ascii = _mm_set1_epi16(0x7F);
        const __m128i zero = _mm_setzero_si128();
        return _mm_xor_si128(_mm_packs_epi16(_mm_cmpeq_epi16(_mm_subs_epu16(low, ascii), zero),
                                             _mm_cmpeq_epi16(_mm_subs_epu16(high, ascii), zero)),
                             _mm_set1_epi8(-1));
    }
#endif
    template <class Unit> Unit Change(Unit unit) {
        if (static_cast<char32_t>(unit) >= kEncodeOrLost.size()) {
            seen |= 0x8000;
            return unit;
        }
        const char16_t code = kEncodeOrLost[static_cast<std::size_t>(unit)];
        seen |= code;
        return static_cast<Unit>(code & 0x7FFF);
    }
};

// True when nothing was lost.
template <class Unit> bool Encode(Unit* out, const Unit* in, std::size_t length) {
    Encoder encoder;
    std::size_t i = 0;
#ifdef VNDESK_SSE2
    if constexpr (sizeof(Unit) == 2)
        i = ConvertBlocks(encoder, out, in, length);
#endif
    for (; i < length; ++i)
        out[i] = encoder.Change(in[i]);
    return encoder.seen < 0x8000;
}

} // namespace vndesk::tcvn3
