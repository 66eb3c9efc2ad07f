// SPDX-License-Identifier: MIT
// The statements in docs/database.md are those that the library runs.
#include <gtest/gtest.h>

#include <regex>

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

// What the page writes for it: values, made with v and 7, are "…".
std::string AsDocumented(const std::wstring& statement) {
    std::string text;
    for (wchar_t ch : statement)
        text += static_cast<char>(ch);
    static const std::regex value("'v ?%?'|\\bv\\b|\\b7\\b");
    return std::regex_replace(text, value, "…");
}

TEST(DocumentedStatementTest, StatementsAreThoseOfTheLibrary) {
    const UserFields user = {L"v", L"v", 7};
    const std::wstring groups = L"[Groups]", order = std::wstring(L" Order By ") + kCatalogueOrder;
    const Statement statements[] = {
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
    };
    const std::string page = docs::ReadFile(docs::Root() / "docs/database.md");
    for (const Statement& statement : statements)
        EXPECT_NE(std::string::npos, page.find("`" + AsDocumented(statement.text) + "`"))
            << AsDocumented(statement.text);
}

} // namespace
