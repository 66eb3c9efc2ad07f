// SPDX-License-Identifier: MIT
#include "text/numbers/number_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace vndesk;

namespace {

std::wstring Words(std::int64_t value, unsigned options = 0) {
    return NumberToWords(FromInteger(value), options);
}

std::wstring WordsOf(const wchar_t* digits, unsigned options = 0) {
    return NumberToWords(FromDigits(digits).value(), options);
}

std::wstring Amount(const wchar_t* digits, const wchar_t* currency, unsigned options) {
    return AmountToWords(FromDigits(digits).value(), *FindCurrency(currency), options);
}

TEST(NumberWordsTest, SmallNumbers) {
    EXPECT_EQ(L"không", Words(0));
    EXPECT_EQ(L"âm năm", Words(-5));
    EXPECT_EQ(L"mười", Words(10));
    EXPECT_EQ(L"mười một", Words(11));
    EXPECT_EQ(L"mười bốn", Words(14));
    EXPECT_EQ(L"mười lăm", Words(15));
    EXPECT_EQ(L"hai mươi", Words(20));
    EXPECT_EQ(L"hai mươi mốt", Words(21));
    EXPECT_EQ(L"hai mươi tư", Words(24));
    EXPECT_EQ(L"hai mươi lăm", Words(25));
}

TEST(NumberWordsTest, HundredsOfAGroupAreReadBehindAHigherOne) {
    EXPECT_EQ(L"một trăm", Words(100));
    EXPECT_EQ(L"một trăm lẻ một", Words(101));
    EXPECT_EQ(L"một trăm lẻ bốn", Words(104));
    EXPECT_EQ(L"một trăm lẻ năm", Words(105));
    EXPECT_EQ(L"một trăm mười một", Words(111));
    EXPECT_EQ(L"một trăm mười lăm", Words(115));
    EXPECT_EQ(L"một nghìn", Words(1000));
    EXPECT_EQ(L"một nghìn không trăm lẻ một", Words(1001));
    EXPECT_EQ(L"một nghìn không trăm mười", Words(1010));
    EXPECT_EQ(L"mười nghìn không trăm lẻ năm", Words(10005));
    EXPECT_EQ(L"một triệu không trăm lẻ một", Words(1000001));
    EXPECT_EQ(L"một triệu không nghìn không trăm lẻ một", Words(1000001, kWordsEmptyGroups));
    EXPECT_EQ(L"một triệu", Words(1000000, kWordsEmptyGroups));
    EXPECT_EQ(L"một tỷ hai trăm ba mươi tư triệu năm trăm sáu mươi bảy nghìn tám trăm chín mươi",
              Words(1234567890));
}

TEST(NumberWordsTest, GroupsOfNineDigitsRepeatTheirWord) {
    EXPECT_EQ(L"một nghìn tỷ", Words(1'000'000'000'000));
    EXPECT_EQ(L"một triệu tỷ", Words(1'000'000'000'000'000));
    EXPECT_EQ(L"một tỷ tỷ", Words(1'000'000'000'000'000'000));
    EXPECT_EQ(L"một tỷ tỷ không trăm lẻ một tỷ", Words(1'000'000'001'000'000'000));
    EXPECT_EQ(L"một tỷ tỷ không trăm lẻ một", Words(1'000'000'000'000'000'001));
    EXPECT_EQ(L"một tỷ tỷ không tỷ không triệu không nghìn không trăm lẻ một",
              Words(1'000'000'000'000'000'001, kWordsEmptyGroups));
    EXPECT_EQ(L"âm chín tỷ tỷ hai trăm hai mươi ba triệu ba trăm bảy mươi hai nghìn không trăm "
              L"ba mươi sáu tỷ tám trăm năm mươi tư triệu bảy trăm bảy mươi lăm nghìn tám trăm "
              L"lẻ tám",
              Words(std::numeric_limits<std::int64_t>::min()));
}

TEST(NumberWordsTest, TheLongestNumbersFit) {
    // A "bảy" is as long as a digit gets at its place.
    const std::wstring sevens(kMostDigits, L'7');
    const std::wstring whole = WordsOf(sevens.c_str(), kWordsAll);
    EXPECT_NE(std::wstring::npos, whole.find(L"BẢY TỈ TỈ TỈ TỈ TỈ TỈ TỈ TỈ TỈ TỈ BẢY"));
    EXPECT_EQ(L"KHÔNG PHẨY", WordsOf((L"," + sevens).c_str(), kWordsUpper).substr(0, 10));
    const std::wstring sparse = L"1" + std::wstring(kMostDigits - 2, L'0') + L"1";
    EXPECT_NE(std::wstring::npos, WordsOf(sparse.c_str(), kWordsEmptyGroups).find(L"lẻ một"));
}

TEST(NumberWordsTest, DecimalsAreReadDigitByDigit) {
    EXPECT_EQ(L"hai phẩy không năm", WordsOf(L"2,05"));
    EXPECT_EQ(L"không phẩy năm", WordsOf(L"0,5"));
    EXPECT_EQ(L"âm không phẩy năm", WordsOf(L"-0,50"));
    EXPECT_EQ(L"ba phẩy một bốn một năm", WordsOf(L"3,1415"));
}

TEST(NumberWordsTest, OptionsAreBits) {
    EXPECT_EQ(L"Một trăm lẻ năm", Words(105, kWordsCapital));
    EXPECT_EQ(L"một trăm linh năm", Words(105, kWordsLinh));
    EXPECT_EQ(L"một ngàn", Words(1000, kWordsNgan));
    EXPECT_EQ(L"một ngàn tỉ", Words(1'000'000'000'000, kWordsNgan | kWordsTi));
    EXPECT_EQ(L"hai mươi bốn", Words(24, kWordsBon));
    EXPECT_EQ(L"hai trăm chẵn.", Words(200, kWordsChan | kWordsPoint));
    EXPECT_EQ(L"hai phẩy năm", WordsOf(L"2,5", kWordsChan));
    EXPECT_EQ(L"ÂM NĂM", Words(-5, kWordsUpper));
    EXPECT_EQ(L"Âm năm", Words(-5, kWordsCapital));
}

TEST(AmountWordsTest, UnitsAndSubunits) {
    EXPECT_EQ(L"Một trăm hai mươi lăm triệu năm trăm nghìn đồng chẵn",
              Amount(L"125.500.000", L"VND", 65));
    EXPECT_EQ(L"Mười hai đô la Mỹ lẻ tám xu", Amount(L"12,08", L"USD", 1));
    EXPECT_EQ(L"Mười hai đô la Mỹ tám mươi xu", Amount(L"12,8", L"usd", 1));
    EXPECT_EQ(L"mười hai đô la Mỹ hai mươi mốt xu.", Amount(L"12,21", L"USD", 64 | 128));
    EXPECT_EQ(L"không đồng", Amount(L"0", L"VND", 0));
    EXPECT_EQ(nullptr, FindCurrency(L"XYZ"));
    EXPECT_EQ(nullptr, FindCurrency(L""));
}

TEST(AmountWordsTest, RoundsHalfAwayFromZero) {
    EXPECT_EQ(L"một đồng", Amount(L"0,5", L"VND", 0));
    EXPECT_EQ(L"âm một đồng", Amount(L"-0,5", L"VND", 0));
    EXPECT_EQ(L"không đồng", Amount(L"-0,49999", L"VND", 0));
    EXPECT_EQ(L"mười hai đô la Mỹ ba mươi lăm xu", Amount(L"12,345", L"USD", 0));
    EXPECT_EQ(L"mười hai đô la Mỹ ba mươi tư xu", Amount(L"12,3449", L"USD", 0));
    EXPECT_EQ(L"một trăm đô la Mỹ", Amount(L"99,995", L"USD", 0));
}

// --- what numbers come from ---

TEST(ExactNumberTest, ScaledNumbersAreExact) {
    EXPECT_EQ((ExactNumber{false, "79228162514264337593543950335", ""}),
              FromScaled(0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0, false));
    EXPECT_EQ((ExactNumber{true, "7", "9228162514264337593543950335"}),
              FromScaled(0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 28, true));
    EXPECT_EQ((ExactNumber{false, "12", "5"}), FromScaled(0, 125000, 4, false));
    EXPECT_EQ((ExactNumber{false, "", "0001"}), FromScaled(0, 1, 4, false));
    EXPECT_EQ((ExactNumber{false, "", ""}), FromScaled(0, 0, 4, true));
    EXPECT_EQ((ExactNumber{false, "1000000000", ""}), FromScaled(0, 10000000000000, 4, false));
}

TEST(ExactNumberTest, DoublesHaveFifteenDigits) {
    EXPECT_EQ((ExactNumber{false, "", "1"}), FromDouble(0.1).value());
    EXPECT_EQ((ExactNumber{false, "2", "05"}), FromDouble(2.05).value());
    EXPECT_EQ((ExactNumber{true, "1234567", "5"}), FromDouble(-1234567.5).value());
    EXPECT_EQ((ExactNumber{false, "", "000000123456789012345"}),
              FromDouble(1.23456789012345e-7).value());
    EXPECT_EQ((ExactNumber{false, "", "1"}), FromDouble(0.1f, 7).value());
    EXPECT_EQ((ExactNumber{false, "123456789012346", ""}), FromDouble(123456789012345.6).value());
    EXPECT_EQ((ExactNumber{false, "", ""}), FromDouble(-0.0).value());
}

TEST(ExactNumberTest, DoublesAreRefusedWhereTheyAreNotExact) {
    EXPECT_EQ("9007199254740991", FromDouble(9007199254740991.0).value().whole);
    EXPECT_EQ("9007199254740992", FromDouble(kLargestExact).value().whole);
    EXPECT_FALSE(FromDouble(9007199254740994.0));
    EXPECT_FALSE(FromDouble(-1e300));
    EXPECT_FALSE(FromDouble(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(FromDouble(std::nan("")));
}

TEST(ExactNumberTest, TextsHaveAPointBetweenThousandsAndACommaBeforeDecimals) {
    EXPECT_EQ((ExactNumber{true, "1234", "5"}), FromDigits(L"-1.234,50").value());
    EXPECT_EQ((ExactNumber{false, "1234", ""}), FromDigits(L"+01.234").value());
    EXPECT_EQ((ExactNumber{false, "", "5"}), FromDigits(L",5").value());
    EXPECT_EQ((ExactNumber{false, "", ""}), FromDigits(L"").value());
    for (const wchar_t* other : {L"1e5", L" 1", L"1,2,3", L"1,2.3", L"--1", L"năm", L"1 234"})
        EXPECT_FALSE(FromDigits(other));
    EXPECT_TRUE(FromDigits(std::wstring(99, L'9')));
    EXPECT_FALSE(FromDigits(std::wstring(100, L'9')));
}

} // namespace
