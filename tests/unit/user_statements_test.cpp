// SPDX-License-Identifier: MIT
// The statements of the user editor and the user list, text for text.
#include "security/text/user_statements.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace vndesk;

namespace {
constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
} // namespace

TEST(UserNamedStatement, LooksForTheName) {
    EXPECT_EQ(L"SELECT * FROM [User] WHERE [Name]='an'", UserNamedStatement(L"an", kJet));
    EXPECT_EQ(L"SELECT * FROM [User] WHERE [Name]=N'an'", UserNamedStatement(L"an", kServer));
}

TEST(UserNamedStatement, TakesTheNameAsTyped) {
    EXPECT_EQ(L"SELECT * FROM [User] WHERE [Name]=N' O'Brien '",
              UserNamedStatement(L" O'Brien ", kServer));
    EXPECT_EQ(L"SELECT * FROM [User] WHERE [Name]=''", UserNamedStatement(L"", kJet));
}

TEST(InsertUserStatement, WritesAllFourColumns) {
    const UserFields user = {L"an", L"Thu kho", 5};
    EXPECT_EQ(L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('an','Thu kho',5,1401)",
              InsertUserStatement(user, 1401, kJet));
    EXPECT_EQ(L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values(N'an',N'Thu kho',5,1401)",
              InsertUserStatement(user, 1401, kServer));
}

// A user without a password could be logged on with the empty one.
static_assert(!std::is_invocable_v<decltype(InsertUserStatement), UserFields, DatabaseKind>);
static_assert(!std::is_invocable_v<decltype(InsertUserStatement), UserFields, std::optional<double>,
                                   DatabaseKind>);

TEST(InsertUserStatement, WritesLargePasswordNumbersWithExponent) {
    EXPECT_EQ(L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('an','',1,1.5E+20)",
              InsertUserStatement({L"an", L"", 1}, 1.5E+20, kJet));
}

TEST(InsertUserStatement, DoublesNoQuotesAndTrimsNothing) {
    EXPECT_EQ(L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('O'B ',' \"x\" ',2,65)",
              InsertUserStatement({L"O'B ", L" \"x\" ", 2}, 65, kJet));
}

TEST(LoadUserStatement, HasTwoBlanksAroundTheStarAndBeforeWhere) {
    EXPECT_EQ(L"SELECT  *  FROM [User]  WHERE [Name]='an'", LoadUserStatement(L"an", kJet));
    EXPECT_EQ(L"SELECT  *  FROM [User]  WHERE [Name]=N'an'", LoadUserStatement(L"an", kServer));
}

TEST(OtherUserNamedStatement, LeavesTheUserUnderEditOut) {
    EXPECT_EQ(L"Select  * From [User] Where [Name]='moi' And [Name] <> 'cu'",
              OtherUserNamedStatement(L"moi", L"cu", kJet));
    EXPECT_EQ(L"Select  * From [User] Where [Name]=N'moi' And [Name] <> N'cu'",
              OtherUserNamedStatement(L"moi", L"cu", kServer));
}

TEST(UpdateUserStatement, WithoutPasswordKeepsTheStoredOne) {
    const UserFields user = {L"moi", L"Ke toan", 2};
    EXPECT_EQ(L"UPDATE [User] Set [Name]='moi',[Dec]='Ke toan',IdGroup=2 Where [Name]='cu'",
              UpdateUserStatement(user, std::nullopt, L"cu", kJet));
    EXPECT_EQ(L"UPDATE [User] Set [Name]=N'moi',[Dec]=N'Ke toan',IdGroup=2 Where [Name]=N'cu'",
              UpdateUserStatement(user, std::nullopt, L"cu", kServer));
}

TEST(UpdateUserStatement, WithPasswordWritesItLast) {
    EXPECT_EQ(L"UPDATE [User] Set [Name]='an',[Dec]='',IdGroup=8,[Password]=1401 Where "
              L"[Name]='an'",
              UpdateUserStatement({L"an", L"", 8}, 1401, L"an", kJet));
    EXPECT_EQ(L"UPDATE [User] Set [Name]=N'an',[Dec]=N'',IdGroup=8,[Password]=1401 Where "
              L"[Name]=N'an'",
              UpdateUserStatement({L"an", L"", 8}, 1401, L"an", kServer));
}

TEST(UserListStatements, FillTheListAndFollowTheEditor) {
    EXPECT_STREQ(L"Select Code,Name,Dec from [user] Order by Code", kUserListStatement);
    EXPECT_EQ(L"Select * From [User] Where Code >9", UsersAfterStatement(9));
    EXPECT_EQ(L"Select * From [User] Where Code >0", UsersAfterStatement(0));
    EXPECT_EQ(L"Select * From [User] Where Code=12", UserWithCodeStatement(L"12"));
}

TEST(DeleteUserStatement, NamesTheRow) {
    EXPECT_EQ(L"Delete from [user] Where [Name]='an'", DeleteUserStatement(L"an", kJet));
    EXPECT_EQ(L"Delete from [user] Where [Name]=N'an'", DeleteUserStatement(L"an", kServer));
    EXPECT_EQ(L"Delete from [user] Where [Name]=N'O'B'", DeleteUserStatement(L"O'B", kServer));
}
