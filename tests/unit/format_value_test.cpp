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
        EXPECT_EQ(FormatValue(L"012.50", type, L"=", kServer), L"012.50") << type;
}

TEST(FormatValue, NumberFieldPassesAnyTextThrough) {
    EXPECT_EQ(FormatValue(L"12a", 1, L"=", kServer), L"12a");
}

TEST(FormatValue, NumbersInAListGetBrackets) {
    for (long type : {1, 3, 13})
        EXPECT_EQ(FormatValue(L"1,2", type, L"IN", kServer), L"(1,2)") << type;
}

TEST(FormatValue, DateIsRearrangedBetweenHashes) {
    EXPECT_EQ(FormatValue(L"5/3/2021", 8, L">", kServer), L"#03/05/2021#");
    EXPECT_EQ(FormatValue(L"5/3/2021", 8, L">", kJet), L"#03/05/2021#");
}

TEST(FormatValue, NotADateLeavesTheHashesAlone) {
    EXPECT_EQ(FormatValue(L"soon", 8, L"=", kJet), L"##");
}

TEST(FormatValue, TextOnSqlServerHasPrefix) {
    for (long type : {10, 11})
        EXPECT_EQ(FormatValue(L"a", type, L"=", kServer), L"N'a'") << type;
}

TEST(FormatValue, TextOnJetHasNoPrefix) {
    for (long type : {10, 11})
        EXPECT_EQ(FormatValue(L"a", type, L"=", kJet), L"'a'") << type;
}

TEST(FormatValue, TextDoublesApostrophe) {
    EXPECT_EQ(FormatValue(L"O'Brien", 10, L"=", kJet), L"'O''Brien'");
    EXPECT_EQ(FormatValue(L"O'Brien", 10, L"=", kServer), L"N'O''Brien'");
}

TEST(FormatValue, TextDoublesDoubleQuote) {
    EXPECT_EQ(FormatValue(L"a\"b", 11, L"<>", kJet), L"'a\"\"b'");
}

TEST(FormatValue, LikeIsABeginsWithPattern) {
    EXPECT_EQ(FormatValue(L"x", 10, L"LIKE", kServer), L"N'x%'");
    EXPECT_EQ(FormatValue(L"x", 10, L"LIKE", kJet), L"'x%'");
}

TEST(FormatValue, LikeDoublesQuotesToo) {
    EXPECT_EQ(FormatValue(L"O'B", 11, L"LIKE", kJet), L"'O''B%'");
}

TEST(FormatValue, TextsInAListAreQuotedOneByOneWithoutPrefix) {
    EXPECT_EQ(FormatValue(L"a,b", 10, L"IN", kServer), L"('a','b')");
    EXPECT_EQ(FormatValue(L"a,b", 11, L"IN", kJet), L"('a','b')");
}

TEST(FormatValue, ListKeepsBlanksAndEmptyItems) {
    EXPECT_EQ(FormatValue(L"a, b,", 10, L"IN", kJet), L"('a',' b','')");
}

TEST(FormatValue, ListDoublesQuotesInItems) {
    EXPECT_EQ(FormatValue(L"O'B,c", 10, L"IN", kJet), L"('O''B','c')");
}

TEST(FormatValue, OtherTypesGiveEmptyText) {
    EXPECT_EQ(FormatValue(L"5", 4, L"=", kServer), L"");
    for (long type : {-1, 0, 2, 4, 5, 6, 7, 9, 12, 14, 100})
        EXPECT_EQ(FormatValue(L"5", type, L"IN", kServer), L"") << type;
}

TEST(CountChar, CountsEachMatch) {
    EXPECT_EQ(CountChar(L"((a)", L"("), 2);
    EXPECT_EQ(CountChar(L"((a)", L")"), 1);
}

TEST(CountChar, EmptyTextHasNone) {
    EXPECT_EQ(CountChar(L"", L"("), 0);
}

TEST(CountChar, TextWithoutMatchHasNone) {
    EXPECT_EQ(CountChar(L"abc", L"("), 0);
}

TEST(CountChar, CountsOverlappingMatches) {
    EXPECT_EQ(CountChar(L"aaaa", L"aa"), 3);
}

TEST(CountChar, MindsLetterCase) {
    EXPECT_EQ(CountChar(L"aAa", L"a"), 2);
}

TEST(ToUSDate, SwapsDayAndMonthAndPadsThem) {
    EXPECT_EQ(ToUSDate(L"5/3/2021"), L"03/05/2021");
}

TEST(ToUSDate, PadsTheYearToFourDigits) {
    EXPECT_EQ(ToUSDate(L"1/2/3"), L"02/01/0003");
    EXPECT_EQ(ToUSDate(L"1/2/24"), L"02/01/0024");
}

TEST(ToUSDate, KeepsTwoDigitParts) {
    EXPECT_EQ(ToUSDate(L"31/12/2024"), L"12/31/2024");
}

TEST(ToUSDate, SwapsWithoutLookingAtTheMeaning) {
    EXPECT_EQ(ToUSDate(L"12/31/2024"), L"31/12/2024");
}

TEST(ToUSDate, TrimsTheParts) {
    EXPECT_EQ(ToUSDate(L" 5 / 3 / 2021 "), L"03/05/2021");
}

TEST(ToUSDate, NotADateIsEmpty) {
    EXPECT_EQ(ToUSDate(L"soon"), L"");
    EXPECT_EQ(ToUSDate(L""), L"");
    EXPECT_EQ(ToUSDate(L"32/13/2021"), L"");
}

TEST(ToUSDate, TimeStaysBehindTheYear) {
    EXPECT_EQ(ToUSDate(L"5/3/2021 10:30"), L"03/05/2021 10:30");
}

TEST(ToUSDate, DateWithoutSlashesIsNotCut) {
    EXPECT_EQ(ToUSDate(L"5-3-2021"), L"//5-3-2021");
}
