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
    EXPECT_EQ(1401.0, ParseNumber(L"1401"));
}

TEST(ParseNumber, ReadsDecimalPoint) {
    EXPECT_EQ(2.5, ParseNumber(L"2.5"));
}

TEST(ParseNumber, ReadsPointAtEitherEnd) {
    EXPECT_EQ(0.5, ParseNumber(L".5"));
    EXPECT_EQ(5.0, ParseNumber(L"5."));
}

TEST(ParseNumber, ReadsSigns) {
    EXPECT_EQ(-5.0, ParseNumber(L"-5"));
    EXPECT_EQ(5.0, ParseNumber(L"+5"));
}

TEST(ParseNumber, ReadsExponent) {
    EXPECT_EQ(1500.0, ParseNumber(L"1.5e3"));
    EXPECT_EQ(1.5, ParseNumber(L"15E-1"));
    EXPECT_EQ(100.0, ParseNumber(L"1E+2"));
}

TEST(ParseNumber, AllowsBlanksAround) {
    EXPECT_EQ(7.0, ParseNumber(L"  7 "));
}

TEST(ParseNumber, ReadsNearestDouble) {
    EXPECT_EQ(0.1, ParseNumber(L"0.1"));
    EXPECT_EQ(123456789.123456789, ParseNumber(L"123456789.123456789"));
    EXPECT_EQ(std::numeric_limits<double>::max(), ParseNumber(L"1.7976931348623157E308"));
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
    EXPECT_EQ(0.0, ParseNumber(L"1E-400"));
    EXPECT_EQ(0.0, ParseNumber(L"1E-99999999999999999999"));
    EXPECT_EQ(0.0, ParseNumber(L"0." + std::wstring(400, L'0') + L"1"));
}

TEST(ParseNumber, ZeroWithLargeExponentIsZero) {
    EXPECT_EQ(0.0, ParseNumber(L"0E999"));
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
    EXPECT_EQ(L"1401", DoubleToText(1401));
    EXPECT_EQ(L"100", DoubleToText(100));
}

TEST(DoubleToText, WritesDecimals) {
    EXPECT_EQ(L"2.5", DoubleToText(2.5));
    EXPECT_EQ(L"0.1", DoubleToText(0.1));
    EXPECT_EQ(L"-1234567.5", DoubleToText(-1234567.5));
}

TEST(DoubleToText, WritesZeroWithoutSign) {
    EXPECT_EQ(L"0", DoubleToText(0.0));
    EXPECT_EQ(L"0", DoubleToText(-0.0));
}

TEST(DoubleToText, RoundsToFifteenSignificantDigits) {
    EXPECT_EQ(L"0.333333333333333", DoubleToText(1.0 / 3));
    EXPECT_EQ(L"66.6666666666667", DoubleToText(200.0 / 3));
    EXPECT_EQ(L"0.3", DoubleToText(0.1 + 0.2));
}

TEST(DoubleToText, WritesFifteenWholeDigitsPlain) {
    EXPECT_EQ(L"123456789012345", DoubleToText(123456789012345.0));
    EXPECT_EQ(L"100000000000000", DoubleToText(1E14));
}

TEST(DoubleToText, UsesExponentFromSixteenWholeDigitsOn) {
    EXPECT_EQ(L"1E+15", DoubleToText(1E15));
    EXPECT_EQ(L"1.23E+20", DoubleToText(1.23E20));
    EXPECT_EQ(L"1.23456789012346E+15", DoubleToText(1234567890123456.0));
}

TEST(DoubleToText, RoundsUpIntoTheExponentForm) {
    EXPECT_EQ(L"1E+15", DoubleToText(999999999999999.9));
}

TEST(DoubleToText, WritesThreeDigitExponent) {
    EXPECT_EQ(L"1E+300", DoubleToText(1E300));
    EXPECT_EQ(L"-1.5E-300", DoubleToText(-1.5E-300));
}

TEST(DoubleToText, WritesShortSmallNumberPlain) {
    EXPECT_EQ(L"0.00001", DoubleToText(0.00001));
    EXPECT_EQ(L"0.000000000000001", DoubleToText(1E-15));
}

TEST(DoubleToText, UsesExponentForMoreThanFifteenDecimals) {
    EXPECT_EQ(L"1E-16", DoubleToText(1E-16));
    EXPECT_EQ(L"3.33333333333333E-03", DoubleToText(1.0 / 300));
}

TEST(DoubleToText, OverflowsOnValueThatIsNotFinite) {
    EXPECT_THROW(DoubleToText(std::numeric_limits<double>::infinity()), std::overflow_error);
    EXPECT_THROW(DoubleToText(std::numeric_limits<double>::quiet_NaN()), std::overflow_error);
}

TEST(ToDecimals, WritesEveryDecimalOfASmallNumber) {
    EXPECT_EQ(L"0.00001", ToDecimals(0.00001, kDoubleDigits));
    EXPECT_EQ(L"-0.00000000000000000001", ToDecimals(-1E-20, kDoubleDigits));
    EXPECT_EQ(L"0.00333333333333333", ToDecimals(1.0 / 300, kDoubleDigits));
    EXPECT_EQ(340u, ToDecimals(std::numeric_limits<double>::denorm_min(), kDoubleDigits).size());
    EXPECT_EQ(L"0.1", ToDecimals(static_cast<double>(0.1f), kSingleDigits));
}

TEST(ToDecimals, UsesExponentWhereTheWholePartHasMoreDigitsThanAreSignificant) {
    EXPECT_EQ(L"999999999999999", ToDecimals(999999999999999.0, kDoubleDigits));
    EXPECT_EQ(L"1.5E+15", ToDecimals(1.5E15, kDoubleDigits));
    EXPECT_EQ(L"1234567", ToDecimals(1234567.0, kSingleDigits));
    EXPECT_EQ(L"1.234568E+07", ToDecimals(12345678.0, kSingleDigits));
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
    EXPECT_EQ(L"2.5", text);
    EXPECT_EQ(2.5, number);
}
