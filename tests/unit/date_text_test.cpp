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

namespace {

// Days since 30 December 1899, with the part of the day behind the point; 0 for no date.
double Days(const wchar_t* text) {
    const auto moment = ReadDate(text);
    return moment ? moment->days : 0;
}

constexpr double kDay = 38001; // 15 January 2004

} // namespace

TEST(ReadDate, DayComesFirst) {
    EXPECT_EQ(kDay, Days(L"15/1/2004"));
    EXPECT_EQ(44260, Days(L"5/3/2021"));
    EXPECT_EQ(1, Days(L"31/12/1899"));
    EXPECT_EQ(0, Days(L"soon"));
}

TEST(ReadDate, EveryFormThatCountsIsThatDate) {
    for (const wchar_t* text : {L"15-1-2004", L"15.1.2004", L" 15 / 01 / 2004 ", L"1/15/2004",
                                L"2004-01-15", L"2004/1/15", L"2004.15.1", L"15/1/04", L"15/1/4"})
        EXPECT_EQ(kDay, Days(text)) << text;
}

TEST(ReadDate, YearsBelow100AreThoseOf1930To2029) {
    EXPECT_EQ(Days(L"1/1/2029"), Days(L"1/1/29"));
    EXPECT_EQ(Days(L"1/1/1930"), Days(L"1/1/30"));
    EXPECT_EQ(Days(L"1/1/1999"), Days(L"1/1/99"));
    EXPECT_EQ(Days(L"29/2/2000"), Days(L"29/2/00"));
    EXPECT_EQ(Days(L"29/2/2004"), Days(L"29/2/0004"));
}

TEST(ReadDate, EndsOfTheCalendar) {
    EXPECT_EQ(2958465, Days(L"31/12/9999"));
    EXPECT_EQ(-657434, Days(L"1/1/100"));
}

TEST(ReadDate, TimeIsThePartOfTheDay) {
    EXPECT_EQ(kDay + 0.4375, Days(L"15/1/2004 10:30"));
    EXPECT_EQ(kDay + 0.4375, Days(L"15/1/2004 10:30:00 am"));
    EXPECT_EQ(kDay + 0.9375, Days(L"15/1/2004 10:30 PM"));
    EXPECT_EQ(kDay, Days(L"15/1/2004 12am"));
    EXPECT_EQ(kDay + 0.5, Days(L"15/1/2004 12 PM"));
    EXPECT_EQ(kDay + 0.5, Days(L"15/1/2004 0 PM"));
    EXPECT_DOUBLE_EQ(kDay + 86399 / 86400.0, Days(L"15/1/2004 23:59:59"));
    EXPECT_EQ(-1.25, Days(L"29/12/1899 6:00")) << "counted on from the day before 1900, too";
}
