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
    EXPECT_EQ(L"N", UnicodePrefix(kServer));
}

TEST(UnicodePrefix, IsEmptyOnJet) {
    EXPECT_EQ(L"", UnicodePrefix(kJet));
}

TEST(DatabaseKindTest, HasTheNumbersThatHostsSee) {
    EXPECT_EQ(0, static_cast<int>(kJet));
    EXPECT_EQ(1, static_cast<int>(kServer));
}

TEST(SqlQuote, PutsApostrophesAroundOnJet) {
    EXPECT_EQ(L"'An'", SqlQuote(L"An", kJet));
}

TEST(SqlQuote, PutsPrefixInFrontOnSqlServer) {
    EXPECT_EQ(L"N'An'", SqlQuote(L"An", kServer));
}

TEST(SqlQuote, LeavesInnerQuotesAlone) {
    EXPECT_EQ(L"N'O'Brien \"B\"'", SqlQuote(L"O'Brien \"B\"", kServer));
}

TEST(SqlQuote, QuotesEmptyText) {
    EXPECT_EQ(L"''", SqlQuote(L"", kJet));
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
    EXPECT_EQ(L"O''Brien", DoubleQuotes(L"O'Brien"));
}

TEST(DoubleQuotes, DoublesDoubleQuotes) {
    EXPECT_EQ(L"a\"\"b", DoubleQuotes(L"a\"b"));
}

TEST(DoubleQuotes, DoublesEachOfARow) {
    EXPECT_EQ(L"''''''\"\"\"\"''", DoubleQuotes(L"'''\"\"'"));
}

TEST(DoubleQuotes, LeavesOtherTextAlone) {
    EXPECT_EQ(L"`a\u2019b", DoubleQuotes(L"`a\u2019b"));
}

TEST(Literal, TextOnSqlServerDoublesApostrophe) {
    EXPECT_EQ(L"N'O''Brien'", Literal(L"O'Brien", L"S", kServer));
}

TEST(Literal, TextDoublesDoubleQuote) {
    EXPECT_EQ(L"N'a\"\"b'", Literal(L"a\"b", L"S", kServer));
}

TEST(Literal, TextOnJetHasNoPrefix) {
    EXPECT_EQ(L"'x'", Literal(L"x", L"S", kJet));
}

TEST(Literal, EmptyKindIsText) {
    EXPECT_EQ(L"N'O''B'", Literal(L"O'B", L"", kServer));
}

TEST(Literal, NonNumericNumberIsZero) {
    EXPECT_EQ(L"0", Literal(L"12abc", L"N", kServer));
}

TEST(Literal, NumberKeepsItsDecimals) {
    EXPECT_EQ(L"2.5", Literal(L"2.5", L"N", kServer));
}

TEST(Literal, NumberIsRewritten) {
    EXPECT_EQ(L"7.5", Literal(L" +007.50 ", L"N", kJet));
}

TEST(Literal, EmptyNumberIsZero) {
    EXPECT_EQ(L"0", Literal(L"", L"N", kJet));
}

TEST(Literal, DateOnSqlServerStandsInApostrophes) {
    EXPECT_EQ(L"'5/3/2021'", Literal(L"5/3/2021", L"D", kServer));
}

TEST(Literal, DateOnJetStandsInHashes) {
    EXPECT_EQ(L"#5/3/2021#", Literal(L"5/3/2021", L"D", kJet));
}

TEST(Literal, DateIsNotChecked) {
    EXPECT_EQ(L"#soon#", Literal(L"soon", L"D", kJet));
}

TEST(Literal, RightPatternOnSqlServer) {
    EXPECT_EQ(L"N'O''B%'", Literal(L"O'B", L"LR", kServer));
}

TEST(Literal, RightPatternOnJet) {
    EXPECT_EQ(L"'a%'", Literal(L"a", L"LR", kJet));
}

TEST(Literal, PatternAtBothEnds) {
    EXPECT_EQ(L"N'%O''B%'", Literal(L"O'B", L"LL", kServer));
}

TEST(Literal, BothNamesOfThePatternAtBothEndsAgree) {
    EXPECT_EQ(Literal(L"a\"b", L"LL", kJet), Literal(L"a\"b", L"LA", kJet));
    EXPECT_EQ(L"'%a%'", Literal(L"a", L"LA", kJet));
}

TEST(Literal, KindIgnoresLetterCase) {
    EXPECT_EQ(L"2.5", Literal(L"2.5", L"n", kJet));
    EXPECT_EQ(L"'a%'", Literal(L"a", L"lR", kJet));
    EXPECT_EQ(L"'a'", Literal(L"a", L"s", kJet));
    EXPECT_EQ(L"#a#", Literal(L"a", L"d", kJet));
}

TEST(Literal, UnknownKindIsEmpty) {
    EXPECT_EQ(L"", Literal(L"a", L"X", kServer));
    EXPECT_EQ(L"", Literal(L"5", L"NN", kServer));
    EXPECT_EQ(L"", Literal(L"a", L" S", kServer));
}

TEST(FieldValue, TextOnJetEndsWithABlank) {
    EXPECT_EQ(L"'abc '", FieldValue(L"abc", 10, kJet));
}

TEST(FieldValue, TextOnSqlServerHasPrefix) {
    EXPECT_EQ(L"N'abc '", FieldValue(L"abc", 10, kServer));
}

TEST(FieldValue, TextIsEscaped) {
    EXPECT_EQ(L"'O''B\"\" '", FieldValue(L"O'B\"", 10, kJet));
}

TEST(FieldValue, NumberIsWrittenAsGiven) {
    EXPECT_EQ(L"02.50", FieldValue(L"02.50", 3, kJet));
}

TEST(FieldValue, NonNumericNumberIsOne) {
    EXPECT_EQ(L"1", FieldValue(L"12a", 3, kJet));
}

TEST(FieldValue, DateStandsInHashesOnBothKinds) {
    EXPECT_EQ(L"#31/12/2024#", FieldValue(L"31/12/2024", 8, kJet));
    EXPECT_EQ(L"#31/12/2024#", FieldValue(L"31/12/2024", 8, kServer));
}

TEST(FieldValue, NotADateIsOne) {
    EXPECT_EQ(L"1", FieldValue(L"31/31/2024", 8, kJet));
}

TEST(FieldValue, UnknownCodeIsOne) {
    EXPECT_EQ(L"1", FieldValue(L"abc", 11, kJet));
    EXPECT_EQ(L"1", FieldValue(L"5", 0, kServer));
}
