// SPDX-License-Identifier: MIT
// Code page 1258 as compile-time tables.
#pragma once

#include "text/letters/letter_keys.h"
#include "text/letters/marks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vndesk::cp1258 {

// 80 to 9F; the codes that the page leaves free are themselves.
inline constexpr char16_t kSigns[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x008A,
    0x2039, 0x0152, 0x008D, 0x008E, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x009A, 0x203A, 0x0153, 0x009D, 0x009E, 0x0178,
};

struct Difference {
    std::uint8_t code;
    char16_t letter;
};

// Where it differs from Latin-1 from A0 on.
inline constexpr Difference kDifferences[] = {
    {0xC3, u'Ă'},      {0xCC, kGrave}, {0xD0, u'Đ'}, {0xD2, kHook},  {0xD5, u'Ơ'},
    {0xDD, u'Ư'},      {0xDE, kTilde}, {0xE3, u'ă'}, {0xEC, kAcute}, {0xF0, u'đ'},
    {0xF2, kDotBelow}, {0xF5, u'ơ'},   {0xFD, u'ư'}, {0xFE, 0x20AB},
};

struct DecodeTables {
    std::array<char16_t, 256> letters{};
    std::array<std::uint8_t, 256> marks{}; // numbers of MarkNumber
    std::array<std::uint8_t, 256> bases{}; // numbers of kBaseNumbers
};

constexpr DecodeTables MakeDecodeTables() {
    DecodeTables tables;
    for (std::size_t i = 0; i < 256; ++i)
        tables.letters[i] = i >= 0x80 && i < 0xA0 ? kSigns[i - 0x80] : static_cast<char16_t>(i);
    for (const Difference& row : kDifferences)
        tables.letters[row.code] = row.letter;
    for (std::size_t i = 0; i < 256; ++i) {
        tables.marks[i] = MarkNumber(tables.letters[i]);
        tables.bases[i] = kBaseNumbers[BasePlace(tables.letters[i])];
    }
    return tables;
}

inline constexpr DecodeTables kDecodeTables = MakeDecodeTables();

// The byte of a character, or 0.
constexpr std::uint8_t CodeOf(char16_t letter) {
    for (std::size_t i = 1; i < 256; ++i)
        if (kDecodeTables.letters[i] == letter)
            return static_cast<std::uint8_t>(i);
    return 0;
}

// A letter without its tone, and the mark of the tone; mark 0 where it has none.
constexpr LetterParts WithoutTone(char16_t letter) {
    const LetterParts parts = PartsOf(letter);
    if (parts.base == 0 || ToneOfMark(parts.mark) != Tone::Level)
        return parts;
    // The tone below stands before the shape.
    const LetterParts inner = PartsOf(parts.base);
    if (inner.base == 0 || ToneOfMark(inner.mark) == Tone::Level)
        return {};
    return {Composed(inner.base, parts.mark), inner.mark};
}

// Nothing in both: the page lacks the letter.
struct Bytes {
    std::uint8_t first = 0, second = 0;
};

// By the places of LatinPlace.
constexpr std::array<Bytes, kLatinPlaces + 1> MakeLetterBytes() {
    std::array<Bytes, kLatinPlaces + 1> table{};
    for (std::size_t i = 0x80; i < 256; ++i)
        table[LatinPlace(kDecodeTables.letters[i])].first = static_cast<std::uint8_t>(i);
    table[kLatinPlaces] = {};
    for (char32_t letter = kFirstLatin; letter < kEndLatinMore; ++letter) {
        if (LatinPlace(letter) == kLatinPlaces || table[LatinPlace(letter)].first != 0)
            continue;
        const LetterParts parts = WithoutTone(static_cast<char16_t>(letter));
        if (parts.base == 0)
            continue;
        const std::uint8_t base = parts.base < 0x80 ? static_cast<std::uint8_t>(parts.base)
                                                    : table[LatinPlace(parts.base)].first;
        if (base != 0 && (parts.base < 0x80 || table[LatinPlace(parts.base)].second == 0))
            table[LatinPlace(letter)] = {base, CodeOf(parts.mark)};
    }
    return table;
}

inline constexpr auto kLetterBytes = MakeLetterBytes();

} // namespace vndesk::cp1258
