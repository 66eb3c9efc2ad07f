// SPDX-License-Identifier: MIT
// Letters as numbers that can be compared part by part: base (letter case aside), shape, tone.
#pragma once

#include "text/letters/letter_case.h"
#include "text/letters/marks.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vndesk {

// In the order in which they decide.
enum class Tone : std::uint8_t { Level, Grave, Hook, Tilde, Acute, Dot };

enum class Shape : std::uint8_t { Plain, Circumflex, Breve, Horn, Stroke, FirstForeign };

using LetterKey = std::uint32_t;

inline constexpr int kShapeAt = 21, kToneAt = 26;
inline constexpr LetterKey kBaseBits = 0x001FFFFF, kShapeBits = 0x1Fu << kShapeAt,
                           kToneBits = 0x7u << kToneAt;
inline constexpr LetterKey kAllBits = kBaseBits | kShapeBits | kToneBits;
// A tone on one of two vowels that may carry it (hòa, hoà) is kept on the second; these tell where
// the text could have it elsewhere.
inline constexpr LetterKey kPairFirst = 1u << 29, kPairSecond = 1u << 30;
// A letter or a digit.
inline constexpr LetterKey kWordBit = 1u << 31;

constexpr wchar_t BaseOf(LetterKey key) {
    return static_cast<wchar_t>(key & kBaseBits);
}
constexpr Shape ShapeOf(LetterKey key) {
    return static_cast<Shape>((key & kShapeBits) >> kShapeAt);
}
constexpr Tone ToneOf(LetterKey key) {
    return static_cast<Tone>((key & kToneBits) >> kToneAt);
}
constexpr LetterKey WithTone(LetterKey key, Tone tone) {
    return (key & ~kToneBits) | static_cast<LetterKey>(tone) << kToneAt;
}

// Level for the marks of shapes.
constexpr Tone ToneOfMark(char32_t mark) {
    switch (mark) {
    case kGrave:
        return Tone::Grave;
    case kHook:
        return Tone::Hook;
    case kTilde:
        return Tone::Tilde;
    case kAcute:
        return Tone::Acute;
    case kDotBelow:
        return Tone::Dot;
    default:
        return Tone::Level;
    }
}

// The letter with one mark more. Vietnamese letters have one shape and one tone; several foreign
// marks make some other shape, so that ǖ is neither u nor ü.
constexpr LetterKey WithMark(LetterKey key, char32_t mark) {
    if (const Tone tone = ToneOfMark(mark); tone != Tone::Level && ToneOf(key) == Tone::Level)
        return WithTone(key, tone);
    constexpr LetterKey kFirst = static_cast<LetterKey>(Shape::FirstForeign);
    LetterKey shape = kFirst + MarkNumber(mark);
    if (mark == kCircumflex)
        shape = static_cast<LetterKey>(Shape::Circumflex);
    else if (mark == kBreve)
        shape = static_cast<LetterKey>(Shape::Breve);
    else if (mark == kHorn)
        shape = static_cast<LetterKey>(Shape::Horn);
    if (const auto before = static_cast<LetterKey>(ShapeOf(key)); before != 0)
        shape = kFirst + (shape + before * 5) % (32 - kFirst);
    return (key & ~kShapeBits) | shape << kShapeAt;
}

constexpr LetterKey MakeLetterKey(char32_t letter) {
    char16_t marks[4] = {};
    std::size_t count = 0;
    char32_t base = static_cast<char32_t>(ToLowerLetter(static_cast<wchar_t>(letter)));
    for (LetterParts parts = PartsOf(base); parts.base != 0; parts = PartsOf(base)) {
        marks[count++] = parts.mark;
        base = parts.base;
    }
    LetterKey key = base;
    // ð is typed for đ, whose capital looks the same.
    if (base == 0x0111 || base == 0x00F0)
        key = u'd' | static_cast<LetterKey>(Shape::Stroke) << kShapeAt;
    while (count > 0)
        key = WithMark(key, marks[--count]);
    return key;
}

// ASCII and the Latin blocks.
inline constexpr std::size_t kKeyPlaces = 0x80 + kLatinPlaces;

constexpr std::array<LetterKey, kKeyPlaces> MakeLetterKeys() {
    std::array<LetterKey, kKeyPlaces> table{};
    for (char32_t ch = 0; ch < 0x80; ++ch) {
        const bool word =
            (ch >= u'0' && ch <= u'9') || (ch >= u'A' && ch <= u'Z') || (ch >= u'a' && ch <= u'z');
        table[ch] = MakeLetterKey(ch) | (word ? kWordBit : 0);
    }
    for (char32_t ch = kFirstLatin; ch < kEndLatinMore; ++ch)
        if (const std::size_t place = LatinPlace(ch); place < kLatinPlaces)
            table[0x80 + place] = MakeLetterKey(ch) | (ch == 0xD7 || ch == 0xF7 ? 0 : kWordBit);
    return table;
}

inline constexpr auto kLetterKeys = MakeLetterKeys();

} // namespace vndesk
