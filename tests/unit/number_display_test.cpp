// SPDX-License-Identifier: MIT
// Numbers as users read them.
#include "find/text/number_display.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(Sign, TakesPlusAndMinus) {
    EXPECT_EQ(L"+", Sign(L"+5"));
    EXPECT_EQ(L"-", Sign(L"-5"));
}

TEST(Sign, IsEmptyWithoutSign) {
    EXPECT_EQ(L"", Sign(L"5"));
    EXPECT_EQ(L"", Sign(L"5-"));
    EXPECT_EQ(L"", Sign(L" -5"));
}

TEST(Sign, IsEmptyForEmptyText) {
    EXPECT_EQ(L"", Sign(L""));
}

TEST(Mid1, TakesTheCharacterAtThePosition) {
    EXPECT_EQ(L"a", Mid1(L"abc", 1));
    EXPECT_EQ(L"c", Mid1(L"abc", 3));
}

TEST(Mid1, IsEmptyOutsideTheText) {
    EXPECT_EQ(L"", Mid1(L"abc", 0));
    EXPECT_EQ(L"", Mid1(L"abc", 4));
    EXPECT_EQ(L"", Mid1(L"abc", -1));
    EXPECT_EQ(L"", Mid1(L"", 1));
}

TEST(CvNStr, GroupsThousandsAndPutsComma) {
    EXPECT_EQ(L"-1.234.567,5", CvNStr(L"-1234567.5"));
}

TEST(CvNStr, LeavesShortNumbersAlone) {
    EXPECT_EQ(L"12", CvNStr(L"12"));
    EXPECT_EQ(L"999", CvNStr(L"999"));
}

TEST(CvNStr, GroupsFromFourDigitsOn) {
    EXPECT_EQ(L"1.000", CvNStr(L"1000"));
    EXPECT_EQ(L"100.000", CvNStr(L"100000"));
}

TEST(CvNStr, TakesCommaAsDecimalSeparatorWithoutPoint) {
    EXPECT_EQ(L"1.234,5", CvNStr(L"1234,5"));
}

TEST(CvNStr, PrefersThePoint) {
    EXPECT_EQ(L"1,2,5", CvNStr(L"1,2.5"));
}

TEST(CvNStr, DoesNotGroupDecimals) {
    EXPECT_EQ(L"1,23456", CvNStr(L"1.23456"));
}

TEST(CvNStr, KeepsPlusSign) {
    EXPECT_EQ(L"+1.000", CvNStr(L"+1000"));
}

TEST(CvNStr, TrimsBlanks) {
    EXPECT_EQ(L"1.000", CvNStr(L"  1000 "));
}

TEST(CvNStr, EmptyFractionLeavesNoComma) {
    EXPECT_EQ(L"1.000", CvNStr(L"1000."));
}

TEST(CvNStr, FractionAloneKeepsItsComma) {
    EXPECT_EQ(L",5", CvNStr(L".5"));
}

TEST(CvNStr, EmptyTextStaysEmpty) {
    EXPECT_EQ(L"", CvNStr(L""));
}

TEST(CvTextToN, ReadsGroupsAndComma) {
    EXPECT_EQ(-1234.5, CvTextToN(L"-1.234,5"));
}

TEST(CvTextToN, ReadsGroupsWithoutComma) {
    EXPECT_EQ(1234.0, CvTextToN(L"1.234"));
}

TEST(CvTextToN, ReadsMinusWithoutComma) {
    EXPECT_EQ(-5.0, CvTextToN(L"-5"));
}

TEST(CvTextToN, TextWithoutDigitsIsZero) {
    EXPECT_EQ(0.0, CvTextToN(L"abc"));
    EXPECT_EQ(0.0, CvTextToN(L""));
    EXPECT_EQ(0.0, CvTextToN(L","));
}

TEST(CvTextToN, MinusAppliesToTheFractionToo) {
    EXPECT_EQ(-0.25, CvTextToN(L"-0,25"));
}

TEST(CvTextToN, BlankBeforeMinusKeepsTheFractionPositive) {
    EXPECT_EQ(-0.5, CvTextToN(L" -1,5"));
}

TEST(CvTextToN, TrimsBothParts) {
    EXPECT_EQ(1.5, CvTextToN(L"1 , 5"));
}

TEST(CvTextToN, FractionKeepsItsLeadingZeros) {
    EXPECT_EQ(1.05, CvTextToN(L"1,05"));
}

TEST(CvTextToN, NonNumericFractionCountsAsZero) {
    EXPECT_EQ(12.0, CvTextToN(L"12,x"));
    EXPECT_EQ(12.0, CvTextToN(L"12,"));
}

TEST(CvTextToN, NonNumericWholePartCountsAsZero) {
    EXPECT_EQ(0.5, CvTextToN(L"x,5"));
}

TEST(CvTextToN, ReadsBackWhatCvNStrShows) {
    EXPECT_EQ(-1234567.5, CvTextToN(CvNStr(L"-1234567.5")));
    EXPECT_EQ(1000000.0, CvTextToN(CvNStr(L"1000000")));
}
