// SPDX-License-Identifier: MIT
#include "accounts/text/audit_statements.h"

#include <gtest/gtest.h>

namespace vndesk {
namespace {

const Actor kAdmin = {3, L"Admin", L"PC1", L"an"};

TEST(AuditStatement, HasTheServersTimeAndBindsEveryValue) {
    const Statement statement =
        AuditStatement(kAdmin, {L"user-edit", L"O'Brien", L"a", L"b"}, {Engine::PostgreSql, {}});
    EXPECT_EQ(L"Insert Into [VnAudit]([At],[UserCode],[UserName],[PC],[WinUser],[Action],[Subject],"
              L"[Before],[After]) Values((CURRENT_TIMESTAMP AT TIME ZONE 'UTC'),?,?,?,?,?,?,?,?)",
              statement.text);
    ASSERT_EQ(8u, statement.values.size());
    EXPECT_EQ(BoundValue(std::optional<long>(3)), statement.values[0]);
    EXPECT_EQ(BoundValue(std::optional<std::wstring>(L"O'Brien")), statement.values[5]);
}

TEST(AuditStatement, BindsTheTimeOfTheMachineWhereThereIsNoServer) {
    const Moment now = {46000.5};
    const Statement statement = AuditStatement({}, {L"logon", L""}, {Engine::Jet, now});
    EXPECT_NE(std::wstring::npos, statement.text.find(L"Values(?,?,"));
    ASSERT_EQ(9u, statement.values.size());
    EXPECT_EQ(BoundValue(std::optional(now)), statement.values[0]);
    EXPECT_EQ(BoundValue(std::optional<long>()), statement.values[1]);
}

TEST(AuditStatement, CutsNamesToTheirColumnsBetweenWholeLetters) {
    const std::wstring odd = L"a";
    std::wstring name = odd;
    for (int i = 0; i < 200; ++i)
        name += {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    const Statement statement =
        AuditStatement({{}, name, L"", L""}, {L"logon-failed", name}, {Engine::Sqlite, {}});
    EXPECT_EQ(BoundValue(std::optional(name.substr(0, 99))), statement.values[1]);
    EXPECT_EQ(BoundValue(std::optional(name.substr(0, 255))), statement.values[5]);
}

TEST(AuditDescription, NamesEachValue) {
    EXPECT_EQ(L"Name=An; Dec=; IdGroup=5",
              Described({{L"Name", L"An"}, {L"Dec", L""}, {L"IdGroup", L"5"}}));
}

// Nobody can write a name that reads as another group.
TEST(AuditDescription, QuotesWhatCouldBeTakenForMore) {
    EXPECT_EQ(L"Name=\"An; IdGroup=1\"; Dec=Kho 5\"; IdGroup=5",
              Described({{L"Name", L"An; IdGroup=1"}, {L"Dec", L"Kho 5\""}, {L"IdGroup", L"5"}}));
    EXPECT_EQ(L"Name=\"\"\"An\"\"; IdGroup=1\"", Described({{L"Name", L"\"An\"; IdGroup=1"}}));
    EXPECT_EQ(L"Name=\"\"\"An\"\"\"", Described({{L"Name", L"\"An\""}}));
}

} // namespace
} // namespace vndesk
