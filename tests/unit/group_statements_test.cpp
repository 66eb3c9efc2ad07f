// SPDX-License-Identifier: MIT
// The statements of the group manager, text for text.
#include "security/text/group_statements.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {
constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
constexpr wchar_t kTable[] = L"[Groups]";
} // namespace

TEST(GroupStatements, ReadMembersAndOneGroup) {
    EXPECT_EQ(L"SELECT * FROM [USER] WHERE IdGroup=5", GroupMembersStatement(5));
    EXPECT_EQ(L"Select * From [Groups] Where Code=5", GroupStatement(kTable, 5));
}

TEST(InsertGroupStatement, AddsTheDescriptionWithItsTrailingBlank) {
    EXPECT_EQ(L"Insert Into [Groups]([Name],[Des]) Values('Kho 2','Kho phu ')",
              InsertGroupStatement(kTable, L"Kho 2", L"Kho phu", kJet));
}

TEST(InsertGroupStatement, PrefixesTheDescriptionOnlyOnSqlServer) {
    EXPECT_EQ(L"Insert Into [Groups]([Name],[Des]) Values('Kho 2',N'Kho phu ')",
              InsertGroupStatement(kTable, L"Kho 2", L"Kho phu", kServer));
}

TEST(InsertGroupStatement, DoublesQuotesInTheDescriptionAndNotInTheName) {
    EXPECT_EQ(L"Insert Into [Groups]([Name],[Des]) Values('a'b','c''d\"\"e ')",
              InsertGroupStatement(kTable, L"a'b", L"c'd\"e", kJet));
}

TEST(InsertGroupStatement, WithoutDescriptionStoresOneBlank) {
    EXPECT_EQ(L"Insert Into [Groups]([Name],[Des]) Values('a',' ')",
              InsertGroupStatement(kTable, L"a", L"", kJet));
}

TEST(UpdateGroupStatement, PutsTheDescriptionFirst) {
    EXPECT_EQ(L"Update [Groups] Set [Des]='Kho chinh ',[Name]='Kho' Where [Code]=5",
              UpdateGroupStatement(kTable, 5, L"Kho", L"Kho chinh", kJet));
    EXPECT_EQ(L"Update [Groups] Set [Des]=N'Kho chinh ',[Name]='Kho' Where [Code]=5",
              UpdateGroupStatement(kTable, 5, L"Kho", L"Kho chinh", kServer));
}

TEST(DeleteGroupsStatement, NeverNamesTheProtectedGroups) {
    EXPECT_EQ(L"Delete From [Groups] Where Code In (1,5,8) and (Code Not In (1,8))",
              DeleteGroupsStatement(kTable, L"1,5,8"));
    EXPECT_EQ(L"Delete From [Groups] Where Code In (5) and (Code Not In (1,8))",
              DeleteGroupsStatement(kTable, L"5"));
}
