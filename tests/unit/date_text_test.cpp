// SPDX-License-Identifier: MIT
// Which texts are dates.
#include "data/text/date_text.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(IsDate, AcceptsDayMonthYear) {
    EXPECT_TRUE(IsDate(L"5/3/2021"));
    EXPECT_TRUE(IsDate(L"31/12/2024"));
}

TEST(IsDate, AcceptsOtherSeparators) {
    EXPECT_TRUE(IsDate(L"5-3-2021"));
    EXPECT_TRUE(IsDate(L"5.3.2021"));
}

TEST(IsDate, AcceptsMonthFirstWhenOnlyThatIsReal) {
    EXPECT_TRUE(IsDate(L"12/31/2024"));
}

TEST(IsDate, RefusesWhenNeitherReadingIsReal) {
    EXPECT_FALSE(IsDate(L"31/31/2024"));
    EXPECT_FALSE(IsDate(L"13/13/2024"));
    EXPECT_FALSE(IsDate(L"31/4/2024"));
}

TEST(IsDate, RefusesZeroDayOrMonth) {
    EXPECT_FALSE(IsDate(L"0/3/2021"));
    EXPECT_FALSE(IsDate(L"3/0/2021"));
}

TEST(IsDate, AcceptsYearFirst) {
    EXPECT_TRUE(IsDate(L"2021-03-05"));
    EXPECT_TRUE(IsDate(L"2021/12/31"));
    EXPECT_FALSE(IsDate(L"2021-13-32"));
}

TEST(IsDate, KnowsLeapYears) {
    EXPECT_TRUE(IsDate(L"29/2/2024"));
    EXPECT_FALSE(IsDate(L"29/2/2023"));
    EXPECT_TRUE(IsDate(L"29/2/2000"));
    EXPECT_FALSE(IsDate(L"29/2/1900"));
    EXPECT_FALSE(IsDate(L"30/2/2024"));
}

TEST(IsDate, ReadsTwoDigitYearsIn1930To2029) {
    EXPECT_TRUE(IsDate(L"1/1/24"));
    // 2000 and 1972 are leap years, 2029 and 1930 are not.
    EXPECT_TRUE(IsDate(L"29/2/00"));
    EXPECT_TRUE(IsDate(L"29/2/72"));
    EXPECT_FALSE(IsDate(L"29/2/29"));
    EXPECT_FALSE(IsDate(L"29/2/30"));
}

TEST(IsDate, AcceptsYearsOfOneToFourDigits) {
    EXPECT_TRUE(IsDate(L"1/2/0003"));
    EXPECT_TRUE(IsDate(L"1/2/203"));
    EXPECT_TRUE(IsDate(L"1/2/3"));
}

TEST(IsDate, AcceptsBlanksAroundTheParts) {
    EXPECT_TRUE(IsDate(L" 5 / 3 / 2021 "));
}

TEST(IsDate, RefusesMissingParts) {
    EXPECT_FALSE(IsDate(L""));
    EXPECT_FALSE(IsDate(L"5"));
    EXPECT_FALSE(IsDate(L"5/3"));
    EXPECT_FALSE(IsDate(L"5/3/"));
    EXPECT_FALSE(IsDate(L"/5/3"));
    EXPECT_FALSE(IsDate(L"5//2021"));
}

TEST(IsDate, RefusesMixedSeparators) {
    EXPECT_FALSE(IsDate(L"5/3-2021"));
}

TEST(IsDate, RefusesFourthPart) {
    EXPECT_FALSE(IsDate(L"5/3/2021/1"));
}

TEST(IsDate, RefusesLettersAndSigns) {
    EXPECT_FALSE(IsDate(L"abc"));
    EXPECT_FALSE(IsDate(L"5/x/2021"));
    EXPECT_FALSE(IsDate(L"5/-3/2021"));
    EXPECT_FALSE(IsDate(L"5/3/2021x"));
}

TEST(IsDate, RefusesTooManyDigits) {
    EXPECT_FALSE(IsDate(L"5/3/20211"));
    EXPECT_FALSE(IsDate(L"5/123/2021"));
    EXPECT_FALSE(IsDate(L"99999999999999999999/1/1"));
}

TEST(IsDate, AcceptsTimeAfterTheDate) {
    EXPECT_TRUE(IsDate(L"5/3/2021 10:30"));
    EXPECT_TRUE(IsDate(L"5/3/2021  23:59:59"));
    EXPECT_TRUE(IsDate(L"5/3/2021 10:30 PM"));
    EXPECT_TRUE(IsDate(L"5/3/2021 10am"));
    EXPECT_TRUE(IsDate(L"5/3/2021 0:30 AM"));
}

TEST(IsDate, RefusesImpossibleTime) {
    EXPECT_FALSE(IsDate(L"5/3/2021 24:00"));
    EXPECT_FALSE(IsDate(L"5/3/2021 10:60"));
    EXPECT_FALSE(IsDate(L"5/3/2021 13:00 PM"));
    EXPECT_FALSE(IsDate(L"5/3/2021 10"));
    EXPECT_FALSE(IsDate(L"5/3/2021 10:"));
    EXPECT_FALSE(IsDate(L"5/3/2021 10:30:15:1"));
}
