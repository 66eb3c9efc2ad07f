// SPDX-License-Identifier: MIT
// The statement that looks for the user.
#include "logon/text/logon_statement.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(LogonStatement, LooksForNameAndCodeOnJet) {
    EXPECT_EQ(L"SELECT  *  FROM [User] WHERE ([Name]='an') And ( [Password]=1401)",
              LogonStatement(L"an", 1401, DatabaseKind::Jet));
}

TEST(LogonStatement, WritesPrefixOnSqlServer) {
    EXPECT_EQ(L"SELECT  *  FROM [User] WHERE ([Name]=N'an') And ( [Password]=0)",
              LogonStatement(L"an", 0, DatabaseKind::SqlServer));
}

TEST(LogonStatement, DoesNotDoubleApostrophes) {
    EXPECT_EQ(L"SELECT  *  FROM [User] WHERE ([Name]='O'B') And ( [Password]=0)",
              LogonStatement(L"O'B", 0, DatabaseKind::Jet));
}

TEST(LogonStatement, WritesLargeCodeWithExponent) {
    EXPECT_EQ(L"SELECT  *  FROM [User] WHERE ([Name]='an') And ( [Password]=1.5E+20)",
              LogonStatement(L"an", 1.5E20, DatabaseKind::Jet));
}
