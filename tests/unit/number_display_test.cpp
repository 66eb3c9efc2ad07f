// SPDX-License-Identifier: MIT
// Numbers as users read them.
#include "find/text/number_display.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(Sign, TakesPlusAndMinus) {
    EXPECT_EQ(Sign(L"+5"), L"+");
    EXPECT_EQ(Sign(L"-5"), L"-");
}

TEST(Sign, IsEmptyWithoutSign) {
    EXPECT_EQ(Sign(L"5"), L"");
    EXPECT_EQ(Sign(L"5-"), L"");
    EXPECT_EQ(Sign(L" -5"), L"");
}

TEST(Sign, IsEmptyForEmptyText) {
    EXPECT_EQ(Sign(L""), L"");
}

TEST(Mid1, TakesTheCharacterAtThePosition) {
    EXPECT_EQ(Mid1(L"abc", 1), L"a");
    EXPECT_EQ(Mid1(L"abc", 3), L"c");
}

TEST(Mid1, IsEmptyOutsideTheText) {
    EXPECT_EQ(Mid1(L"abc", 0), L"");
    EXPECT_EQ(Mid1(L"abc", 4), L"");
    EXPECT_EQ(Mid1(L"abc", -1), L"");
    EXPECT_EQ(Mid1(L"", 1), L"");
}

TEST(CvNStr, GroupsThousandsAndPutsComma) {
    EXPECT_EQ(CvNStr(L"-1234567.5"), L"-1.234.567,5");
}

TEST(CvNStr, LeavesShortNumbersAlone) {
    EXPECT_EQ(CvNStr(L"12"), L"12");
    EXPECT_EQ(CvNStr(L"999"), L"999");
}

TEST(CvNStr, GroupsFromFourDigitsOn) {
    EXPECT_EQ(CvNStr(L"1000"), L"1.000");
    EXPECT_EQ(CvNStr(L"100000"), L"100.000");
}

TEST(CvNStr, TakesCommaAsDecimalSeparatorWithoutPoint) {
    EXPECT_EQ(CvNStr(L"1234,5"), L"1.234,5");
}

TEST(CvNStr, PrefersThePoint) {
    EXPECT_EQ(CvNStr(L"1,2.5"), L"1,2,5");
}

TEST(CvNStr, DoesNotGroupDecimals) {
    EXPECT_EQ(CvNStr(L"1.23456"), L"1,23456");
}

TEST(CvNStr, KeepsPlusSign) {
    EXPECT_EQ(CvNStr(L"+1000"), L"+1.000");
}

TEST(CvNStr, TrimsBlanks) {
    EXPECT_EQ(CvNStr(L"  1000 "), L"1.000");
}

TEST(CvNStr, EmptyFractionLeavesNoComma) {
    EXPECT_EQ(CvNStr(L"1000."), L"1.000");
}

TEST(CvNStr, FractionAloneKeepsItsComma) {
    EXPECT_EQ(CvNStr(L".5"), L",5");
}

TEST(CvNStr, EmptyTextStaysEmpty) {
    EXPECT_EQ(CvNStr(L""), L"");
}

TEST(CvTextToN, ReadsGroupsAndComma) {
    EXPECT_EQ(CvTextToN(L"-1.234,5"), -1234.5);
}

TEST(CvTextToN, ReadsGroupsWithoutComma) {
    EXPECT_EQ(CvTextToN(L"1.234"), 1234.0);
}

TEST(CvTextToN, ReadsMinusWithoutComma) {
    EXPECT_EQ(CvTextToN(L"-5"), -5.0);
}

TEST(CvTextToN, TextWithoutDigitsIsZero) {
    EXPECT_EQ(CvTextToN(L"abc"), 0.0);
    EXPECT_EQ(CvTextToN(L""), 0.0);
    EXPECT_EQ(CvTextToN(L","), 0.0);
}

TEST(CvTextToN, MinusAppliesToTheFractionToo) {
    EXPECT_EQ(CvTextToN(L"-0,25"), -0.25);
}

TEST(CvTextToN, BlankBeforeMinusKeepsTheFractionPositive) {
    EXPECT_EQ(CvTextToN(L" -1,5"), -0.5);
}

TEST(CvTextToN, TrimsBothParts) {
    EXPECT_EQ(CvTextToN(L"1 , 5"), 1.5);
}

TEST(CvTextToN, FractionKeepsItsLeadingZeros) {
    EXPECT_EQ(CvTextToN(L"1,05"), 1.05);
}

TEST(CvTextToN, NonNumericFractionCountsAsZero) {
    EXPECT_EQ(CvTextToN(L"12,x"), 12.0);
    EXPECT_EQ(CvTextToN(L"12,"), 12.0);
}

TEST(CvTextToN, NonNumericWholePartCountsAsZero) {
    EXPECT_EQ(CvTextToN(L"x,5"), 0.5);
}

TEST(CvTextToN, ReadsBackWhatCvNStrShows) {
    EXPECT_EQ(CvTextToN(CvNStr(L"-1234567.5")), -1234567.5);
    EXPECT_EQ(CvTextToN(CvNStr(L"1000000")), 1000000.0);
}
