// SPDX-License-Identifier: MIT
// What the library's statements cost a server with 100,000 users, as it says itself: none that
// belongs to a logon, or to the change of one user, reads a whole table.
#include "data/data_fixture.h"

#include <functional>

#include "accounts/text/account_statements.h"
#include "accounts/text/audit_statements.h"
#include "accounts/text/lock_out.h"
#include "logon/text/logon_statement.h"
#include "security/text/group_statements.h"
#include "security/text/user_statements.h"
#include "data/connect/values.h"
#include "support/env.h"
#include "support/security_settings.h"

namespace vndesk::test {
namespace {

constexpr int kUsers = 100000;
constexpr wchar_t kName[] = L"Người 4711";

struct Planned {
    const char* name;
    std::function<vndesk::Statement(ValueStyle)> make;
    // The user sees every row, or beside them who is locked; a user's first try looks whether the
    // account has come meanwhile.
    bool readsAll = false;
};

const std::vector<Planned>& Statements() {
    static const UserFields user = {kName, L"Thử", 2};
    static const std::vector<Planned> statements = {
        {"logon", [](ValueStyle style) { return LogonStatement(kName, 1401, style); }},
        {"logon with accounts", [](ValueStyle) { return UsersNamedStatement(kName); }},
        {"its account", [](ValueStyle) { return AccountStatement(4711); }},
        {"user by code", [](ValueStyle) { return UserCodedStatement(4711); }},
        {"account added", [](ValueStyle) { return AddAccountStatement(4711); }, true},
        {"account deleted", [](ValueStyle) { return DeleteAccountStatement(4711); }},
        {"window begun", [](ValueStyle) { return StartAnewStatement(4711, {45000}, {}); }},
        {"try counted",
         [](ValueStyle) {
             return CountTryStatement(4711, 1, {45000}, {}, vndesk::Engine::PostgreSql);
         }},
        {"lock pulled", [](ValueStyle) { return PullLockStatement(4711, {45000}); }},
        {"window pulled", [](ValueStyle) { return PullWindowStatement(4711, {45000}); }},
        {"logged on",
         [](ValueStyle) {
             return LoggedOnStatement(4711, {vndesk::Engine::PostgreSql, {45000}}, L"PC");
         }},
        {"unlocked", [](ValueStyle) { return UnlockStatement(4711); }},
        {"hash set", [](ValueStyle) { return SetHashStatement(4711, L"hash", false); }},
        {"change asked for", [](ValueStyle) { return SetMustChangeStatement(4711, true); }},
        {"number given up", [](ValueStyle) { return GiveUpNumberStatement(4711, 1401); }},
        {"number set", [](ValueStyle) { return SetNumberStatement(4711, 1401); }},
        {"locked users", [](ValueStyle) { return vndesk::Statement(kLockedUsersStatement); }, true},
        {"editor", [](ValueStyle style) { return LoadUserStatement(kName, style); }},
        {"name taken", [](ValueStyle style) { return UserNamedStatement(kName, style); }},
        {"other's name",
         [](ValueStyle style) { return OtherUserNamedStatement(kName, L"Người 5", style); }},
        {"user edited",
         [](ValueStyle style) { return UpdateUserStatement(user, 1401, kName, style); }},
        {"user deleted", [](ValueStyle style) { return DeleteUserStatement(kName, style); }},
        {"users after", [](ValueStyle style) { return UsersAfterStatement(100990, style); }},
        {"user shown", [](ValueStyle style) { return UserWithCodeStatement(L"4711", style); }},
        {"users of a group", [](ValueStyle style) { return GroupMembersStatement(9, style); }},
        {"user list", [](ValueStyle) { return vndesk::Statement(kUserListStatement); }, true},
        {"codes", [](ValueStyle) { return L"Select  [Code]  from [User] Order by [Code]"; }, true},
    };
    return statements;
}

class PlanTest : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        if (!SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        const SampleDatabase& sample = Filled();
        vndesk::Settings settings;
        settings.BindParameters = GetParam();
        opened_ = OpenConnection(sample.ConnectionString(), settings);
    }
    void TearDown() override { CloseConnection(opened_); }

    // A group of 50, 99,950 in another; one user of a hundred is locked.
    static const SampleDatabase& Filled() {
        static const SampleDatabase filled = [] {
            SampleDatabase sample = SampleDatabase::Server();
            Upgrade(sample, L"accounts");
            Upgrade(sample, L"audit");
            OdbcSession session(sample.OdbcString());
            const std::wstring rows =
                L" from generate_series(1," + std::to_wstring(kUsers) + L") as s(n)";
            session.Execute(
                L"insert into \"user\"(code,name,\"dec\",idgroup,password) select 999+n,"
                L"'Người '||n,'Số '||n,case when n%2000=0 then 9 else 2 end,1401" +
                rows);
            session.Execute(L"insert into vnuser(usercode,failed,mustchange,lockeduntil) select "
                            L"999+n,0,0,case when n%100=0 then timestamp '2030-01-01' end" +
                            rows);
            session.Execute(L"analyze");
            return sample;
        }();
        return filled;
    }

    std::wstring PlanOf(vndesk::Statement statement) const {
        statement.text = L"Explain " + statement.text;
        std::wstring plan;
        Recordset rows;
        rows.Create(opened_);
        rows.Open(statement);
        for (; !rows.Eof(); rows.MoveNext())
            plan += (plan.empty() ? L"" : L" / ") + NullToText(rows.Value(0L));
        return plan;
    }

    Database opened_;
};

TEST_P(PlanTest, NoStatementAboutOneUserReadsAWholeTable) {
    for (const Planned& planned : Statements()) {
        const std::wstring plan = PlanOf(planned.make(opened_.Style()));
        if (EnvironmentText(L"VNDESK_RELIABILITY") == L"full")
            printf("plan: %s: %s\n", planned.name, ToUtf8(plan).c_str());
        EXPECT_NE(std::wstring::npos, plan.find(L"Scan")) << planned.name << ": " << ToUtf8(plan);
        if (!planned.readsAll) {
            EXPECT_EQ(std::wstring::npos, plan.find(L"Seq Scan"))
                << planned.name << ": " << ToUtf8(plan);
        }
    }
}

// As the driver really sends them, which a plan that is asked for may not be.
TEST_P(PlanTest, TheServerCountsNoWholeTableForALogon) {
    const auto count = [](const wchar_t* what) {
        return Filled().ScalarText(std::wstring(L"select ") + what +
                                   L" from pg_stat_user_tables where relname='user'");
    };
    const auto run = [this](const vndesk::Statement& statement) {
        Recordset rows;
        rows.Create(opened_);
        rows.Open(statement);
        return rows.Eof() ? 0 : 1;
    };
    const std::wstring whole = count(L"seq_scan"), indexed = count(L"idx_scan");
    EXPECT_EQ(1, run(LogonStatement(kName, 1401, opened_.Style())));
    EXPECT_EQ(1, run(UsersNamedStatement(kName)));
    EXPECT_EQ(1, run(LoadUserStatement(kName, opened_.Style())));
    run(L"select pg_stat_force_next_flush()");
    EXPECT_TRUE(WaitUntil([&] {
        return std::stol(count(L"idx_scan")) >= std::stol(indexed) + 3 ||
               count(L"seq_scan") != whole;
    }));
    EXPECT_EQ(whole, count(L"seq_scan"));
}

INSTANTIATE_TEST_SUITE_P(Values, PlanTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "Bound" : "InTheText"; });

} // namespace
} // namespace vndesk::test
