// SPDX-License-Identifier: MIT
// Rewriting of statements for the engine at hand by the ADO for Wine.
#include <gtest/gtest.h>

#include "ado/text/dialect.h"

namespace {

using namespace vndesk::ado;

const Dialect kSqlite = DialectOf(L"SQLite", L'"');
const Dialect kPostgres = DialectOf(L"PostgreSQL", L'"');
const Dialect kOther = DialectOf(L"MariaDB", L'`');
const Dialect kServer = DialectOf(L"Microsoft SQL Server", L'"');
const Dialect kAccess = DialectOf(L"ACCESS", L'`');

TEST(AdoDialect, BracketedNames) {
    const wchar_t* statement = L"Select  [Code]  from [User] Order by [Code]";
    EXPECT_EQ(statement, TranslateStatement(statement, kSqlite));
    EXPECT_EQ(statement, TranslateStatement(statement, kServer));
    EXPECT_EQ(L"Select  \"code\"  from \"user\" Order by \"code\"",
              TranslateStatement(statement, kPostgres));
    EXPECT_EQ(L"Select  `Code`  from `User` Order by `Code`",
              TranslateStatement(statement, kOther));
}

TEST(AdoDialect, QuotesInsideBracketedNames) {
    EXPECT_EQ(L"Select \"a\"\"b\", \"c]d\" From t",
              TranslateStatement(L"Select [a\"b], [c]]d] From t", kPostgres));
}

TEST(AdoDialect, OnlyAsciiLettersOfNamesAreFolded) {
    // As the server folds bare names.
    EXPECT_EQ(L"Select \"Đơn vị\" From t",
              TranslateStatement(L"Select [Đơn Vị] From t", kPostgres));
}

TEST(AdoDialect, WhatIsRewrittenStaysApart) {
    // Two names, two texts: side by side the engine would read one.
    EXPECT_EQ(L"Select \"a\" \"b\", \"q\" \"c\" From t",
              TranslateStatement(L"Select [a][b], \"q\"[c] From t", kPostgres));
    EXPECT_EQ(L"Name='x' 'y'", TranslateStatement(L"Name='x'N'y'", kSqlite));
    EXPECT_EQ(L"d between DATE '2020-01-02'and DATE '2020-01-03'",
              TranslateStatement(L"d between#1/2/2020#and#1/3/2020#", kPostgres));
    EXPECT_EQ(L"x '2020-01-02'", TranslateStatement(L"x#1/2/2020#", kSqlite)) << "no blob";
    // What nobody touches stays as it is.
    EXPECT_EQ(L"Select x'00', 'a''b', [a][b]",
              TranslateStatement(L"Select x'00', 'a''b', [a][b]", kSqlite));
}

TEST(AdoDialect, NationalText) {
    EXPECT_EQ(L"Select 'Người', 'O''B\\n'",
              TranslateStatement(L"Select N'Người', n'O''B\\n'", kPostgres));
    EXPECT_EQ(L"Select 'Người'", TranslateStatement(L"Select N'Người'", kSqlite));
    EXPECT_EQ(L"Select N'x'", TranslateStatement(L"Select N'x'", kServer));
}

TEST(AdoDialect, Dates) {
    const wchar_t* statement = L"Select * From t Where d>=#1/31/2020# And d<#2/1/2020 3:04:05 PM#";
    EXPECT_EQ(L"Select * From t Where d>='2020-01-31' And d<'2020-02-01 15:04:05'",
              TranslateStatement(statement, kSqlite));
    EXPECT_EQ(L"Select * From t Where d>=DATE '2020-01-31' And d<TIMESTAMP '2020-02-01 15:04:05'",
              TranslateStatement(statement, kPostgres));
    EXPECT_EQ(L"Select * From t Where d>={d '2020-01-31'} And d<{ts '2020-02-01 15:04:05'}",
              TranslateStatement(statement, kOther));
    EXPECT_EQ(statement, TranslateStatement(statement, kAccess));
    EXPECT_EQ(L"x=TIME '08:05:00'", TranslateStatement(L"x=#8:05#", kPostgres));
}

TEST(AdoDialect, WhatIsNoDateStays) {
    EXPECT_EQ(L"Select a #13/13/2020# b", TranslateStatement(L"Select a #13/13/2020# b", kSqlite));
}

TEST(AdoDialect, TextIsNeverTouched) {
    const wchar_t* statement =
        L"Select '[x] N''y'' #1/2/2020#', \"[q]\" /* [c] N'n' */ From t -- [e] #1/2/2020#";
    EXPECT_EQ(statement, TranslateStatement(statement, kPostgres));
    EXPECT_EQ(statement, TranslateStatement(statement, kSqlite));
}

TEST(AdoDialect, BrokenQuotesReachTheEngine) {
    EXPECT_EQ(L"Select * From \"user\" WHERE (\"name\"='O'Brien') And [Code]=1",
              TranslateStatement(L"Select * From [user] WHERE ([Name]=N'O'Brien') And [Code]=1",
                                 kPostgres));
}

TEST(AdoDialect, ALoneNameOpensTheTable) {
    EXPECT_EQ(L"SELECT * FROM [Groups]", TranslateStatement(L"Groups", kSqlite));
    EXPECT_EQ(L"SELECT * FROM \"user\"", TranslateStatement(L" User ;", kPostgres));
    EXPECT_EQ(L"SELECT * FROM \"dbo\".\"sub menu\"",
              TranslateStatement(L"dbo.[Sub Menu]", kPostgres));
    EXPECT_EQ(L"SELECT * FROM [Người]", TranslateStatement(L"Người", kSqlite));
    EXPECT_EQ(L"SELECT * FROM \"Kept As Is\"", TranslateStatement(L"\"Kept As Is\"", kPostgres));
}

TEST(AdoDialect, WhatIsNoLoneName) {
    for (const wchar_t* statement :
         {L"COMMIT", L"vacuum", L"1", L"'x'", L"a b", L"a.", L".a", L"a;b", L""})
        EXPECT_EQ(statement, TranslateStatement(statement, kSqlite));
}

TEST(AdoDialect, TablesByName) {
    EXPECT_EQ(L"SELECT * FROM [Sub Menu]", TableStatement(L"Sub Menu", kSqlite));
    EXPECT_EQ(L"SELECT * FROM \"sub menu\"", TableStatement(L" Sub Menu ", kPostgres));
    EXPECT_EQ(L"SELECT * FROM \"groups\"", TableStatement(L"[Groups]", kPostgres));
    EXPECT_EQ(L"SELECT * FROM [COMMIT]", TableStatement(L"COMMIT", kSqlite));
}

} // namespace
