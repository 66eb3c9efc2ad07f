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

void ExpectOnThePage(const std::vector<Statement>& statements) {
    const std::string page = docs::ReadFile(docs::Root() / "docs/database.md");
    for (const Statement& statement : statements)
        EXPECT_NE(std::string::npos, page.find("`" + AsDocumented(statement.text) + "`"))
            << AsDocumented(statement.text);
}

// Those with values, but for the one that writes rights.
std::vector<Statement> StatementsIn(ValueStyle style) {
    const UserFields user = {L"v", L"v", 7};
    const std::wstring groups = L"[Groups]", order = std::wstring(L" Order By ") + kCatalogueOrder;
    return {
        LogonStatement(L"v", 7, style),
        UserNamedStatement(L"v", style),
        LoadUserStatement(L"v", style),
        InsertUserStatement(user, 7, style),
        OtherUserNamedStatement(L"v", L"v", style),
        UpdateUserStatement(user, 7, L"v", style),
        UsersAfterStatement(7, style),
        UserWithCodeStatement(L"7", style),
        DeleteUserStatement(L"v", style),
        GroupStatement(groups, 7, style),
        GroupMembersStatement(7, style),
        InsertGroupStatement(groups, L"v", L"v", style),
        UpdateGroupStatement(groups, 7, L"v", L"v", style),
        DeleteGroupsStatement(groups, L"7", style),
        GroupRightsStatement(7, style),
        MenuCommandsStatement(7, style),
        FieldListStatement(L"v", style) + order,
        FieldInfoStatement(L"v", style) + order,
        OperatorListStatement(7, style),
        LookUpStatement(L"v", L"v", style),
    };
}

TEST(DocumentedStatementTest, StatementsAreThoseOfTheLibrary) {
    ExpectOnThePage(StatementsIn(kJet));
    ExpectOnThePage({
        kUserListStatement,
        LastValueStatement(L"User", L"Code"),
        LastValueStatement(L"Groups", L"Name"),
        LastValueStatement(L"[Groups]", L"Code"),
        WriteRightsStatement({L"v", L"v"}, {7, 7}, 7, kJet),
    });
}

TEST(DocumentedStatementTest, BoundOnesAreTheSameButForThoseThatThePageNames) {
    constexpr ValueStyle kBound = {kJet, true};
    ExpectOnThePage(StatementsIn(kBound));
    ExpectOnThePage({
        LastValueStatement(L"Groups", L"Code"),
        WriteRightsStatement({L"P1", L"P2"}, {7, 7}, 7, kBound),
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
        SetMustChangeStatement(7, true),
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
