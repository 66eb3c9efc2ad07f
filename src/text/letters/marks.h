// SPDX-License-Identifier: MIT
// Combining marks (U+0300 to U+036F): the order in which Unicode wants them behind a letter, and
// which letter a letter and a mark are together.
#pragma once

#include "text/letters/marked_letters.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace vndesk {

inline constexpr char32_t kFirstMark = 0x0300, kEndMark = 0x0370;

constexpr bool IsInMarks(char32_t ch) {
    return ch - kFirstMark < kEndMark - kFirstMark;
}

// The marks of tones and of letter shapes.
inline constexpr char16_t kGrave = 0x0300, kAcute = 0x0301, kCircumflex = 0x0302, kTilde = 0x0303,
                          kBreve = 0x0306, kHook = 0x0309, kHorn = 0x031B, kDotBelow = 0x0323;

struct MarkRun {
    char16_t last;
    std::uint8_t order;
};

// Canonical combining classes, run by run.
inline constexpr MarkRun kMarkRuns[] = {
    {0x0314, 230}, {0x0315, 232}, {0x0319, 220}, {0x031A, 232}, {0x031B, 216}, {0x0320, 220},
    {0x0322, 202}, {0x0326, 220}, {0x0328, 202}, {0x0333, 220}, {0x0338, 1},   {0x033C, 220},
    {0x0344, 230}, {0x0345, 240}, {0x0346, 230}, {0x0349, 220}, {0x034C, 230}, {0x034E, 220},
    {0x034F, 0},   {0x0352, 230}, {0x0356, 220}, {0x0357, 230}, {0x0358, 232}, {0x035A, 220},
    {0x035B, 230}, {0x035C, 233}, {0x035E, 234}, {0x035F, 233}, {0x0361, 234}, {0x0362, 233},
    {0x036F, 230},
};

constexpr std::array<std::uint8_t, kEndMark - kFirstMark> MakeMarkOrders() {
    std::array<std::uint8_t, kEndMark - kFirstMark> table{};
    std::size_t run = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
        while (kFirstMark + i > kMarkRuns[run].last)
            ++run;
        table[i] = kMarkRuns[run].order;
    }
    return table;
}

inline constexpr auto kMarkOrders = MakeMarkOrders();

// 0 for what does not combine with the letter before it.
constexpr std::uint8_t MarkOrder(char32_t ch) {
    return IsInMarks(ch) ? kMarkOrders[ch - kFirstMark] : 0;
}

constexpr bool IsMark(char32_t ch) {
    return MarkOrder(ch) != 0;
}

// Places of the letters that marks are put on: ASCII, the Latin blocks, and the one outside them.
inline constexpr char16_t kEzh = 0x0292;
inline constexpr std::size_t kBasePlaces = 0x80 + kLatinPlaces + 2;

constexpr std::size_t BasePlace(char32_t ch) {
    if (ch < 0x80)
        return ch;
    return ch == kEzh ? kBasePlaces - 1 : 0x80 + LatinPlace(ch);
}

constexpr std::array<std::uint8_t, kBasePlaces> MakeBaseNumbers() {
    std::array<std::uint8_t, kBasePlaces> table{};
    std::uint8_t last = 0;
    for (const MarkedLetters& row : kMarkedLetters)
        for (std::size_t i = 0; i < row.pairs.size(); i += 2)
            if (std::uint8_t& number = table[BasePlace(row.pairs[i])]; number == 0)
                number = ++last;
    return table;
}

// Letters that can carry marks count from 1.
inline constexpr auto kBaseNumbers = MakeBaseNumbers();

constexpr std::size_t CountBases() {
    std::size_t most = 0;
    for (const std::uint8_t number : kBaseNumbers)
        most = number > most ? number : most;
    return most;
}

inline constexpr std::size_t kMarkCount = std::size(kMarkedLetters);
using ComposedRow = std::array<char16_t, CountBases() + 1>;

constexpr std::array<ComposedRow, kMarkCount + 1> MakeComposed() {
    std::array<ComposedRow, kMarkCount + 1> table{};
    for (std::size_t mark = 0; mark < kMarkCount; ++mark)
        for (std::size_t i = 0; i < kMarkedLetters[mark].pairs.size(); i += 2)
            table[mark + 1][kBaseNumbers[BasePlace(kMarkedLetters[mark].pairs[i])]] =
                kMarkedLetters[mark].pairs[i + 1];
    return table;
}

inline constexpr auto kComposed = MakeComposed();

constexpr std::array<std::uint8_t, kEndMark - kFirstMark> MakeMarkNumbers() {
    std::array<std::uint8_t, kEndMark - kFirstMark> table{};
    for (std::size_t mark = 0; mark < kMarkCount; ++mark)
        table[kMarkedLetters[mark].mark - kFirstMark] = static_cast<std::uint8_t>(mark + 1);
    return table;
}

// Marks of the list count from 1, in its order; 0 for all others.
inline constexpr auto kMarkNumbers = MakeMarkNumbers();

constexpr std::uint8_t MarkNumber(char32_t mark) {
    return IsInMarks(mark) ? kMarkNumbers[mark - kFirstMark] : 0;
}

// 0 where there is no such letter.
constexpr char16_t Composed(char32_t base, char32_t mark) {
    return kComposed[MarkNumber(mark)][kBaseNumbers[BasePlace(base)]];
}

} // namespace vndesk
