// SPDX-License-Identifier: MIT
// Patching of INSERT and UPDATE statements.
#include "data/text/statements.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace vndesk;

namespace {
constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
} // namespace

TEST(AddInsertColumn, AddsColumnAndValueAtTheEndOfTheLists) {
    EXPECT_EQ(AddInsertColumn(L"Insert Into T([Name]) Values('a')", L"[Des]", L"x", kJet),
              L"Insert Into T([Name],[Des]) Values('a','x ')");
}

TEST(AddInsertColumn, WritesPrefixOnSqlServer) {
    EXPECT_EQ(AddInsertColumn(L"Insert Into T([Name]) Values('a')", L"[Des]", L"x", kServer),
              L"Insert Into T([Name],[Des]) Values('a',N'x ')");
}

TEST(AddInsertColumn, FindsValuesInAnyLetterCase) {
    EXPECT_EQ(AddInsertColumn(L"insert into T(A) vALUES(1)", L"B", L"x", kJet),
              L"insert into T(A,B) vALUES(1,'x ')");
}

TEST(AddInsertColumn, KeepsWhatFollowsTheValues) {
    EXPECT_EQ(AddInsertColumn(L"Insert Into T(A) Values(1) ; ", L"B", L"x", kJet),
              L"Insert Into T(A,B) Values(1,'x ') ; ");
}

TEST(AddInsertColumn, EscapesTheValue) {
    EXPECT_EQ(AddInsertColumn(L"Insert Into T(A) Values(1)", L"B", L"O'B", kJet),
              L"Insert Into T(A,B) Values(1,'O''B ')");
}

TEST(AddInsertColumn, UsesTheLastClosingBracketForTheValue) {
    EXPECT_EQ(AddInsertColumn(L"Insert Into T(A) Values((1))", L"B", L"x", kJet),
              L"Insert Into T(A,B) Values((1),'x ')");
}

TEST(AddInsertColumn, StatementWithoutValuesIsInvalid) {
    EXPECT_THROW(AddInsertColumn(L"Insert Into T(A) Select 1", L"B", L"x", kJet),
                 std::invalid_argument);
    EXPECT_THROW(AddInsertColumn(L"", L"B", L"x", kJet), std::invalid_argument);
}

TEST(AddInsertColumn, StatementWithoutColumnListIsInvalid) {
    EXPECT_THROW(AddInsertColumn(L"Insert Into T Values(1)", L"B", L"x", kJet),
                 std::invalid_argument);
}

TEST(AddUpdateAssignment, PutsTheAssignmentFirst) {
    EXPECT_EQ(AddUpdateAssignment(L"Update T Set [Name]='a' Where [Code]=1", L"[Des]", L"x", kJet),
              L"Update T Set [Des]='x ',[Name]='a' Where [Code]=1");
}

TEST(AddUpdateAssignment, WritesPrefixOnSqlServer) {
    EXPECT_EQ(AddUpdateAssignment(L"Update T Set A=1", L"B", L"O'B", kServer),
              L"Update T Set B=N'O''B ',A=1");
}

TEST(AddUpdateAssignment, FindsSetInAnyLetterCase) {
    EXPECT_EQ(AddUpdateAssignment(L"UPDATE T sEt A=1", L"B", L"x", kJet),
              L"UPDATE T sEt B='x ',A=1");
}

TEST(AddUpdateAssignment, KeepsOneCharacterAfterSetWhateverItIs) {
    EXPECT_EQ(AddUpdateAssignment(L"Update T Set\tA=1", L"B", L"x", kJet),
              L"Update T Set\tB='x ',A=1");
}

TEST(AddUpdateAssignment, TakesTheFirstSet) {
    EXPECT_EQ(AddUpdateAssignment(L"Update T Set A=1,B='set'", L"C", L"x", kJet),
              L"Update T Set C='x ',A=1,B='set'");
}

TEST(AddUpdateAssignment, StatementThatEndsWithSetGetsTheAssignment) {
    EXPECT_EQ(AddUpdateAssignment(L"Update T Set", L"B", L"x", kJet), L"Update T SetB='x ',");
}

TEST(AddUpdateAssignment, StatementWithoutSetGivesEmptyText) {
    EXPECT_EQ(AddUpdateAssignment(L"Delete From T", L"B", L"x", kJet), L"");
    EXPECT_EQ(AddUpdateAssignment(L"", L"B", L"x", kJet), L"");
}

TEST(LastValueStatement, OrdersTheTableByTheColumn) {
    EXPECT_EQ(LastValueStatement(L"Groups", L"Code"),
              L"Select  [Code]  from [Groups] Order by [Code]");
}
