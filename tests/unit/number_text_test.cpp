// SPDX-License-Identifier: MIT
// Numbers read from and written to text.
#include "data/text/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

using namespace vndesk;

TEST(ParseNumber, ReadsWholeNumber) {
    EXPECT_EQ(ParseNumber(L"1401"), 1401.0);
}

TEST(ParseNumber, ReadsDecimalPoint) {
    EXPECT_EQ(ParseNumber(L"2.5"), 2.5);
}

TEST(ParseNumber, ReadsPointAtEitherEnd) {
    EXPECT_EQ(ParseNumber(L".5"), 0.5);
    EXPECT_EQ(ParseNumber(L"5."), 5.0);
}

TEST(ParseNumber, ReadsSigns) {
    EXPECT_EQ(ParseNumber(L"-5"), -5.0);
    EXPECT_EQ(ParseNumber(L"+5"), 5.0);
}

TEST(ParseNumber, ReadsExponent) {
    EXPECT_EQ(ParseNumber(L"1.5e3"), 1500.0);
    EXPECT_EQ(ParseNumber(L"15E-1"), 1.5);
    EXPECT_EQ(ParseNumber(L"1E+2"), 100.0);
}

TEST(ParseNumber, AllowsBlanksAround) {
    EXPECT_EQ(ParseNumber(L"  7 "), 7.0);
}

TEST(ParseNumber, ReadsNearestDouble) {
    EXPECT_EQ(ParseNumber(L"0.1"), 0.1);
    EXPECT_EQ(ParseNumber(L"123456789.123456789"), 123456789.123456789);
    EXPECT_EQ(ParseNumber(L"1.7976931348623157E308"), std::numeric_limits<double>::max());
}

TEST(ParseNumber, RefusesEmptyText) {
    EXPECT_FALSE(ParseNumber(L""));
    EXPECT_FALSE(ParseNumber(L"   "));
}

TEST(ParseNumber, RefusesTrailingLetters) {
    EXPECT_FALSE(ParseNumber(L"12a"));
    EXPECT_FALSE(ParseNumber(L"12abc"));
}

TEST(ParseNumber, RefusesPartsWithoutDigits) {
    EXPECT_FALSE(ParseNumber(L"-"));
    EXPECT_FALSE(ParseNumber(L"."));
    EXPECT_FALSE(ParseNumber(L"1e"));
    EXPECT_FALSE(ParseNumber(L"1e+"));
    EXPECT_FALSE(ParseNumber(L"e5"));
}

TEST(ParseNumber, RefusesTwoSignsOrPoints) {
    EXPECT_FALSE(ParseNumber(L"--5"));
    EXPECT_FALSE(ParseNumber(L"1.2.3"));
}

TEST(ParseNumber, RefusesInnerBlank) {
    EXPECT_FALSE(ParseNumber(L"1 2"));
    EXPECT_FALSE(ParseNumber(L"- 5"));
}

TEST(ParseNumber, RefusesComma) {
    EXPECT_FALSE(ParseNumber(L"1,5"));
}

TEST(ParseNumber, RefusesInfinityNanAndHexadecimal) {
    EXPECT_FALSE(ParseNumber(L"inf"));
    EXPECT_FALSE(ParseNumber(L"-Infinity"));
    EXPECT_FALSE(ParseNumber(L"nan"));
    EXPECT_FALSE(ParseNumber(L"0x10"));
    EXPECT_FALSE(ParseNumber(L"&H10"));
}

TEST(ParseNumber, RefusesDigitsOfOtherScripts) {
    EXPECT_FALSE(ParseNumber(L"\u0661\u0662"));
    // Their low bytes are those of "12".
    EXPECT_FALSE(ParseNumber(L"\u0131\u0132"));
}

TEST(ParseNumber, RefusesNumberTooLargeForADouble) {
    EXPECT_FALSE(ParseNumber(L"1E309"));
    EXPECT_FALSE(ParseNumber(L"-1E99999999999999999999"));
    EXPECT_FALSE(ParseNumber(std::wstring(400, L'9')));
}

TEST(ParseNumber, NumberTooSmallForADoubleIsZero) {
    EXPECT_EQ(ParseNumber(L"1E-400"), 0.0);
    EXPECT_EQ(ParseNumber(L"1E-99999999999999999999"), 0.0);
    EXPECT_EQ(ParseNumber(L"0." + std::wstring(400, L'0') + L"1"), 0.0);
}

TEST(ParseNumber, ZeroWithLargeExponentIsZero) {
    EXPECT_EQ(ParseNumber(L"0E999"), 0.0);
    EXPECT_FALSE(std::signbit(*ParseNumber(L"-0")));
}

TEST(IsNumericEntry, AcceptsPlainNumbers) {
    EXPECT_TRUE(IsNumericEntry(L" -12.5 "));
}

TEST(IsNumericEntry, AcceptsCommasBetweenWholeDigits) {
    EXPECT_TRUE(IsNumericEntry(L"1,2"));
    EXPECT_TRUE(IsNumericEntry(L"1,234.5"));
}

TEST(IsNumericEntry, RefusesLetters) {
    EXPECT_FALSE(IsNumericEntry(L"12a"));
}

TEST(IsNumericEntry, RefusesOtherCommas) {
    EXPECT_FALSE(IsNumericEntry(L",1"));
    EXPECT_FALSE(IsNumericEntry(L"1,"));
    EXPECT_FALSE(IsNumericEntry(L"1,,2"));
    EXPECT_FALSE(IsNumericEntry(L"1.5,2"));
}

TEST(IsNumericEntry, RefusesEmptyText) {
    EXPECT_FALSE(IsNumericEntry(L""));
}

TEST(DoubleToText, WritesWholeNumberWithoutPoint) {
    EXPECT_EQ(DoubleToText(1401), L"1401");
    EXPECT_EQ(DoubleToText(100), L"100");
}

TEST(DoubleToText, WritesDecimals) {
    EXPECT_EQ(DoubleToText(2.5), L"2.5");
    EXPECT_EQ(DoubleToText(0.1), L"0.1");
    EXPECT_EQ(DoubleToText(-1234567.5), L"-1234567.5");
}

TEST(DoubleToText, WritesZeroWithoutSign) {
    EXPECT_EQ(DoubleToText(0.0), L"0");
    EXPECT_EQ(DoubleToText(-0.0), L"0");
}

TEST(DoubleToText, RoundsToFifteenSignificantDigits) {
    EXPECT_EQ(DoubleToText(1.0 / 3), L"0.333333333333333");
    EXPECT_EQ(DoubleToText(200.0 / 3), L"66.6666666666667");
    EXPECT_EQ(DoubleToText(0.1 + 0.2), L"0.3");
}

TEST(DoubleToText, WritesFifteenWholeDigitsPlain) {
    EXPECT_EQ(DoubleToText(123456789012345.0), L"123456789012345");
    EXPECT_EQ(DoubleToText(1E14), L"100000000000000");
}

TEST(DoubleToText, UsesExponentFromSixteenWholeDigitsOn) {
    EXPECT_EQ(DoubleToText(1E15), L"1E+15");
    EXPECT_EQ(DoubleToText(1.23E20), L"1.23E+20");
    EXPECT_EQ(DoubleToText(1234567890123456.0), L"1.23456789012346E+15");
}

TEST(DoubleToText, RoundsUpIntoTheExponentForm) {
    EXPECT_EQ(DoubleToText(999999999999999.9), L"1E+15");
}

TEST(DoubleToText, WritesThreeDigitExponent) {
    EXPECT_EQ(DoubleToText(1E300), L"1E+300");
    EXPECT_EQ(DoubleToText(-1.5E-300), L"-1.5E-300");
}

TEST(DoubleToText, WritesShortSmallNumberPlain) {
    EXPECT_EQ(DoubleToText(0.00001), L"0.00001");
    EXPECT_EQ(DoubleToText(1E-15), L"0.000000000000001");
}

TEST(DoubleToText, UsesExponentForMoreThanFifteenDecimals) {
    EXPECT_EQ(DoubleToText(1E-16), L"1E-16");
    EXPECT_EQ(DoubleToText(1.0 / 300), L"3.33333333333333E-03");
}

TEST(DoubleToText, OverflowsOnValueThatIsNotFinite) {
    EXPECT_THROW(DoubleToText(std::numeric_limits<double>::infinity()), std::overflow_error);
    EXPECT_THROW(DoubleToText(std::numeric_limits<double>::quiet_NaN()), std::overflow_error);
}

TEST(ToDecimals, WritesEveryDecimalOfASmallNumber) {
    EXPECT_EQ(ToDecimals(0.00001, kDoubleDigits), L"0.00001");
    EXPECT_EQ(ToDecimals(-1E-20, kDoubleDigits), L"-0.00000000000000000001");
    EXPECT_EQ(ToDecimals(1.0 / 300, kDoubleDigits), L"0.00333333333333333");
    EXPECT_EQ(ToDecimals(std::numeric_limits<double>::denorm_min(), kDoubleDigits).size(), 340u);
    EXPECT_EQ(ToDecimals(static_cast<double>(0.1f), kSingleDigits), L"0.1");
}

TEST(ToDecimals, UsesExponentWhereTheWholePartHasMoreDigitsThanAreSignificant) {
    EXPECT_EQ(ToDecimals(999999999999999.0, kDoubleDigits), L"999999999999999");
    EXPECT_EQ(ToDecimals(1.5E15, kDoubleDigits), L"1.5E+15");
    EXPECT_EQ(ToDecimals(1234567.0, kSingleDigits), L"1234567");
    EXPECT_EQ(ToDecimals(12345678.0, kSingleDigits), L"1.234568E+07");
}

TEST(ToDecimals, OverflowsOnValueThatIsNotFinite) {
    EXPECT_THROW(ToDecimals(std::numeric_limits<double>::infinity(), kDoubleDigits),
                 std::overflow_error);
}

TEST(NumberText, DoesNotFollowTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    bool found = false;
    for (const char* name : {"de_DE.UTF-8", "vi_VN.UTF-8", "fr_FR.UTF-8", "German", "French"})
        found = found || std::setlocale(LC_ALL, name) != nullptr;
    if (!found)
        GTEST_SKIP() << "no locale with a decimal comma on this machine";
    const std::wstring text = DoubleToText(2.5);
    const auto number = ParseNumber(L"2.5");
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(text, L"2.5");
    EXPECT_EQ(number, 2.5);
}
