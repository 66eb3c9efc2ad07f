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
    EXPECT_EQ(GroupMembersStatement(5), L"SELECT * FROM [USER] WHERE IdGroup=5");
    EXPECT_EQ(GroupStatement(kTable, 5), L"Select * From [Groups] Where Code=5");
}

TEST(InsertGroupStatement, AddsTheDescriptionWithItsTrailingBlank) {
    EXPECT_EQ(InsertGroupStatement(kTable, L"Kho 2", L"Kho phu", kJet),
              L"Insert Into [Groups]([Name],[Des]) Values('Kho 2','Kho phu ')");
}

TEST(InsertGroupStatement, PrefixesTheDescriptionOnlyOnSqlServer) {
    EXPECT_EQ(InsertGroupStatement(kTable, L"Kho 2", L"Kho phu", kServer),
              L"Insert Into [Groups]([Name],[Des]) Values('Kho 2',N'Kho phu ')");
}

TEST(InsertGroupStatement, DoublesQuotesInTheDescriptionAndNotInTheName) {
    EXPECT_EQ(InsertGroupStatement(kTable, L"a'b", L"c'd\"e", kJet),
              L"Insert Into [Groups]([Name],[Des]) Values('a'b','c''d\"\"e ')");
}

TEST(InsertGroupStatement, WithoutDescriptionStoresOneBlank) {
    EXPECT_EQ(InsertGroupStatement(kTable, L"a", L"", kJet),
              L"Insert Into [Groups]([Name],[Des]) Values('a',' ')");
}

TEST(UpdateGroupStatement, PutsTheDescriptionFirst) {
    EXPECT_EQ(UpdateGroupStatement(kTable, 5, L"Kho", L"Kho chinh", kJet),
              L"Update [Groups] Set [Des]='Kho chinh ',[Name]='Kho' Where [Code]=5");
    EXPECT_EQ(UpdateGroupStatement(kTable, 5, L"Kho", L"Kho chinh", kServer),
              L"Update [Groups] Set [Des]=N'Kho chinh ',[Name]='Kho' Where [Code]=5");
}

TEST(DeleteGroupsStatement, NeverNamesTheProtectedGroups) {
    EXPECT_EQ(DeleteGroupsStatement(kTable, L"1,5,8"),
              L"Delete From [Groups] Where Code In (1,5,8) and (Code Not In (1,8))");
    EXPECT_EQ(DeleteGroupsStatement(kTable, L"5"),
              L"Delete From [Groups] Where Code In (5) and (Code Not In (1,8))");
}
