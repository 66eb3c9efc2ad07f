// SPDX-License-Identifier: MIT
// The TCVN3 character set as compile-time tables: the list of its 134 pairs and the two look-up
// tables made from it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vndesk::tcvn3 {

struct Pair {
    std::uint8_t code;
    char16_t letter;
};

// Codes and letters stand at equal positions: the 67 small letters, then the same 67 in capitals.
// TCVN3 has no codes of its own for toned capitals: they share those of the small letters, and a
// font shows them as capitals. Only the seven bare capitals have own codes (A1 to A7).
inline constexpr std::size_t kHalf = 67;
inline constexpr std::size_t kPairCount = 2 * kHalf;

inline constexpr std::uint8_t kSmallCodes[] = {
    0xB8, 0xB5, 0xB6, 0xB7, 0xB9,       // a
    0xA8, 0xBE, 0xBB, 0xBC, 0xBD, 0xC6, // a breve
    0xA9, 0xCA, 0xC7, 0xC8, 0xC9, 0xCB, // a circumflex
    0xD0, 0xCC, 0xCE, 0xCF, 0xD1,       // e
    0xAA, 0xD5, 0xD2, 0xD3, 0xD4, 0xD6, // e circumflex
    0xDD, 0xD7, 0xD8, 0xDC, 0xDE,       // i
    0xE3, 0xDF, 0xE1, 0xE2, 0xE4,       // o
    0xAB, 0xE8, 0xE5, 0xE6, 0xE7, 0xE9, // o circumflex
    0xAC, 0xED, 0xEA, 0xEB, 0xEC, 0xEE, // o horn
    0xF3, 0xEF, 0xF1, 0xF2, 0xF4,       // u
    0xAD, 0xF8, 0xF5, 0xF6, 0xF7, 0xF9, // u horn
    0xFD, 0xFA, 0xFB, 0xFC, 0xFE,       // y
    0xAE,                               // d stroke
};

inline constexpr std::u16string_view kLetters = u"áàảãạăắằẳẵặâấầẩẫậéèẻẽẹêếềểễệíìỉĩị"
                                                u"óòỏõọôốồổỗộơớờởỡợúùủũụưứừửữựýỳỷỹỵđ"
                                                u"ÁÀẢÃẠĂẮẰẲẴẶÂẤẦẨẪẬÉÈẺẼẸÊẾỀỂỄỆÍÌỈĨỊ"
                                                u"ÓÒỎÕỌÔỐỒỔỖỘƠỚỜỞỠỢÚÙỦŨỤƯỨỪỬỮỰÝỲỶỸỴĐ";

static_assert(sizeof(kSmallCodes) == kHalf);
static_assert(kLetters.size() == kPairCount, "letters must be precomposed");

constexpr std::uint8_t CapitalCode(std::uint8_t smallCode) {
    // A8..AE are the bare small letters, A1..A7 their capitals.
    return smallCode >= 0xA8 && smallCode <= 0xAE ? static_cast<std::uint8_t>(smallCode - 7)
                                                  : smallCode;
}

constexpr std::array<Pair, kPairCount> MakePairs() {
    std::array<Pair, kPairCount> pairs{};
    for (std::size_t i = 0; i < kHalf; ++i) {
        pairs[i] = {kSmallCodes[i], kLetters[i]};
        pairs[kHalf + i] = {CapitalCode(kSmallCodes[i]), kLetters[kHalf + i]};
    }
    return pairs;
}

inline constexpr std::array<Pair, kPairCount> kPairs = MakePairs();

// Walked backwards, so that the first pair of the list wins: a toned code gives the small letter.
constexpr std::array<char16_t, 256> MakeDecodeTable() {
    std::array<char16_t, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char16_t>(i);
    for (std::size_t i = kPairCount; i-- > 0;)
        table[kPairs[i].code] = kPairs[i].letter;
    return table;
}

inline constexpr std::array<char16_t, 256> kDecode = MakeDecodeTable();

// The letters that are changed lie between these.
inline constexpr char16_t kFirstLetter = 0x00C0;
inline constexpr char16_t kLastLetter = 0x1EF9;

// One entry for every character up to the last Vietnamese letter, most of them the character
// itself: 15 KB, of which text touches a few hundred bytes, for a look-up without a branch.
constexpr std::array<char16_t, kLastLetter + 1> MakeEncodeTable() {
    std::array<char16_t, kLastLetter + 1> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char16_t>(i);
    for (std::size_t i = kPairCount; i-- > 0;)
        table[kPairs[i].letter] = kPairs[i].code;
    return table;
}

inline constexpr std::array<char16_t, kLastLetter + 1> kEncode = MakeEncodeTable();

} // namespace vndesk::tcvn3
