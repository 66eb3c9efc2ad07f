// SPDX-License-Identifier: MIT
// Date texts of the ADO for Wine.
#include <gtest/gtest.h>

#include <cmath>

#include "ado/text/date_value.h"

namespace {

using namespace vndesk::ado;

std::wstring Literal(std::wstring_view text) {
    const auto date = ParseDateLiteral(text);
    return date ? IsoText(*date) : L"-";
}

std::wstring Iso(std::string_view text) {
    const auto date = ParseIsoDate(text);
    return date ? IsoText(*date) : L"-";
}

TEST(AdoDate, LiteralsAreMonthFirst) {
    EXPECT_EQ(L"2020-12-31", Literal(L"12/31/2020"));
    EXPECT_EQ(L"2020-01-02", Literal(L"1/2/2020"));
    EXPECT_EQ(L"2020-01-31", Literal(L"31/1/2020")) << "day first where month first is no date";
    EXPECT_EQ(L"2020-02-29", Literal(L"2-29-2020"));
    EXPECT_EQ(L"2020-03-04", Literal(L"2020-3-4"));
    EXPECT_EQ(L"2029-01-01", Literal(L"1/1/29"));
    EXPECT_EQ(L"1930-01-01", Literal(L"1/1/30"));
    EXPECT_EQ(L"0100-01-01", Literal(L"1/1/0100"));
}

TEST(AdoDate, LiteralTimes) {
    EXPECT_EQ(L"2020-01-02 03:04:05", Literal(L"1/2/2020 3:04:05"));
    EXPECT_EQ(L"2020-01-02 15:04:00", Literal(L" 1/2/2020 3:04 PM "));
    EXPECT_EQ(L"00:30:00", Literal(L"12:30 AM"));
    EXPECT_EQ(L"12:30:00", Literal(L"12:30 pm"));
    EXPECT_EQ(L"2020-01-02 15:00:00", Literal(L"1/2/2020 3 PM"));
    EXPECT_EQ(L"00:00:00", Literal(L"12AM"));
    EXPECT_EQ(L"00:30:00", Literal(L"0:30 am"));
}

TEST(AdoDate, BlanksInLiteralsDoNotMatter) {
    EXPECT_EQ(L"2020-01-02", Literal(L" 1 / 2 / 2020 "));
    EXPECT_EQ(L"2020-01-02 03:04:05", Literal(L"1/2/2020  3 : 04 : 05"));
}

TEST(AdoDate, WhatIsNoLiteral) {
    for (const wchar_t* text : {L"", L"2/30/2020", L"13/13/2020", L"1/2", L"1/2/2020 25:00",
                                L"1/2-2020", L"12", L"13:00 PM", L"1/2/2020 x", L"1/1/99999"})
        EXPECT_EQ(L"-", Literal(text)) << text;
}

TEST(AdoDate, DriversText) {
    EXPECT_EQ(L"2020-12-31", Iso("2020-12-31"));
    EXPECT_EQ(L"2020-12-31 23:59:58", Iso("2020-12-31 23:59:58"));
    EXPECT_EQ(L"2020-12-31 23:59:58", Iso("2020-12-31T23:59:58.123456Z"));
    EXPECT_EQ(L"2020-12-31 23:59:58", Iso("2020-12-31 23:59:58.5+07:30"));
    EXPECT_EQ(L"2020-12-31 23:59:00", Iso("2020-12-31 23:59"));
    EXPECT_EQ(L"10:11:12", Iso("10:11:12"));
    for (const char* text : {"", "2020", "2020-13-01", "2020-02-30", "20-01-01", "2020-01-01x",
                             "nodate", "2020-01-01 24:00", "12345", "0044-03-15", "2020-01-01 BC"})
        EXPECT_EQ(L"-", Iso(text)) << text;
}

TEST(AdoDate, CountedAsHostsCount) {
    EXPECT_EQ(0, ToOleDate(*ParseIsoDate("1899-12-30")));
    EXPECT_EQ(1, ToOleDate(*ParseIsoDate("1899-12-31")));
    EXPECT_EQ(36526, ToOleDate(*ParseIsoDate("2000-01-01")));
    EXPECT_EQ(43890.75, ToOleDate(*ParseIsoDate("2020-02-29 18:00:00")));
    EXPECT_EQ(-1.25, ToOleDate(*ParseIsoDate("1899-12-29 06:00:00")));
    EXPECT_EQ(-657434, ToOleDate(*ParseIsoDate("0100-01-01")));
    EXPECT_EQ(2958465, ToOleDate(*ParseIsoDate("9999-12-31")));
    EXPECT_EQ(0.5, ToOleDate(*ParseIsoDate("12:00:00")));
}

TEST(AdoDate, BackFromWhatHostsCount) {
    const auto text = [](double date) {
        const auto value = FromOleDate(date);
        return value ? IsoText(*value) : L"-";
    };
    EXPECT_EQ(L"1899-12-30", text(0));
    EXPECT_EQ(L"1899-12-30 12:00:00", text(0.5));
    EXPECT_EQ(L"2020-02-29 18:00:00", text(43890.75));
    EXPECT_EQ(L"1899-12-29 06:00:00", text(-1.25)) << "time counts forward";
    EXPECT_EQ(L"0100-01-01", text(-657434));
    EXPECT_EQ(L"0100-01-01 12:00:00", text(-657434.5));
    EXPECT_EQ(L"9999-12-31 23:59:59", text(2958465 + 86399.0 / 86400));
    EXPECT_EQ(L"2020-01-02", text(43831 + 0.9999999)) << "rounded to whole seconds";
    EXPECT_EQ(L"1899-12-30", text(-1.9999999));
    for (const double none :
         {-657435.0, 2958466.0, 2958465.9999999, 1e300, -1e300, std::nan(""), HUGE_VAL})
        EXPECT_EQ(L"-", text(none)) << none;
    for (int day = -657434; day <= 2958465; ++day) {
        const auto value = FromOleDate(day);
        ASSERT_TRUE(value && !value->hasTime) << day;
        ASSERT_EQ(day, ToOleDate(*value));
    }
}

} // namespace
