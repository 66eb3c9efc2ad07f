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
    EXPECT_EQ(UserNamedStatement(L"an", kJet), L"SELECT * FROM [User] WHERE [Name]='an'");
    EXPECT_EQ(UserNamedStatement(L"an", kServer), L"SELECT * FROM [User] WHERE [Name]=N'an'");
}

TEST(UserNamedStatement, TakesTheNameAsTyped) {
    EXPECT_EQ(UserNamedStatement(L" O'Brien ", kServer),
              L"SELECT * FROM [User] WHERE [Name]=N' O'Brien '");
    EXPECT_EQ(UserNamedStatement(L"", kJet), L"SELECT * FROM [User] WHERE [Name]=''");
}

TEST(InsertUserStatement, WritesAllFourColumns) {
    const UserFields user = {L"an", L"Thu kho", 5};
    EXPECT_EQ(InsertUserStatement(user, 1401, kJet),
              L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('an','Thu kho',5,1401)");
    EXPECT_EQ(InsertUserStatement(user, 1401, kServer),
              L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values(N'an',N'Thu kho',5,1401)");
}

// A user without a password could be logged on with the empty one.
static_assert(!std::is_invocable_v<decltype(InsertUserStatement), UserFields, DatabaseKind>);
static_assert(!std::is_invocable_v<decltype(InsertUserStatement), UserFields, std::optional<double>,
                                   DatabaseKind>);

TEST(InsertUserStatement, WritesLargePasswordNumbersWithExponent) {
    EXPECT_EQ(InsertUserStatement({L"an", L"", 1}, 1.5E+20, kJet),
              L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('an','',1,1.5E+20)");
}

TEST(InsertUserStatement, DoublesNoQuotesAndTrimsNothing) {
    EXPECT_EQ(InsertUserStatement({L"O'B ", L" \"x\" ", 2}, 65, kJet),
              L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('O'B ',' \"x\" ',2,65)");
}

TEST(LoadUserStatement, HasTwoBlanksAroundTheStarAndBeforeWhere) {
    EXPECT_EQ(LoadUserStatement(L"an", kJet), L"SELECT  *  FROM [User]  WHERE [Name]='an'");
    EXPECT_EQ(LoadUserStatement(L"an", kServer), L"SELECT  *  FROM [User]  WHERE [Name]=N'an'");
}

TEST(OtherUserNamedStatement, LeavesTheUserUnderEditOut) {
    EXPECT_EQ(OtherUserNamedStatement(L"moi", L"cu", kJet),
              L"Select  * From [User] Where [Name]='moi' And [Name] <> 'cu'");
    EXPECT_EQ(OtherUserNamedStatement(L"moi", L"cu", kServer),
              L"Select  * From [User] Where [Name]=N'moi' And [Name] <> N'cu'");
}

TEST(UpdateUserStatement, WithoutPasswordKeepsTheStoredOne) {
    const UserFields user = {L"moi", L"Ke toan", 2};
    EXPECT_EQ(UpdateUserStatement(user, std::nullopt, L"cu", kJet),
              L"UPDATE [User] Set [Name]='moi',[Dec]='Ke toan',IdGroup=2 Where [Name]='cu'");
    EXPECT_EQ(UpdateUserStatement(user, std::nullopt, L"cu", kServer),
              L"UPDATE [User] Set [Name]=N'moi',[Dec]=N'Ke toan',IdGroup=2 Where [Name]=N'cu'");
}

TEST(UpdateUserStatement, WithPasswordWritesItLast) {
    EXPECT_EQ(UpdateUserStatement({L"an", L"", 8}, 1401, L"an", kJet),
              L"UPDATE [User] Set [Name]='an',[Dec]='',IdGroup=8,[Password]=1401 Where "
              L"[Name]='an'");
    EXPECT_EQ(UpdateUserStatement({L"an", L"", 8}, 1401, L"an", kServer),
              L"UPDATE [User] Set [Name]=N'an',[Dec]=N'',IdGroup=8,[Password]=1401 Where "
              L"[Name]=N'an'");
}

TEST(UserListStatements, FillTheListAndFollowTheEditor) {
    EXPECT_STREQ(kUserListStatement, L"Select Code,Name,Dec from [user] Order by Code");
    EXPECT_EQ(UsersAfterStatement(9), L"Select * From [User] Where Code >9");
    EXPECT_EQ(UsersAfterStatement(0), L"Select * From [User] Where Code >0");
    EXPECT_EQ(UserWithCodeStatement(L"12"), L"Select * From [User] Where Code=12");
}

TEST(DeleteUserStatement, NamesTheRow) {
    EXPECT_EQ(DeleteUserStatement(L"an", kJet), L"Delete from [user] Where [Name]='an'");
    EXPECT_EQ(DeleteUserStatement(L"an", kServer), L"Delete from [user] Where [Name]=N'an'");
    EXPECT_EQ(DeleteUserStatement(L"O'B", kServer), L"Delete from [user] Where [Name]=N'O'B'");
}
