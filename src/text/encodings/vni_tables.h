// SPDX-License-Identifier: MIT
// The letters of VNI as compile-time tables.
#pragma once

#include "text/letters/letter_case.h"
#include "text/letters/marks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vndesk::vni {

// Letters of one byte each, of which the byte, as a Latin-1 letter, stands at the same place of the
// other list.
inline constexpr std::u16string_view kSingleBytes = u"ôöñíìæóòî";
inline constexpr std::u16string_view kSingles = u"ơưđíìỉĩịỵ";

// Letters with an accent byte behind them: bytes of the letters, and which letters these are.
inline constexpr std::u16string_view kBaseBytes = u"aeouyôö";
inline constexpr std::u16string_view kBases = u"aeouyơư";

struct Accent {
    char16_t byte;  // as a Latin-1 letter
    char16_t shape; // 0: none
    char16_t tone;  // 0: none
};

inline constexpr Accent kAccents[] = {
    {u'ù', 0, kAcute},
    {u'ø', 0, kGrave},
    {u'û', 0, kHook},
    {u'õ', 0, kTilde},
    {u'ï', 0, kDotBelow},
    {u'â', kCircumflex, 0},
    {u'á', kCircumflex, kAcute},
    {u'à', kCircumflex, kGrave},
    {u'å', kCircumflex, kHook},
    {u'ã', kCircumflex, kTilde},
    {u'ä', kCircumflex, kDotBelow},
    {u'ê', kBreve, 0},
    {u'é', kBreve, kAcute},
    {u'è', kBreve, kGrave},
    {u'ú', kBreve, kHook},
    {u'ü', kBreve, kTilde},
    {u'ë', kBreve, kDotBelow},
};

// The letter with shape and tone, or 0. Unicode puts the tone below the letter first.
constexpr char16_t Accented(char16_t letter, char16_t shape, char16_t tone) {
    if (shape != 0 && letter != u'a' && letter != u'A' &&
        (shape == kBreve || (letter != u'e' && letter != u'E' && letter != u'o' && letter != u'O')))
        return 0;
    if (tone == kDotBelow && shape != 0)
        return Composed(Composed(letter, tone), shape);
    const char16_t shaped = shape != 0 ? Composed(letter, shape) : letter;
    return tone != 0 ? Composed(shaped, tone) : shaped;
}

constexpr char16_t Upper(char16_t letter) {
    return static_cast<char16_t>(ToUpperLetter(static_cast<wchar_t>(letter)));
}

struct Tables {
    std::array<char16_t, 256> letters{};   // a byte alone
    std::array<std::uint8_t, 256> bases{}; // numbers from 1, capitals behind small letters
    std::array<std::uint8_t, 256> accents{};
    char16_t both[2 * kBases.size() + 1][std::size(kAccents) + 1]{};
    std::array<bool, 256> taken{}; // bytes above ASCII that mean something
};

constexpr Tables MakeTables() {
    Tables tables;
    for (std::size_t i = 0; i < 256; ++i)
        tables.letters[i] = static_cast<char16_t>(i);
    for (std::size_t i = 0; i < kSingles.size(); ++i) {
        tables.letters[kSingleBytes[i]] = kSingles[i];
        tables.letters[Upper(kSingleBytes[i])] = Upper(kSingles[i]);
        tables.taken[kSingleBytes[i]] = tables.taken[Upper(kSingleBytes[i])] = true;
    }
    for (std::size_t i = 0; i < std::size(kAccents); ++i) {
        const auto number = static_cast<std::uint8_t>(i + 1);
        const char16_t byte = kAccents[i].byte, capital = Upper(kAccents[i].byte);
        tables.accents[byte] = tables.accents[capital] = number;
        tables.taken[byte] = tables.taken[capital] = true;
    }
    for (std::size_t base = 0; base < kBases.size(); ++base) {
        const std::size_t capital = base + kBases.size();
        tables.bases[kBaseBytes[base]] = static_cast<std::uint8_t>(base + 1);
        tables.bases[Upper(kBaseBytes[base])] = static_cast<std::uint8_t>(capital + 1);
        for (std::size_t i = 0; i < std::size(kAccents); ++i) {
            const auto [byte, shape, tone] = kAccents[i];
            tables.both[base + 1][i + 1] = Accented(kBases[base], shape, tone);
            tables.both[capital + 1][i + 1] = Accented(Upper(kBases[base]), shape, tone);
        }
    }
    return tables;
}

inline constexpr Tables kTables = MakeTables();

// 0: it has no bytes here.
struct Bytes {
    std::uint8_t first = 0, second = 0;
};

// By the places of BasePlace.
constexpr std::array<Bytes, kBasePlaces> MakeEncodeTable() {
    std::array<Bytes, kBasePlaces> table{};
    for (std::size_t i = 1; i < 256; ++i)
        if (i < 0x80 || (LatinPlace(static_cast<char32_t>(i)) < kLatinPlaces && !kTables.taken[i]))
            table[BasePlace(static_cast<char32_t>(i))] = {static_cast<std::uint8_t>(i), 0};
    for (std::size_t i = 0; i < 256; ++i)
        for (std::size_t accent = 0; accent < std::size(kAccents); ++accent) {
            const std::size_t base = kTables.bases[i];
            const char16_t letter = kTables.both[base][accent + 1];
            if (letter == 0)
                continue;
            const bool capital = base > kBases.size();
            const char16_t byte = kAccents[accent].byte;
            table[BasePlace(letter)] = {static_cast<std::uint8_t>(i),
                                        static_cast<std::uint8_t>(capital ? Upper(byte) : byte)};
        }
    // ỵ is one byte, though two are read for it, too.
    for (std::size_t i = 0; i < 256; ++i)
        if (kTables.letters[i] != i)
            table[BasePlace(kTables.letters[i])] = {static_cast<std::uint8_t>(i), 0};
    // í and ì are their own bytes.
    for (const char16_t own : std::u16string_view(u"íìÍÌ"))
        table[BasePlace(own)] = {static_cast<std::uint8_t>(own), 0};
    return table;
}

inline constexpr auto kEncodeTable = MakeEncodeTable();

} // namespace vndesk::vni
