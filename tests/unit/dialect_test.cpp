// SPDX-License-Identifier: MIT
// How each engine writes names, texts, patterns and dates, where a host has named it.
#include "data/text/dialect.h"

#include <gtest/gtest.h>

#include "data/text/date_text.h"
#include "data/text/dialect_names.h"
#include "data/text/reserved_words.h"

using namespace vndesk;

namespace {

struct EachEngine {
    std::wstring jet, sqlServer, postgreSql, sqlite, mySql;
};

template <class Write> void ExpectEach(const EachEngine& expected, Write write) {
    EXPECT_EQ(expected.jet, write(DialectOf(Engine::Jet)));
    EXPECT_EQ(expected.sqlServer, write(DialectOf(Engine::SqlServer)));
    EXPECT_EQ(expected.postgreSql, write(DialectOf(Engine::PostgreSql)));
    EXPECT_EQ(expected.sqlite, write(DialectOf(Engine::Sqlite)));
    EXPECT_EQ(expected.mySql, write(DialectOf(Engine::MySql)));
}

void ExpectText(std::wstring_view text, const EachEngine& expected) {
    ExpectEach(expected, [text](const Dialect& dialect) { return TextLiteral(text, dialect); });
}

void ExpectDate(std::wstring_view typed, const EachEngine& expected) {
    const std::optional<Moment> date = ReadDate(typed);
    ASSERT_TRUE(date);
    ExpectEach(expected, [date](const Dialect& dialect) { return DateLiteral(*date, dialect); });
}

void ExpectOwn(std::wstring_view text, const EachEngine& expected) {
    ExpectEach(expected, [text](const Dialect& dialect) { return OwnText(text, dialect); });
}

void ExpectCatalogued(std::wstring_view name, const EachEngine& expected) {
    ExpectEach(expected, [name](const Dialect& dialect) { return CatalogueName(name, dialect); });
}

void ExpectUnchanged(std::wstring_view name) {
    const std::wstring as(name);
    ExpectCatalogued(name, {as, as, as, as, as});
}

TEST(DialectTest, TextsHaveThePrefixOfSqlServerOnly) {
    ExpectText(L"Hà Nội", {L"'Hà Nội'", L"N'Hà Nội'", L"'Hà Nội'", L"'Hà Nội'", L"'Hà Nội'"});
}

TEST(DialectTest, EveryCharacterOfATextMeansItself) {
    ExpectText(L"O'Brien",
               {L"'O''Brien'", L"N'O''Brien'", L"'O''Brien'", L"'O''Brien'", L"'O''Brien'"});
    ExpectText(L"5\" C:\\x\\'", {L"'5\" C:\\x\\'''", L"N'5\" C:\\x\\'''", L"E'5\" C:\\\\x\\\\'''",
                                 L"'5\" C:\\x\\'''", L"'5\" C:\\\\x\\\\'''"});
}

TEST(DialectTest, PatternsKeepTypedWildcardsAndMakeLettersOfBackslashes) {
    ExpectEach({L"'a%b\\%'", L"N'a%b\\%'", L"E'a%b\\\\\\\\%'", L"'a%b\\%'", L"'a%b\\\\\\\\%'"},
               [](const Dialect& dialect) { return PatternLiteral(L"a%b\\", dialect); });
    ExpectEach({L"a%b\\%", L"a%b\\%", L"a%b\\\\%", L"a%b\\%", L"a%b\\\\%"},
               [](const Dialect& dialect) { return PatternOf(L"a%b\\", dialect); });
}

TEST(DialectTest, DaysAreWrittenSoThatNoLocaleReadsThemOtherwise) {
    ExpectDate(L"5/3/2021", {L"#03/05/2021#", L"'20210305'", L"DATE '2021-03-05'", L"'2021-03-05'",
                             L"DATE '2021-03-05'"});
    ExpectDate(L"31/12/0999", {L"#12/31/0999#", L"'09991231'", L"DATE '0999-12-31'",
                               L"'0999-12-31'", L"DATE '0999-12-31'"});
}

TEST(DialectTest, DaysMayHaveATime) {
    ExpectDate(L"5/3/2021 7:08:09 PM",
               {L"#03/05/2021 19:08:09#", L"'20210305 19:08:09'",
                L"TIMESTAMP '2021-03-05 19:08:09'", L"'2021-03-05 19:08:09'",
                L"TIMESTAMP '2021-03-05 19:08:09'"});
    // Before the first day of COM's dates the time counts on from the day, too.
    ExpectDate(L"1/2/1899 06:00", {L"#02/01/1899 06:00:00#", L"'18990201 06:00:00'",
                                   L"TIMESTAMP '1899-02-01 06:00:00'", L"'1899-02-01 06:00:00'",
                                   L"TIMESTAMP '1899-02-01 06:00:00'"});
}

TEST(DialectTest, AMomentThatRoundsUpToMidnightIsTheNextDay) {
    EXPECT_EQ(L"'20210306'", DateLiteral(Moment{44260.999999}, DialectOf(Engine::SqlServer)));
}

TEST(DialectTest, NamesOfOwnTextAreQuotedWordsOfTheLanguageAreNot) {
    ExpectOwn(L"Select [Name],Dec From LstFld Where Type Is Not Null Order By [code]",
              {L"Select [Name],[Dec] From [LstFld] Where [Type] Is Not Null Order By [Code]",
               L"Select [Name],[Dec] From [LstFld] Where [Type] Is Not Null Order By [Code]",
               L"Select \"name\",\"dec\" From \"lstfld\" Where \"type\" Is Not Null Order By "
               L"\"code\"",
               L"Select [Name],[Dec] From [LstFld] Where [Type] Is Not Null Order By [Code]",
               L"Select `Name`,`Dec` From `LstFld` Where `Type` Is Not Null Order By `Code`"});
}

// A MySQL server on Linux tells tables by the case of their letters.
TEST(DialectTest, TheTableOfUsersHasOneSpelling) {
    ExpectOwn(L"[USER] [user] User",
              {L"[User] [User] [User]", L"[User] [User] [User]", L"\"user\" \"user\" \"user\"",
               L"[User] [User] [User]", L"`User` `User` `User`"});
}

TEST(DialectTest, NumbersOfOwnTextStayNumbers) {
    ExpectOwn(L" Where 1=0",
              {L" Where 1=0", L" Where 1=0", L" Where 1=0", L" Where 1=0", L" Where 1=0"});
}

TEST(DialectTest, BareNamesOfTheCatalogueStayAsTheyAre) {
    for (const wchar_t* name :
         {L"MaKH", L"NgàyLập", L"KhachHang.MaKH", L"dbo.KhachHang.MaKH", L"_x1", L"1", L"1.5"})
        ExpectUnchanged(name);
}

TEST(DialectTest, ReservedNamesOfTheCatalogueAreQuoted) {
    ExpectCatalogued(L"Desc", {L"[Desc]", L"[Desc]", L"\"desc\"", L"[Desc]", L"`Desc`"});
    ExpectCatalogued(L"Order.Group",
                     {L"[Order].[Group]", L"[Order].[Group]", L"\"order\".\"group\"",
                      L"[Order].[Group]", L"`Order`.`Group`"});
    ExpectCatalogued(L"2nd", {L"[2nd]", L"[2nd]", L"\"2nd\"", L"[2nd]", L"`2nd`"});
}

TEST(DialectTest, NamesWithBlanksAreQuotedAsAWhole) {
    ExpectCatalogued(L" Ngày lập ",
                     {L"[Ngày lập]", L"[Ngày lập]", L"\"ngày lập\"", L"[Ngày lập]", L"`Ngày lập`"});
}

TEST(DialectTest, BracketsOfTheCatalogueBecomeTheEnginesQuotes) {
    ExpectCatalogued(L"[Khach Hang].[Desc]",
                     {L"[Khach Hang].[Desc]", L"[Khach Hang].[Desc]", L"\"khach hang\".\"desc\"",
                      L"[Khach Hang].[Desc]", L"`Khach Hang`.`Desc`"});
    ExpectCatalogued(L"[a]]b\"`c]", {L"[a]]b\"`c]", L"[a]]b\"`c]", L"\"a]b\"\"`c\"", L"[a]]b\"`c]",
                                     L"`a]b\"``c`"});
}

TEST(DialectTest, WhatTheHostHasQuotedForTheEngineStays) {
    ExpectUnchanged(L"\"TenKH\"");
    ExpectUnchanged(L"`TenKH`");
}

TEST(DialectTest, ExpressionsOfTheCatalogueStayExpressions) {
    for (const wchar_t* text :
         {L"upper(Ten)", L"a + b", L"Ten COLLATE Vietnamese_CI_AS", L"ngay AT TIME ZONE 'UTC'",
          L"Case When a=1 Then b Else c End", L"CURRENT_DATE", L"''", L"-- x"})
        ExpectUnchanged(text);
    ExpectCatalogued(L"upper([Ten])", {L"upper([Ten])", L"upper([Ten])", L"upper(\"ten\")",
                                       L"upper([Ten])", L"upper(`Ten`)"});
    // The place in an array.
    ExpectUnchanged(L"upper(nhan[1])");
}

TEST(DialectTest, NamesThatTheEngineHasToldKeepTheirLetters) {
    ExpectEach({L"[P1]", L"[P1]", L"\"P1\"", L"[P1]", L"`P1`"},
               [](const Dialect& dialect) { return ReportedName(L"P1", dialect); });
}

TEST(DialectTest, ReservedWordsAreFoundInAnyCaseAndWhole) {
    for (const wchar_t* word : {L"accessible", L"ZONE", L"User", L"tOp", L"RANK"})
        EXPECT_TRUE(IsReservedWord(word)) << word;
    for (const wchar_t* word : {L"", L"er", L"MaKH", L"Name", L"use r", L"null"})
        EXPECT_FALSE(IsReservedWord(word)) << word;
}

TEST(DialectTest, AutoIsNoDialect) {
    EXPECT_EQ(nullptr, DialectOf(DialectChoice::Auto));
    EXPECT_EQ(&DialectOf(Engine::MySql), DialectOf(DialectChoice::MySql));
    EXPECT_EQ(&DialectOf(Engine::Jet), DialectOf(DialectChoice::Jet));
}

} // namespace
