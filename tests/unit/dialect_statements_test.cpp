// SPDX-License-Identifier: MIT
// Statements and search conditions in the language of an engine that a host has named.
#include <gtest/gtest.h>

#include "accounts/text/audit_statements.h"
#include "controls/picker/text/select_statements.h"
#include "data/text/dialect.h"
#include "data/text/option_statements.h"
#include "find/text/catalogue.h"
#include "find/text/ordered.h"
#include "find/text/parameterized_condition.h"
#include "logon/text/logon_statement.h"
#include "security/text/group_statements.h"
#include "security/text/permissions.h"
#include "security/text/user_statements.h"

using namespace vndesk;

namespace {

const Dialect& kPostgres = DialectOf(Engine::PostgreSql);
const Dialect& kServer = DialectOf(Engine::SqlServer);
const Dialect& kMySql = DialectOf(Engine::MySql);

ConditionLine Line(long type, const wchar_t* op, const wchar_t* value,
                   const wchar_t* name = L"MaKH") {
    ConditionLine line;
    line.fieldIndex = 0;
    line.fieldType = type;
    line.fieldName = name;
    line.operatorIndex = 0;
    line.operatorName = op;
    line.value = value;
    return line;
}

std::wstring Sql(const ConditionLine& line, const Dialect& dialect) {
    return GetSql(line, dialect);
}

TEST(DialectStatements, ValuesAreLiteralsOfTheEngine) {
    EXPECT_EQ(L"SELECT  *  FROM \"user\" WHERE (\"name\"='O''Brien') And ( \"password\"=7)",
              LogonStatement(L"O'Brien", 7, kPostgres).text);
    EXPECT_EQ(L"Insert Into [User]([Name],[Dec],[IdGroup],[Password]) Values(N'v',N'd',7,8)",
              InsertUserStatement({L"v", L"d", 7}, 8, kServer).text);
    EXPECT_EQ(L"SELECT * FROM `User` WHERE `IdGroup`=7", GroupMembersStatement(7, kMySql).text);
}

TEST(DialectStatements, BoundValuesStayBound) {
    const Statement statement = LogonStatement(L"O'Brien", 7, {kPostgres, true});
    EXPECT_EQ(L"SELECT  *  FROM \"user\" WHERE (\"name\"=?) And ( \"password\"=?)", statement.text);
    EXPECT_EQ(2u, statement.values.size());
}

TEST(DialectStatements, DescriptionsKeepTheBlankOfOlderRowsUnlessTheyAreBound) {
    EXPECT_EQ(L"Insert Into [Groups]([Name],[Des]) Values(N'a''b',N'\"d\" ')",
              InsertGroupStatement(L"[Groups]", L"a'b", L"\"d\"", kServer).text);
    EXPECT_EQ(L"Update \"groups\" Set \"des\"='d ',\"name\"='a' Where \"code\"=7",
              UpdateGroupStatement(L"[Groups]", 7, L"a", L"d", kPostgres).text);
    const Statement bound = UpdateGroupStatement(L"[Groups]", 7, L"a", L"d", {kPostgres, true});
    EXPECT_EQ(BoundValue(std::optional<std::wstring>(L"d")), bound.values[0]);
}

TEST(DialectStatements, OptionsAreWrittenWithTheirNames) {
    EXPECT_EQ(L"Insert Into `Options`(`Section`,`KeyName`,`KeyValue`,`Description`) "
              L"Values('a','b','C:\\\\x','d ')",
              InsertOptionStatement({L"a", L"b"}, L"C:\\x", L"d", kMySql).text);
    EXPECT_EQ(L"Update \"options\" Set \"description\"='d ',\"keyvalue\"='c'  Where "
              L"\"section\"='a' And \"keyname\"='b'",
              UpdateOptionStatement({L"a", L"b"}, L"c", L"d", kPostgres).text);
}

TEST(DialectStatements, RightsGoToTheColumnsThatTheEngineHasTold) {
    EXPECT_EQ(L"Update \"groups\" Set \"P 1\"=7,\"p2\"=8 Where \"code\"=9",
              WriteRightsStatement({L"P 1", L"p2"}, {7, 8}, 9, kPostgres).text);
}

TEST(DialectStatements, WholeTablesAreSelected) {
    const Statement statement = StatementWriter(kPostgres) << WholeTable{L"[Groups]"};
    EXPECT_EQ(L"Select * From \"groups\"", statement.text);
    const Statement asEver = StatementWriter(DatabaseKind::Jet) << WholeTable{L"[Groups]"};
    EXPECT_EQ(L"[Groups]", asEver.text);
}

TEST(DialectStatements, TheCatalogueIsReadAndItsTablesAreQuotedWhereTheyMustBe) {
    EXPECT_EQ(L"Select \"name\",\"desc\" From \"lstfld\" Where \"intable\"='v' Order By \"code\"",
              Ordered(FieldListStatement(L"v", kPostgres), kCatalogueOrder, kPostgres).text);
    EXPECT_EQ(L"Select * From \"order\" Where \"name\"   Like 'v%'",
              LookUpStatement(L"Order", L"v", kPostgres).text);
    EXPECT_EQ(
        Statement(L"Select * From \"order\" Where \"name\"   ILike ?",
                  {std::optional<std::wstring>(L"%v_%")}),
        LookUpStatement(L"Order", L"va", kPostgres, FindingNames(L"va", Engine::PostgreSql, true)));
    EXPECT_EQ(L"Select [Ma] From Hang Where Ten  Like N'v%'",
              LookUpStatement(L"Select [Ma] From Hang Where Ten", L"v", kServer).text);
}

TEST(DialectStatements, WhatTheHostGivesGoesOutAsItIs) {
    EXPECT_EQ(L"Select * From [User] Where Ten = E'a\\\\b'",
              CodeStatement(L"Select * From [User] Where Ten", L"a\\b", kPostgres).text);
}

TEST(DialectStatements, AccountsAndRecordsHaveTheEnginesNamesAndTime) {
    const Clock now = {Engine::PostgreSql, {}};
    EXPECT_EQ(L"Update \"vnuser\" Set \"failed\"=0,\"firstat\"=Null,\"lockeduntil\"=Null,"
              L"\"lastat\"=(CURRENT_TIMESTAMP AT TIME ZONE 'UTC'),\"lastpc\"=? Where "
              L"\"usercode\"=?",
              LoggedOnStatement(7, now, L"PC", &kPostgres).text);
    EXPECT_EQ(L"Insert Into `VnAudit`(`At`,`UserCode`,`UserName`,`PC`,`WinUser`,`Action`,`Subject`,"
              L"`Before`,`After`) Values(UTC_TIMESTAMP(),?,?,?,?,?,?,?,?)",
              AuditStatement({}, {}, {Engine::MySql, {}}, &kMySql).text);
}

TEST(DialectStatements, TriesAreCountedByTheEnginesChoice) {
    const LockRules rules = {5, 15, 15, false};
    EXPECT_EQ(L"Update [VnUser] Set [LockedUntil]=IIf([Failed]+1>=?,?,[LockedUntil]),[Failed]="
              L"[Failed]+1 Where [UserCode]=? And ([LockedUntil] Is Null Or [LockedUntil]<=?)",
              CountTryStatement(7, 1, {}, rules, Engine::Jet, &DialectOf(Engine::Jet)).text);
    EXPECT_EQ(L"Update \"vnuser\" Set \"lockeduntil\"=Case When \"failed\"+1>=? Then ? Else "
              L"\"lockeduntil\" End,\"failed\"=\"failed\"+1 Where \"usercode\"=? And "
              L"(\"lockeduntil\" Is Null Or \"lockeduntil\"<=?)",
              CountTryStatement(7, 1, {}, rules, Engine::PostgreSql, &kPostgres).text);
}

TEST(DialectConditions, TextsHaveThePrefixInListsToo) {
    EXPECT_EQ(L"(MaKH  IN  (N'a',N'b''c'))", Sql(Line(10, L"in", L"a,b'c"), kServer));
    EXPECT_EQ(L"(MaKH  LIKE  'a%')", Sql(Line(10, L"Like", L"a"), kPostgres));
}

TEST(DialectConditions, TypedBracketsAreLettersAndThoseOfTheCatalogueAreBalanced) {
    EXPECT_EQ(L"(MaKH  =  'Kho (cu')", Sql(Line(10, L"=", L"Kho (cu"), kPostgres));
    EXPECT_EQ(L"(upper((MaKH)  =  'a'))", Sql(Line(10, L"=", L"a", L"upper((MaKH)"), kPostgres));
}

TEST(DialectConditions, DatesAreThoseOfTheEngine) {
    EXPECT_EQ(L"(MaKH  >=  '20210305')", Sql(Line(8, L">=", L"5/3/2021"), kServer));
    EXPECT_EQ(L"(MaKH  >=  DATE '2021-03-05')", Sql(Line(8, L">=", L"5/3/2021"), kPostgres));
    EXPECT_EQ(L"(MaKH  IN  (DATE '2021-03-05',DATE '2021-04-06'))",
              Sql(Line(8, L"IN", L"5/3/2021,6/4/2021"), kPostgres));
}

TEST(DialectConditions, NumbersStayAsTheyWereTyped) {
    EXPECT_EQ(L"(MaKH  =  9007199254740993)", Sql(Line(3, L"=", L"9007199254740993"), kPostgres));
    EXPECT_EQ(L"(MaKH  IN  (1,2))", Sql(Line(13, L"IN", L"1,2"), kPostgres));
}

TEST(DialectConditions, FlagsThatAreNoNumbersAreTrueFalseOrATextThatEndsNothing) {
    EXPECT_EQ(L"(MaKH  =  1)", Sql(Line(1, L"=", L"1"), kPostgres));
    EXPECT_EQ(L"(MaKH  =  TRUE)", Sql(Line(1, L"=", L"True"), kPostgres));
    EXPECT_EQ(L"(MaKH  =  0)", Sql(Line(1, L"=", L"false"), kServer));
    EXPECT_EQ(L"(MaKH  =  '1 or ''1''=''1')", Sql(Line(1, L"=", L"1 or '1'='1"), kPostgres));
}

TEST(DialectConditions, NamesAreQuotedWhereTheyMustBe) {
    EXPECT_EQ(L"(\"desc\"  =  'a')", Sql(Line(10, L"=", L"a", L"Desc"), kPostgres));
    EXPECT_EQ(L"(`Ngày lập`  =  'a')", Sql(Line(10, L"=", L"a", L"[Ngày lập]"), kMySql));
}

TEST(DialectConditions, TheParameterizedFormHasTheSameNames) {
    ConditionLines lines;
    lines[0] = Line(10, L"=", L"a", L"Desc");
    EXPECT_EQ(L"(\"desc\"  =  ?)", GetParameterized(lines, Engine::PostgreSql, &kPostgres).text);
    EXPECT_EQ(L"(Desc  =  ?)", GetParameterized(lines, Engine::PostgreSql).text);
}

TEST(DialectConditions, LinesAreJoinedAsEver) {
    ConditionLines lines;
    lines[0] = Line(10, L"=", L"a");
    lines[1] = Line(3, L">", L"2");
    lines[1].joinName = L"or";
    EXPECT_EQ(L"(MaKH  =  N'a')or(MaKH  >  2)", GetRes(lines, kServer));
}

} // namespace
