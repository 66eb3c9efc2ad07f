// SPDX-License-Identifier: MIT
// Values, dates and brackets of search conditions.
#include "find/text/format_value.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {
constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
} // namespace

TEST(FormatValue, NumbersStayAsTyped) {
    for (long type : {1, 3, 13})
        EXPECT_EQ(L"012.50", FormatValue(L"012.50", type, L"=", kServer)) << type;
}

TEST(FormatValue, NumberFieldPassesAnyTextThrough) {
    EXPECT_EQ(L"12a", FormatValue(L"12a", 1, L"=", kServer));
}

TEST(FormatValue, NumbersInAListGetBrackets) {
    for (long type : {1, 3, 13})
        EXPECT_EQ(L"(1,2)", FormatValue(L"1,2", type, L"IN", kServer)) << type;
}

TEST(FormatValue, DateIsRearrangedBetweenHashes) {
    EXPECT_EQ(L"#03/05/2021#", FormatValue(L"5/3/2021", 8, L">", kServer));
    EXPECT_EQ(L"#03/05/2021#", FormatValue(L"5/3/2021", 8, L">", kJet));
}

TEST(FormatValue, NotADateLeavesTheHashesAlone) {
    EXPECT_EQ(L"##", FormatValue(L"soon", 8, L"=", kJet));
}

TEST(FormatValue, TextOnSqlServerHasPrefix) {
    for (long type : {10, 11})
        EXPECT_EQ(L"N'a'", FormatValue(L"a", type, L"=", kServer)) << type;
}

TEST(FormatValue, TextOnJetHasNoPrefix) {
    for (long type : {10, 11})
        EXPECT_EQ(L"'a'", FormatValue(L"a", type, L"=", kJet)) << type;
}

TEST(FormatValue, TextDoublesApostrophe) {
    EXPECT_EQ(L"'O''Brien'", FormatValue(L"O'Brien", 10, L"=", kJet));
    EXPECT_EQ(L"N'O''Brien'", FormatValue(L"O'Brien", 10, L"=", kServer));
}

TEST(FormatValue, TextDoublesDoubleQuote) {
    EXPECT_EQ(L"'a\"\"b'", FormatValue(L"a\"b", 11, L"<>", kJet));
}

TEST(FormatValue, LikeIsABeginsWithPattern) {
    EXPECT_EQ(L"N'x%'", FormatValue(L"x", 10, L"LIKE", kServer));
    EXPECT_EQ(L"'x%'", FormatValue(L"x", 10, L"LIKE", kJet));
}

TEST(FormatValue, LikeDoublesQuotesToo) {
    EXPECT_EQ(L"'O''B%'", FormatValue(L"O'B", 11, L"LIKE", kJet));
}

TEST(FormatValue, TextsInAListAreQuotedOneByOneWithoutPrefix) {
    EXPECT_EQ(L"('a','b')", FormatValue(L"a,b", 10, L"IN", kServer));
    EXPECT_EQ(L"('a','b')", FormatValue(L"a,b", 11, L"IN", kJet));
}

TEST(FormatValue, ListKeepsBlanksAndEmptyItems) {
    EXPECT_EQ(L"('a',' b','')", FormatValue(L"a, b,", 10, L"IN", kJet));
}

TEST(FormatValue, ListDoublesQuotesInItems) {
    EXPECT_EQ(L"('O''B','c')", FormatValue(L"O'B,c", 10, L"IN", kJet));
}

TEST(FormatValue, OtherTypesGiveEmptyText) {
    EXPECT_EQ(L"", FormatValue(L"5", 4, L"=", kServer));
    for (long type : {-1, 0, 2, 4, 5, 6, 7, 9, 12, 14, 100})
        EXPECT_EQ(L"", FormatValue(L"5", type, L"IN", kServer)) << type;
}

TEST(CountChar, CountsEachMatch) {
    EXPECT_EQ(2, CountChar(L"((a)", L"("));
    EXPECT_EQ(1, CountChar(L"((a)", L")"));
}

TEST(CountChar, EmptyTextHasNone) {
    EXPECT_EQ(0, CountChar(L"", L"("));
}

TEST(CountChar, TextWithoutMatchHasNone) {
    EXPECT_EQ(0, CountChar(L"abc", L"("));
}

TEST(CountChar, CountsOverlappingMatches) {
    EXPECT_EQ(3, CountChar(L"aaaa", L"aa"));
}

TEST(CountChar, MindsLetterCase) {
    EXPECT_EQ(2, CountChar(L"aAa", L"a"));
}

TEST(ToUSDate, SwapsDayAndMonthAndPadsThem) {
    EXPECT_EQ(L"03/05/2021", ToUSDate(L"5/3/2021"));
}

TEST(ToUSDate, PadsTheYearToFourDigits) {
    EXPECT_EQ(L"02/01/0003", ToUSDate(L"1/2/3"));
    EXPECT_EQ(L"02/01/0024", ToUSDate(L"1/2/24"));
}

TEST(ToUSDate, KeepsTwoDigitParts) {
    EXPECT_EQ(L"12/31/2024", ToUSDate(L"31/12/2024"));
}

TEST(ToUSDate, SwapsWithoutLookingAtTheMeaning) {
    EXPECT_EQ(L"31/12/2024", ToUSDate(L"12/31/2024"));
}

TEST(ToUSDate, TrimsTheParts) {
    EXPECT_EQ(L"03/05/2021", ToUSDate(L" 5 / 3 / 2021 "));
}

TEST(ToUSDate, NotADateIsEmpty) {
    EXPECT_EQ(L"", ToUSDate(L"soon"));
    EXPECT_EQ(L"", ToUSDate(L""));
    EXPECT_EQ(L"", ToUSDate(L"32/13/2021"));
}

TEST(ToUSDate, TimeStaysBehindTheYear) {
    EXPECT_EQ(L"03/05/2021 10:30", ToUSDate(L"5/3/2021 10:30"));
}

TEST(ToUSDate, DateWithoutSlashesIsNotCut) {
    EXPECT_EQ(L"//5-3-2021", ToUSDate(L"5-3-2021"));
}
