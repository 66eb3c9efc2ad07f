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
    EXPECT_EQ(L"Insert Into T([Name],[Des]) Values('a','x ')",
              AddInsertColumn(L"Insert Into T([Name]) Values('a')", L"[Des]", L"x", kJet));
}

TEST(AddInsertColumn, WritesPrefixOnSqlServer) {
    EXPECT_EQ(L"Insert Into T([Name],[Des]) Values('a',N'x ')",
              AddInsertColumn(L"Insert Into T([Name]) Values('a')", L"[Des]", L"x", kServer));
}

TEST(AddInsertColumn, FindsValuesInAnyLetterCase) {
    EXPECT_EQ(L"insert into T(A,B) vALUES(1,'x ')",
              AddInsertColumn(L"insert into T(A) vALUES(1)", L"B", L"x", kJet));
}

TEST(AddInsertColumn, KeepsWhatFollowsTheValues) {
    EXPECT_EQ(L"Insert Into T(A,B) Values(1,'x ') ; ",
              AddInsertColumn(L"Insert Into T(A) Values(1) ; ", L"B", L"x", kJet));
}

TEST(AddInsertColumn, EscapesTheValue) {
    EXPECT_EQ(L"Insert Into T(A,B) Values(1,'O''B ')",
              AddInsertColumn(L"Insert Into T(A) Values(1)", L"B", L"O'B", kJet));
}

TEST(AddInsertColumn, UsesTheLastClosingBracketForTheValue) {
    EXPECT_EQ(L"Insert Into T(A,B) Values((1),'x ')",
              AddInsertColumn(L"Insert Into T(A) Values((1))", L"B", L"x", kJet));
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
    EXPECT_EQ(L"Update T Set [Des]='x ',[Name]='a' Where [Code]=1",
              AddUpdateAssignment(L"Update T Set [Name]='a' Where [Code]=1", L"[Des]", L"x", kJet));
}

TEST(AddUpdateAssignment, WritesPrefixOnSqlServer) {
    EXPECT_EQ(L"Update T Set B=N'O''B ',A=1",
              AddUpdateAssignment(L"Update T Set A=1", L"B", L"O'B", kServer));
}

TEST(AddUpdateAssignment, FindsSetInAnyLetterCase) {
    EXPECT_EQ(L"UPDATE T sEt B='x ',A=1",
              AddUpdateAssignment(L"UPDATE T sEt A=1", L"B", L"x", kJet));
}

TEST(AddUpdateAssignment, KeepsOneCharacterAfterSetWhateverItIs) {
    EXPECT_EQ(L"Update T Set\tB='x ',A=1",
              AddUpdateAssignment(L"Update T Set\tA=1", L"B", L"x", kJet));
}

TEST(AddUpdateAssignment, TakesTheFirstSet) {
    EXPECT_EQ(L"Update T Set C='x ',A=1,B='set'",
              AddUpdateAssignment(L"Update T Set A=1,B='set'", L"C", L"x", kJet));
}

TEST(AddUpdateAssignment, StatementThatEndsWithSetGetsTheAssignment) {
    EXPECT_EQ(L"Update T SetB='x ',", AddUpdateAssignment(L"Update T Set", L"B", L"x", kJet));
}

TEST(AddUpdateAssignment, StatementWithoutSetGivesEmptyText) {
    EXPECT_EQ(L"", AddUpdateAssignment(L"Delete From T", L"B", L"x", kJet));
    EXPECT_EQ(L"", AddUpdateAssignment(L"", L"B", L"x", kJet));
}

TEST(LastValueStatement, OrdersTheTableByTheColumn) {
    EXPECT_EQ(L"Select  [Code]  from [Groups] Order by [Code]",
              LastValueStatement(L"Groups", L"Code"));
}
