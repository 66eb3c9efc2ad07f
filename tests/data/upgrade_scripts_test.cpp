// SPDX-License-Identifier: MIT
// The scripts that make the tables of 1.1, in the engines of the tests.
#include <gtest/gtest.h>

#include "support/env.h"
#include "support/sample_database.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

using Rows = std::vector<OdbcSession::Row>;

void RunScripts(const SampleDatabase& database, const wchar_t* engine) {
    OdbcSession session(database.OdbcString());
    for (const wchar_t* name : {L"accounts", L"audit"})
        session.ExecuteScript(
            ReadUtf8File(SourceDir() + L"\\schema\\upgrade\\" + name + L"." + engine + L".sql"));
}

// Twice, with a row in each of the new tables before the second time: nothing is made anew.
void ExpectHarmless(const SampleDatabase& database, const wchar_t* engine) {
    constexpr wchar_t kUsers[] = L"select * from \"user\" order by code";
    constexpr wchar_t kAccount[] = L"select usercode, passwordhash, failed, firstat, lockeduntil, "
                                   L"lastat, lastpc, mustchange from vnuser";
    constexpr wchar_t kRecord[] = L"select code, usercode, username, pc, winuser, action, subject, "
                                  L"\"before\", \"after\", \"at\" from vnaudit";
    const Rows users = database.Query(kUsers);
    ASSERT_FALSE(users.empty());
    RunScripts(database, engine);
    // What has no default is all that a row needs.
    EXPECT_EQ(1, database.Execute(L"insert into vnuser(usercode) values(3)"));
    EXPECT_EQ(1, database.Execute(L"insert into vnaudit(action) values('logon')"));
    const Rows account = database.Query(kAccount), record = database.Query(kRecord);
    ASSERT_EQ(1u, account.size());
    EXPECT_EQ(L"0", account[0][2]); // Failed
    EXPECT_EQ(L"0", account[0][7]); // MustChange
    ASSERT_EQ(1u, record.size());
    EXPECT_EQ(L"1", record[0][0]);
    EXPECT_TRUE(record[0][9].has_value()); // At
    RunScripts(database, engine);
    EXPECT_EQ(account, database.Query(kAccount));
    EXPECT_EQ(record, database.Query(kRecord));
    EXPECT_EQ(users, database.Query(kUsers));
    // One row for each user.
    EXPECT_THROW(database.Execute(L"insert into vnuser(usercode) values(3)"), std::runtime_error);
}

TEST(UpgradeScriptsTest, MakeTheirTablesOnceInTheEmbeddedDatabase) {
    ExpectHarmless(SampleDatabase::Embedded(), L"sqlite");
}

TEST(UpgradeScriptsTest, MakeTheirTablesOnceInTheServerDatabase) {
    if (!SampleDatabase::ServerAvailable())
        GTEST_SKIP() << "no PostgreSQL server";
    ExpectHarmless(SampleDatabase::Server(), L"postgresql");
}

} // namespace
} // namespace vndesk::test
