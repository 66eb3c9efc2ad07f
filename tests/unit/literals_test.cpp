// SPDX-License-Identifier: MIT
// Values written into statement text.
#include "data/text/literals.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {
constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
} // namespace

TEST(UnicodePrefix, IsNOnSqlServer) {
    EXPECT_EQ(UnicodePrefix(kServer), L"N");
}

TEST(UnicodePrefix, IsEmptyOnJet) {
    EXPECT_EQ(UnicodePrefix(kJet), L"");
}

TEST(DatabaseKindTest, HasTheNumbersThatHostsSee) {
    EXPECT_EQ(static_cast<int>(kJet), 0);
    EXPECT_EQ(static_cast<int>(kServer), 1);
}

TEST(SqlQuote, PutsApostrophesAroundOnJet) {
    EXPECT_EQ(SqlQuote(L"An", kJet), L"'An'");
}

TEST(SqlQuote, PutsPrefixInFrontOnSqlServer) {
    EXPECT_EQ(SqlQuote(L"An", kServer), L"N'An'");
}

TEST(SqlQuote, LeavesInnerQuotesAlone) {
    EXPECT_EQ(SqlQuote(L"O'Brien \"B\"", kServer), L"N'O'Brien \"B\"'");
}

TEST(SqlQuote, QuotesEmptyText) {
    EXPECT_EQ(SqlQuote(L"", kJet), L"''");
}

TEST(MayMeanMore, TextsWithoutApostrophesAreTexts) {
    EXPECT_FALSE(MayMeanMore({}));
    EXPECT_FALSE(MayMeanMore({L"", L"Đỗ Thị Hường", L"x) -- ; \"y\" [z] /* \\ $$"}));
    EXPECT_FALSE(MayMeanMore({L"an"}, L"O''Brien -- \"x\""));
}

TEST(MayMeanMore, OneLiteralLeftOpenIsRefusedByEveryEngine) {
    EXPECT_FALSE(MayMeanMore({L"O'Brien"}));
    EXPECT_FALSE(MayMeanMore({L"x'y'z'", L"Kho (cũ), 5%", L""}));
    EXPECT_FALSE(MayMeanMore({L"O'Brien"}, L"O''Brien"));
}

TEST(MayMeanMore, EvenApostrophesCloseWhatTheyOpen) {
    for (const wchar_t* text : {L"x') OR (Code=3) OR ('1'='2", L"x' or 'a'='a", L"O''Brien",
                                L"x' delete Groups where 'a'='a"})
        EXPECT_TRUE(MayMeanMore({text})) << text;
    // Each leaves its own open, and both together none.
    EXPECT_TRUE(MayMeanMore({L"O'Brien", L"D'Arcy"}));
    // Some statements hold one of them alone.
    EXPECT_TRUE(MayMeanMore({L"x' or 'a'='a", L"D'Arcy"}));
}

TEST(WithoutPairs, LeavesWhatEndsALiteral) {
    EXPECT_EQ(L"OBrien", WithoutPairs(L"O''Brien"));
    EXPECT_EQ(L"OBrien", WithoutPairs(L"''O''''Brien''"));
    EXPECT_EQ(L"O'Brien", WithoutPairs(L"O'''Brien"));
    EXPECT_EQ(L"x') OR ('1'='2", WithoutPairs(L"x') OR ('1'='2"));
    EXPECT_EQ(L"O\\''Brien", WithoutPairs(L"O\\''Brien"));
}

TEST(MayMeanMore, WhatHidesAnApostropheMayCloseTheLiteral) {
    for (const std::wstring& text :
         {std::wstring(L"thu') --"), std::wstring(L"x' /*"), std::wstring(L"x'; drop"),
          std::wstring(L"x' or \"'\"='"), std::wstring(L"x' or $$'$$='"),
          std::wstring(L"x' or E'\\'' <> '"), std::wstring(L"x' or [a'b]='"),
          std::wstring(L"Admin'\0", 7)})
        EXPECT_TRUE(MayMeanMore({text}));
    EXPECT_TRUE(MayMeanMore({L"O'Brien", L"--"}));
    EXPECT_TRUE(MayMeanMore({L"O'Brien"}, L"x) --"));
}

TEST(DoubleQuotes, DoublesApostrophes) {
    EXPECT_EQ(DoubleQuotes(L"O'Brien"), L"O''Brien");
}

TEST(DoubleQuotes, DoublesDoubleQuotes) {
    EXPECT_EQ(DoubleQuotes(L"a\"b"), L"a\"\"b");
}

TEST(DoubleQuotes, DoublesEachOfARow) {
    EXPECT_EQ(DoubleQuotes(L"'''\"\"'"), L"''''''\"\"\"\"''");
}

TEST(DoubleQuotes, LeavesOtherTextAlone) {
    EXPECT_EQ(DoubleQuotes(L"`a\u2019b"), L"`a\u2019b");
}

TEST(Literal, TextOnSqlServerDoublesApostrophe) {
    EXPECT_EQ(Literal(L"O'Brien", L"S", kServer), L"N'O''Brien'");
}

TEST(Literal, TextDoublesDoubleQuote) {
    EXPECT_EQ(Literal(L"a\"b", L"S", kServer), L"N'a\"\"b'");
}

TEST(Literal, TextOnJetHasNoPrefix) {
    EXPECT_EQ(Literal(L"x", L"S", kJet), L"'x'");
}

TEST(Literal, EmptyKindIsText) {
    EXPECT_EQ(Literal(L"O'B", L"", kServer), L"N'O''B'");
}

TEST(Literal, NonNumericNumberIsZero) {
    EXPECT_EQ(Literal(L"12abc", L"N", kServer), L"0");
}

TEST(Literal, NumberKeepsItsDecimals) {
    EXPECT_EQ(Literal(L"2.5", L"N", kServer), L"2.5");
}

TEST(Literal, NumberIsRewritten) {
    EXPECT_EQ(Literal(L" +007.50 ", L"N", kJet), L"7.5");
}

TEST(Literal, EmptyNumberIsZero) {
    EXPECT_EQ(Literal(L"", L"N", kJet), L"0");
}

TEST(Literal, DateOnSqlServerStandsInApostrophes) {
    EXPECT_EQ(Literal(L"5/3/2021", L"D", kServer), L"'5/3/2021'");
}

TEST(Literal, DateOnJetStandsInHashes) {
    EXPECT_EQ(Literal(L"5/3/2021", L"D", kJet), L"#5/3/2021#");
}

TEST(Literal, DateIsNotChecked) {
    EXPECT_EQ(Literal(L"soon", L"D", kJet), L"#soon#");
}

TEST(Literal, RightPatternOnSqlServer) {
    EXPECT_EQ(Literal(L"O'B", L"LR", kServer), L"N'O''B%'");
}

TEST(Literal, RightPatternOnJet) {
    EXPECT_EQ(Literal(L"a", L"LR", kJet), L"'a%'");
}

TEST(Literal, PatternAtBothEnds) {
    EXPECT_EQ(Literal(L"O'B", L"LL", kServer), L"N'%O''B%'");
}

TEST(Literal, BothNamesOfThePatternAtBothEndsAgree) {
    EXPECT_EQ(Literal(L"a\"b", L"LA", kJet), Literal(L"a\"b", L"LL", kJet));
    EXPECT_EQ(Literal(L"a", L"LA", kJet), L"'%a%'");
}

TEST(Literal, KindIgnoresLetterCase) {
    EXPECT_EQ(Literal(L"2.5", L"n", kJet), L"2.5");
    EXPECT_EQ(Literal(L"a", L"lR", kJet), L"'a%'");
    EXPECT_EQ(Literal(L"a", L"s", kJet), L"'a'");
    EXPECT_EQ(Literal(L"a", L"d", kJet), L"#a#");
}

TEST(Literal, UnknownKindIsEmpty) {
    EXPECT_EQ(Literal(L"a", L"X", kServer), L"");
    EXPECT_EQ(Literal(L"5", L"NN", kServer), L"");
    EXPECT_EQ(Literal(L"a", L" S", kServer), L"");
}

TEST(FieldValue, TextOnJetEndsWithABlank) {
    EXPECT_EQ(FieldValue(L"abc", 10, kJet), L"'abc '");
}

TEST(FieldValue, TextOnSqlServerHasPrefix) {
    EXPECT_EQ(FieldValue(L"abc", 10, kServer), L"N'abc '");
}

TEST(FieldValue, TextIsEscaped) {
    EXPECT_EQ(FieldValue(L"O'B\"", 10, kJet), L"'O''B\"\" '");
}

TEST(FieldValue, NumberIsWrittenAsGiven) {
    EXPECT_EQ(FieldValue(L"02.50", 3, kJet), L"02.50");
}

TEST(FieldValue, NonNumericNumberIsOne) {
    EXPECT_EQ(FieldValue(L"12a", 3, kJet), L"1");
}

TEST(FieldValue, DateStandsInHashesOnBothKinds) {
    EXPECT_EQ(FieldValue(L"31/12/2024", 8, kJet), L"#31/12/2024#");
    EXPECT_EQ(FieldValue(L"31/12/2024", 8, kServer), L"#31/12/2024#");
}

TEST(FieldValue, NotADateIsOne) {
    EXPECT_EQ(FieldValue(L"31/31/2024", 8, kJet), L"1");
}

TEST(FieldValue, UnknownCodeIsOne) {
    EXPECT_EQ(FieldValue(L"abc", 11, kJet), L"1");
    EXPECT_EQ(FieldValue(L"5", 0, kServer), L"1");
}
