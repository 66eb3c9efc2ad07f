// SPDX-License-Identifier: MIT
// The conversion loop, for 16-bit characters as hosts pass them and for the wider ones of other
// systems.
#pragma once

#include "text/tcvn3_tables.h"
#include "text/unit_blocks.h"

#include <cstddef>

namespace vndesk {

// Any mode other than kToTcvn3 converts to Unicode.
inline constexpr long kToUnicode = 0;
inline constexpr long kToTcvn3 = 1;

constexpr wchar_t ToUncChar(wchar_t ch, long mode) {
    const auto number = static_cast<char32_t>(ch);
    if (mode == kToTcvn3)
        return number < tcvn3::kEncode.size() ? static_cast<wchar_t>(tcvn3::kEncode[number]) : ch;
    return number < tcvn3::kDecode.size() ? static_cast<wchar_t>(tcvn3::kDecode[number]) : ch;
}

#ifdef VNDESK_SSE2
// Each direction marks, with a byte of FF, those of sixteen units that it may change.
struct CodesToLetters {
    static __m128i Changed(__m128i low, __m128i high) {
        // What is too large for a byte becomes FF or 00 and stays. From 80 to FE the table is
        // asked, which has only codes from A1 on: one comparison is enough for that.
        return _mm_cmplt_epi8(_mm_packus_epi16(low, high), _mm_set1_epi8(-1));
    }
    template <class Unit> static Unit Change(Unit unit) {
        return static_cast<Unit>(tcvn3::kDecode[unit]);
    }
};

struct LettersToCodes {
    static __m128i Changed(__m128i low, __m128i high) {
        return InRange<tcvn3::kFirstLetter, tcvn3::kLastLetter + 1>(low, high);
    }
    template <class Unit> static Unit Change(Unit unit) {
        return static_cast<Unit>(tcvn3::kEncode[unit]);
    }
};
#endif

// Writes `length` converted units to `out`, which may be the same buffer as `in`.
template <class Unit> void ConvertUnits(Unit* out, const Unit* in, std::size_t length, long mode) {
    std::size_t i = 0;
    if (mode == kToTcvn3) {
#ifdef VNDESK_SSE2
        if constexpr (sizeof(Unit) == 2) {
            LettersToCodes direction;
            i = ConvertBlocks(direction, out, in, length);
        }
#endif
        for (; i < length; ++i)
            out[i] = static_cast<Unit>(ToUncChar(in[i], kToTcvn3));
    } else {
#ifdef VNDESK_SSE2
        if constexpr (sizeof(Unit) == 2) {
            CodesToLetters direction;
            i = ConvertBlocks(direction, out, in, length);
        }
#endif
        for (; i < length; ++i)
            out[i] = static_cast<Unit>(ToUncChar(in[i], kToUnicode));
    }
}

} // namespace vndesk
