// SPDX-License-Identifier: MIT
// The conversion loop, for 16-bit characters as hosts pass them and for the wider ones of other
// systems.
#pragma once

#include "text/tcvn3_tables.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#if defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2)
#define VNDESK_SSE2
#include <emmintrin.h>
#endif

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
        // SSE2 compares signed numbers only: the first letter is moved to the smallest one.
        const __m128i toSmallest = _mm_set1_epi16(static_cast<short>(0x8000 - tcvn3::kFirstLetter));
        const __m128i beyond = _mm_set1_epi16(
            static_cast<short>(0x8000 + (tcvn3::kLastLetter - tcvn3::kFirstLetter + 1)));
        return _mm_packs_epi16(_mm_cmplt_epi16(_mm_add_epi16(low, toSmallest), beyond),
                               _mm_cmplt_epi16(_mm_add_epi16(high, toSmallest), beyond));
    }
    template <class Unit> static Unit Change(Unit unit) {
        return static_cast<Unit>(tcvn3::kEncode[unit]);
    }
};

// Copies sixteen units and returns, with a bit for each, which of them must be changed.
template <class Direction, class Unit> std::uint32_t MoveSixteen(Unit* to, const Unit* from) {
    static_assert(sizeof(Unit) == 2);
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + 8));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), low);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 8), high);
    return static_cast<std::uint32_t>(_mm_movemask_epi8(Direction::Changed(low, high)));
}

// Converts as many blocks as there are from `begin` on and says where it stopped. Units that stay
// need no look-up: a block is copied as a whole, then the units that change are replaced. That is
// more than twice as fast as a look-up for each letter, although every fifth letter of Vietnamese
// text is changed. One misprediction per block; larger blocks amortise it.
template <class Direction, std::size_t Block, class Unit>
std::size_t ConvertBlocks(Unit* out, const Unit* in, std::size_t begin, std::size_t length) {
    using Mask = std::conditional_t<Block == 64, std::uint64_t, std::uint32_t>;
    std::size_t i = begin;
    for (; i + Block <= length; i += Block) {
        const Unit* from = in + i;
        Unit* to = out + i;
        Mask changed = MoveSixteen<Direction>(to, from);
        if constexpr (Block >= 32)
            changed |= Mask{MoveSixteen<Direction>(to + 16, from + 16)} << 16;
        if constexpr (Block == 64) {
            changed |= Mask{MoveSixteen<Direction>(to + 32, from + 32)} << 32;
            changed |= Mask{MoveSixteen<Direction>(to + 48, from + 48)} << 48;
        }
        for (; changed != 0; changed &= changed - 1) {
            const auto at = static_cast<unsigned>(std::countr_zero(changed));
            to[at] = Direction::Change(from[at]);
        }
    }
    return i;
}

// As many units as large and small blocks hold.
template <class Direction, class Unit>
std::size_t ConvertBlocks(Unit* out, const Unit* in, std::size_t length) {
    // One unit for each bit of a register.
    const std::size_t done = ConvertBlocks<Direction, 8 * sizeof(std::size_t)>(out, in, 0, length);
    return ConvertBlocks<Direction, 16>(out, in, done, length);
}
#endif

// Writes `length` converted units to `out`, which may be the same buffer as `in`.
template <class Unit> void ConvertUnits(Unit* out, const Unit* in, std::size_t length, long mode) {
    std::size_t i = 0;
    if (mode == kToTcvn3) {
#ifdef VNDESK_SSE2
        if constexpr (sizeof(Unit) == 2)
            i = ConvertBlocks<LettersToCodes>(out, in, length);
#endif
        for (; i < length; ++i)
            out[i] = static_cast<Unit>(ToUncChar(in[i], kToTcvn3));
    } else {
#ifdef VNDESK_SSE2
        if constexpr (sizeof(Unit) == 2)
            i = ConvertBlocks<CodesToLetters>(out, in, length);
#endif
        for (; i < length; ++i)
            out[i] = static_cast<Unit>(ToUncChar(in[i], kToUnicode));
    }
}

} // namespace vndesk
