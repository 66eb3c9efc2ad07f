// SPDX-License-Identifier: MIT
// Records of VnAudit, text for text, cut to the columns.
#include "accounts/text/audit_statements.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr Moment kNow = {46000.5};
const std::wstring kStart = L"Insert Into [VnAudit]([At],[UserCode],[UserName],[PC],[WinUser],"
                            L"[Action],[Subject],[Before],[After]) Values(";

// The text that is bound at a place.
std::wstring TextAt(const Statement& statement, std::size_t place) {
    return std::get<std::optional<std::wstring>>(statement.values.at(place)).value();
}

constexpr std::size_t kUserName = 1, kSubject = 5;

Statement Named(const std::wstring& name) {
    return AuditStatement({7, name, L"PC", L"win"}, {L"logon", name}, {Engine::Sqlite, kNow});
}

} // namespace

TEST(AuditStatement, BindsEverythingButTheTimeOfTheServer) {
    const Actor actor = {7, L"O'Brien", L"PC-1", L"win"};
    const AuditEntry entry = {L"user-edit", L"an", L"Name=an", L"Name=An"};
    const auto text = [](const wchar_t* value) -> BoundValue {
        return std::optional(std::wstring(value));
    };
    const std::vector<BoundValue> values = {std::optional(7L), text(L"O'Brien"),   text(L"PC-1"),
                                            text(L"win"),      text(L"user-edit"), text(L"an"),
                                            text(L"Name=an"),  text(L"Name=An")};
    EXPECT_EQ(Statement(kStart + L"CURRENT_TIMESTAMP,?,?,?,?,?,?,?,?)", values),
              AuditStatement(actor, entry, {Engine::Sqlite, kNow}));
    std::vector<BoundValue> timed = {std::optional(kNow)};
    timed.insert(timed.end(), values.begin(), values.end());
    EXPECT_EQ(Statement(kStart + L"?,?,?,?,?,?,?,?,?)", timed),
              AuditStatement(actor, entry, {Engine::Jet, kNow}));
}

TEST(AuditStatement, HasNullForNobodysCode) {
    const Statement statement = AuditStatement({std::nullopt, L"x", L"", L""},
                                               {L"logon-failed", L"x"}, {Engine::Sqlite, kNow});
    EXPECT_EQ(BoundValue(std::optional<long>()), statement.values.at(0));
}

TEST(AuditStatement, CutsWhatAnybodyMayTypeToTheColumns) {
    const Statement statement = Named(std::wstring(300, L'x'));
    EXPECT_EQ(std::wstring(100, L'x'), TextAt(statement, kUserName));
    EXPECT_EQ(std::wstring(255, L'x'), TextAt(statement, kSubject));
    EXPECT_EQ(std::wstring(100, L'x'), TextAt(Named(std::wstring(100, L'x')), kUserName));
}

TEST(AuditStatement, CutsNoPairOfSurrogatesInTwo) {
    const std::wstring pair = {wchar_t(0xD83D), wchar_t(0xDE00)};
    const std::wstring at99 = std::wstring(99, L'x') + pair + L"y";
    EXPECT_EQ(std::wstring(99, L'x'), TextAt(Named(at99), kUserName));
    const std::wstring at98 = std::wstring(98, L'x') + pair;
    EXPECT_EQ(at98, TextAt(Named(at98 + L"y"), kUserName));
}

TEST(Described, NamesEachValue) {
    EXPECT_EQ(L"", Described({}));
    EXPECT_EQ(L"Name=An; Dec=; IdGroup=5",
              Described({{L"Name", L"An"}, {L"Dec", L""}, {L"IdGroup", L"5"}}));
}
