// SPDX-License-Identifier: MIT
// TCVN3 to Unicode and back. Codes and letters are written as escapes here, independently of the
// tables under test.
#include "text/tcvn3.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>

using namespace vndesk;

namespace {

struct CodeAndLetter {
    wchar_t code;
    wchar_t letter;
};

// All letters that come out of a TCVN3 code: 67 small ones and the seven bare capitals.
constexpr CodeAndLetter kDecoded[] = {
    // clang-format off
    {0xB8, 0x00E1}, {0xB5, 0x00E0}, {0xB6, 0x1EA3}, {0xB7, 0x00E3}, {0xB9, 0x1EA1},
    {0xA8, 0x0103}, {0xBE, 0x1EAF}, {0xBB, 0x1EB1}, {0xBC, 0x1EB3}, {0xBD, 0x1EB5}, {0xC6, 0x1EB7},
    {0xA9, 0x00E2}, {0xCA, 0x1EA5}, {0xC7, 0x1EA7}, {0xC8, 0x1EA9}, {0xC9, 0x1EAB}, {0xCB, 0x1EAD},
    {0xD0, 0x00E9}, {0xCC, 0x00E8}, {0xCE, 0x1EBB}, {0xCF, 0x1EBD}, {0xD1, 0x1EB9},
    {0xAA, 0x00EA}, {0xD5, 0x1EBF}, {0xD2, 0x1EC1}, {0xD3, 0x1EC3}, {0xD4, 0x1EC5}, {0xD6, 0x1EC7},
    {0xDD, 0x00ED}, {0xD7, 0x00EC}, {0xD8, 0x1EC9}, {0xDC, 0x0129}, {0xDE, 0x1ECB},
    {0xE3, 0x00F3}, {0xDF, 0x00F2}, {0xE1, 0x1ECF}, {0xE2, 0x00F5}, {0xE4, 0x1ECD},
    {0xAB, 0x00F4}, {0xE8, 0x1ED1}, {0xE5, 0x1ED3}, {0xE6, 0x1ED5}, {0xE7, 0x1ED7}, {0xE9, 0x1ED9},
    {0xAC, 0x01A1}, {0xED, 0x1EDB}, {0xEA, 0x1EDD}, {0xEB, 0x1EDF}, {0xEC, 0x1EE1}, {0xEE, 0x1EE3},
    {0xF3, 0x00FA}, {0xEF, 0x00F9}, {0xF1, 0x1EE7}, {0xF2, 0x0169}, {0xF4, 0x1EE5},
    {0xAD, 0x01B0}, {0xF8, 0x1EE9}, {0xF5, 0x1EEB}, {0xF6, 0x1EED}, {0xF7, 0x1EEF}, {0xF9, 0x1EF1},
    {0xFD, 0x00FD}, {0xFA, 0x1EF3}, {0xFB, 0x1EF7}, {0xFC, 0x1EF9}, {0xFE, 0x1EF5},
    {0xAE, 0x0111},
    {0xA1, 0x0102}, {0xA2, 0x00C2}, {0xA3, 0x00CA}, {0xA4, 0x00D4}, {0xA5, 0x01A0}, {0xA6, 0x01AF},
    {0xA7, 0x0110},
    // clang-format on
};

// Toned capitals: they share the codes of the small letters.
constexpr CodeAndLetter kTonedCapitals[] = {
    // clang-format off
    {0xB8, 0x00C1}, {0xB5, 0x00C0}, {0xB6, 0x1EA2}, {0xB7, 0x00C3}, {0xB9, 0x1EA0},
    {0xBE, 0x1EAE}, {0xBB, 0x1EB0}, {0xBC, 0x1EB2}, {0xBD, 0x1EB4}, {0xC6, 0x1EB6},
    {0xCA, 0x1EA4}, {0xC7, 0x1EA6}, {0xC8, 0x1EA8}, {0xC9, 0x1EAA}, {0xCB, 0x1EAC},
    {0xD0, 0x00C9}, {0xCC, 0x00C8}, {0xCE, 0x1EBA}, {0xCF, 0x1EBC}, {0xD1, 0x1EB8},
    {0xD5, 0x1EBE}, {0xD2, 0x1EC0}, {0xD3, 0x1EC2}, {0xD4, 0x1EC4}, {0xD6, 0x1EC6},
    {0xDD, 0x00CD}, {0xD7, 0x00CC}, {0xD8, 0x1EC8}, {0xDC, 0x0128}, {0xDE, 0x1ECA},
    {0xE3, 0x00D3}, {0xDF, 0x00D2}, {0xE1, 0x1ECE}, {0xE2, 0x00D5}, {0xE4, 0x1ECC},
    {0xE8, 0x1ED0}, {0xE5, 0x1ED2}, {0xE6, 0x1ED4}, {0xE7, 0x1ED6}, {0xE9, 0x1ED8},
    {0xED, 0x1EDA}, {0xEA, 0x1EDC}, {0xEB, 0x1EDE}, {0xEC, 0x1EE0}, {0xEE, 0x1EE2},
    {0xF3, 0x00DA}, {0xEF, 0x00D9}, {0xF1, 0x1EE6}, {0xF2, 0x0168}, {0xF4, 0x1EE4},
    {0xF8, 0x1EE8}, {0xF5, 0x1EEA}, {0xF6, 0x1EEC}, {0xF7, 0x1EEE}, {0xF9, 0x1EF0},
    {0xFD, 0x00DD}, {0xFA, 0x1EF2}, {0xFB, 0x1EF6}, {0xFC, 0x1EF8}, {0xFE, 0x1EF4},
    // clang-format on
};

static_assert(std::size(kDecoded) + std::size(kTonedCapitals) == 134);

// Hosts and documents know them as numbers.
static_assert(kToUnicode == 0 && kToTcvn3 == 1);

// Usable at compile time.
static_assert(ToUncChar(0xB8, kToUnicode) == 0x00E1);
static_assert(ToUncChar(0x1EF8, kToTcvn3) == 0xFC);

} // namespace

TEST(Tcvn3, TableHas134DifferentLetters) {
    std::set<wchar_t> letters;
    for (const auto& pair : tcvn3::kPairs)
        letters.insert(pair.letter);
    EXPECT_EQ(134u, letters.size());
}

TEST(Tcvn3, EachCodeGivesItsLetter) {
    for (const auto& pair : kDecoded)
        EXPECT_EQ(pair.letter, ToUncChar(pair.code, kToUnicode)) << std::hex << int(pair.code);
}

TEST(Tcvn3, EachLetterGivesItsCode) {
    for (const auto& pair : kDecoded)
        EXPECT_EQ(pair.code, ToUncChar(pair.letter, kToTcvn3)) << std::hex << int(pair.letter);
}

TEST(Tcvn3, TonedCapitalGivesCodeOfSmallLetter) {
    for (const auto& pair : kTonedCapitals)
        EXPECT_EQ(pair.code, ToUncChar(pair.letter, kToTcvn3)) << std::hex << int(pair.letter);
}

TEST(Tcvn3, CodeGivesSmallLetterNeverTonedCapital) {
    EXPECT_EQ(L"\u00E1", ToUncText(L"\u00B8", kToUnicode));
}

TEST(Tcvn3, BareCapitalComesBack) {
    EXPECT_EQ(L"\u0102", ToUncText(L"\u00A1", kToUnicode));
}

TEST(Tcvn3, SmallAndCapitalLetterShareOneCode) {
    EXPECT_EQ(L"\u00B8\u00B8", ToUncText(L"\u00C1\u00E1", kToTcvn3));
}

TEST(Tcvn3, ConvertsNoticeTitle) {
    EXPECT_EQ(L"Th\u00F4ng b\u00E1o", ToUncText(L"Th\u00ABng b\u00B8o", kToUnicode));
}

TEST(Tcvn3, AmpersandPassesThrough) {
    EXPECT_EQ(L"\u0110\u1ED3&ng \u00FD", ToUncText(L"\u00A7\u00E5&ng \u00FD", kToUnicode));
}

TEST(Tcvn3, SoftHyphenCodeIsALetter) {
    EXPECT_EQ(L"\u01B0", ToUncText(L"\u00AD", kToUnicode));
}

TEST(Tcvn3, RoundTripFromTcvn3RestoresTheText) {
    std::wstring text;
    for (wchar_t ch = 1; ch < 0x80; ++ch)
        text.push_back(ch);
    for (const auto& pair : kDecoded)
        text.push_back(pair.code);
    EXPECT_EQ(text, ToUncText(ToUncText(text, kToUnicode), kToTcvn3));
}

TEST(Tcvn3, RoundTripFromUnicodeLosesCaseOfTonedCapital) {
    EXPECT_EQ(L"\u00E1\u0110\u1ED3",
              ToUncText(ToUncText(L"\u00C1\u0110\u1ED2", kToTcvn3), kToUnicode));
}

TEST(Tcvn3, AsciiPassesThroughBothWays) {
    for (wchar_t ch = 0; ch < 0x80; ++ch) {
        EXPECT_EQ(ch, ToUncChar(ch, kToUnicode));
        EXPECT_EQ(ch, ToUncChar(ch, kToTcvn3));
    }
}

TEST(Tcvn3, CodesOutsideTheTablePassThrough) {
    const std::wstring unused = L"\u00A0\u00AF\u00B0\u00B4\u00BA\u00BF\u00C0\u00C5\u00CD\u00D9"
                                L"\u00E0\u00F0\u00FF\u20AC\u4E2D";
    EXPECT_EQ(unused, ToUncText(unused, kToUnicode));
}

TEST(Tcvn3, LettersOutsideTheTablePassThroughToTcvn3) {
    const std::wstring others = L"\u00B8\u00E4\u00D6\u0100\u01FF\u0200\u1DFF\u1E00\u1EFF\u1F00"
                                L"\uFFFF";
    EXPECT_EQ(others, ToUncText(others, kToTcvn3));
}

TEST(Tcvn3, UnknownModeConvertsToUnicode) {
    EXPECT_EQ(L"\u00E1", ToUncText(L"\u00B8", 2));
    EXPECT_EQ(L"\u00E1", ToUncText(L"\u00B8", -1));
}

TEST(Tcvn3, EmptyTextStaysEmpty) {
    EXPECT_EQ(L"", ToUncText(L"", kToUnicode));
}

TEST(Tcvn3, ZeroCharactersInsideAreKept) {
    const std::wstring text(L"\u00B8\0\u00B8", 3);
    EXPECT_EQ(std::wstring(L"\u00E1\0\u00E1", 3), ToUncText(text, kToUnicode));
}

TEST(Tcvn3, LongestTextConverts) {
    EXPECT_EQ(std::wstring(32767, L'\u00E1'),
              ToUncText(std::wstring(32767, L'\u00B8'), kToUnicode));
}

TEST(Tcvn3, TextOf32768CharactersOverflows) {
    EXPECT_THROW(ToUncText(std::wstring(32768, L'a'), kToUnicode), std::overflow_error);
    EXPECT_THROW(ToUncText(std::wstring(32768, L'a'), kToTcvn3), std::overflow_error);
}

TEST(Tcvn3, ConvertTextWritesOnlyItsLength) {
    wchar_t out[] = {L'#', L'#', L'#'};
    ConvertText(out, L"\u00B8\u00B8", 2, kToUnicode);
    EXPECT_EQ(L"\u00E1\u00E1#", std::wstring(out, 3));
}

TEST(Tcvn3, ConvertTextWorksInPlace) {
    wchar_t text[] = L"b\u00B8o";
    ConvertText(text, text, 3, kToUnicode);
    EXPECT_EQ(L"b\u00E1o", std::wstring(text));
}

TEST(Tcvn3, ConvertTextWritesNothingWhenTooLong) {
    const std::wstring in(32768, L'\u00B8');
    std::wstring out(32768, L'#');
    EXPECT_THROW(ConvertText(out.data(), in.data(), in.size(), kToUnicode), std::overflow_error);
    EXPECT_EQ(std::wstring(32768, L'#'), out);
}

// Texts of 16-bit characters are converted in blocks, which must not show: here every character, at
// every place of texts of every length up to a few blocks, is converted as it is by itself.
TEST(Tcvn3, BlocksConvertEachCharacterAsByItself) {
    std::u16string all;
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit)
        all.push_back(static_cast<char16_t>(unit));
    for (const long mode : {kToUnicode, kToTcvn3}) {
        const auto alone = [mode](char16_t unit) {
            return static_cast<char16_t>(ToUncChar(unit, mode));
        };
        for (std::size_t length = 0; length < 200; ++length) {
            // Ever other stretches of all characters, so that each comes to every place of a block.
            for (std::size_t from = length; from + length <= 0x300; from += 7) {
                const std::u16string text = all.substr(from, length);
                std::u16string expected = text + u'#', other(length + 1, u'#'), inPlace = text;
                std::transform(text.begin(), text.end(), expected.begin(), alone);
                ConvertUnits(other.data(), text.data(), length, mode);
                ConvertUnits(inPlace.data(), inPlace.data(), length, mode);
                ASSERT_EQ(expected, other) << length << " from " << from;
                ASSERT_EQ(expected, inPlace + u'#') << length << " from " << from;
            }
        }
        std::u16string converted(all.size(), u'#');
        ConvertUnits(converted.data(), all.data(), all.size(), mode);
        for (std::size_t i = 0; i < all.size(); ++i)
            ASSERT_EQ(alone(all[i]), converted[i]) << i;
    }
}
