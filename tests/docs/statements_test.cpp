// SPDX-License-Identifier: MIT
// The statements in docs/database.md are those that the library runs.
#include <gtest/gtest.h>

#include <regex>

#include "accounts/text/account_statements.h"
#include "accounts/text/audit_statements.h"
#include "controls/picker/text/select_statements.h"
#include "data/text/statements.h"
#include "docs/tree.h"
#include "find/text/catalogue.h"
#include "logon/text/logon_statement.h"
#include "security/text/group_statements.h"
#include "security/text/permissions.h"
#include "security/text/user_statements.h"

using namespace vndesk;

namespace {

constexpr DatabaseKind kJet = DatabaseKind::Jet;

// What the page writes for it: values, made with v and 7 or bound, and the server's time are "…".
std::string AsDocumented(const std::wstring& statement) {
    std::string text;
    for (wchar_t ch : statement)
        text += static_cast<char>(ch);
    static const std::regex value("'v ?%?'|\\bv\\b|\\b7\\b|\\?|CURRENT_TIMESTAMP");
    return std::regex_replace(text, value, "…");
}

void ExpectOnThePage(std::initializer_list<Statement> statements) {
    const std::string page = docs::ReadFile(docs::Root() / "docs/database.md");
    for (const Statement& statement : statements)
        EXPECT_NE(std::string::npos, page.find("`" + AsDocumented(statement.text) + "`"))
            << AsDocumented(statement.text);
}

TEST(DocumentedStatementTest, StatementsAreThoseOfTheLibrary) {
    const UserFields user = {L"v", L"v", 7};
    const std::wstring groups = L"[Groups]", order = std::wstring(L" Order By ") + kCatalogueOrder;
    ExpectOnThePage({
        LogonStatement(L"v", 7, kJet),
        UserNamedStatement(L"v", kJet),
        LoadUserStatement(L"v", kJet),
        InsertUserStatement(user, 7, kJet),
        OtherUserNamedStatement(L"v", L"v", kJet),
        UpdateUserStatement(user, 7, L"v", kJet),
        kUserListStatement,
        LastValueStatement(L"User", L"Code"),
        UsersAfterStatement(7),
        UserWithCodeStatement(L"7"),
        DeleteUserStatement(L"v", kJet),
        GroupStatement(groups, 7),
        GroupMembersStatement(7),
        LastValueStatement(L"Groups", L"Name"),
        InsertGroupStatement(groups, L"v", L"v", kJet),
        LastValueStatement(groups, L"Code"),
        UpdateGroupStatement(groups, 7, L"v", L"v", kJet),
        DeleteGroupsStatement(groups, L"v"),
        GroupRightsStatement(7),
        MenuCommandsStatement(7),
        WriteRightsStatement({L"v", L"v"}, {7, 7}, 7),
        FieldListStatement(L"v") + order,
        FieldInfoStatement(L"v") + order,
        OperatorListStatement(7),
        LookUpStatement(L"v", L"v", kJet),
    });
}

TEST(DocumentedStatementTest, BoundOnesAreTheSameButForThoseThatThePageNames) {
    constexpr ValueStyle kBound = {kJet, true};
    const UserFields user = {L"v", L"v", 7};
    const std::wstring groups = L"[Groups]", order = std::wstring(L" Order By ") + kCatalogueOrder;
    ExpectOnThePage({
        LogonStatement(L"v", 7, kBound),
        UserNamedStatement(L"v", kBound),
        LoadUserStatement(L"v", kBound),
        InsertUserStatement(user, 7, kBound),
        OtherUserNamedStatement(L"v", L"v", kBound),
        UpdateUserStatement(user, 7, L"v", kBound),
        UsersAfterStatement(7, kBound),
        UserWithCodeStatement(L"7", kBound),
        DeleteUserStatement(L"v", kBound),
        GroupStatement(groups, 7, kBound),
        GroupMembersStatement(7, kBound),
        InsertGroupStatement(groups, L"v", L"v", kBound),
        LastValueStatement(L"Groups", L"Code"),
        UpdateGroupStatement(groups, 7, L"v", L"v", kBound),
        DeleteGroupsStatement(groups, L"7", kBound),
        GroupRightsStatement(7, kBound),
        MenuCommandsStatement(7, kBound),
        WriteRightsStatement({L"P1", L"P2"}, {7, 7}, 7, kBound),
        FieldListStatement(L"v", kBound) + order,
        FieldInfoStatement(L"v", kBound) + order,
        OperatorListStatement(7, kBound),
        LookUpStatement(L"v", L"v", kBound),
    });
}

TEST(DocumentedStatementTest, StatementsOnAccountsAndRecordsAreThoseOfTheLibrary) {
    constexpr Moment kNow = {7};
    constexpr Clock kClock = {Engine::Sqlite, kNow};
    constexpr LockRules kLocks = {7, 7, 7, false}, kDelays = {7, 7, 7, true};
    ExpectOnThePage({
        UsersNamedStatement(L"v"),
        UserCodedStatement(7),
        AccountStatement(7),
        AddAccountStatement(7),
        DeleteAccountStatement(7),
        StartAnewStatement(7, kNow, kLocks),
        StartAnewStatement(7, kNow, kDelays),
        CountTryStatement(7, 7, kNow, kLocks, Engine::Sqlite),
        CountTryStatement(7, 7, kNow, kLocks, Engine::Jet),
        CountTryStatement(7, 7, kNow, kDelays, Engine::Sqlite),
        PullLockStatement(7, kNow),
        PullWindowStatement(7, kNow),
        LoggedOnStatement(7, kClock, L"v"),
        UnlockStatement(7),
        SetHashStatement(7, L"v", false),
        GiveUpNumberStatement(7, 7),
        SetNumberStatement(7, 7),
        kLockedUsersStatement,
        DeletedGroupsStatement(L"[Groups]", L"7", {kJet, true}),
        AuditStatement({7, L"v", L"v", L"v"}, {L"v", L"v", L"v", L"v"}, kClock),
    });
}

// The server's time, as the page writes it for each engine.
TEST(DocumentedStatementTest, PageHasTheTimeOfEachEngine) {
    const std::string page = docs::ReadFile(docs::Root() / "docs/database.md");
    for (const Engine engine :
         {Engine::SqlServer, Engine::PostgreSql, Engine::Sqlite, Engine::MySql}) {
        const std::wstring now(UtcNow(engine));
        EXPECT_NE(std::string::npos, page.find("`" + std::string(now.begin(), now.end()) + "`"))
            << std::string(now.begin(), now.end());
    }
    EXPECT_TRUE(UtcNow(Engine::Jet).empty());
}

} // namespace
