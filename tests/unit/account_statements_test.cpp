// SPDX-License-Identifier: MIT
// The statements on VnUser, text for text, with the values that they bind.
#include "accounts/text/account_statements.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr Moment kNow = {46000.5};
constexpr LockRules kLocked = {3, 15, 10, false};
constexpr LockRules kDelayed = {3, 15, 10, true};
using Values = std::vector<BoundValue>;

BoundValue Number(long value) {
    return std::optional(value);
}
BoundValue Text(const wchar_t* value) {
    return std::optional(std::wstring(value));
}
BoundValue Time(Moment value) {
    return std::optional(value);
}

} // namespace

TEST(AccountStatements, FindUsersByWhatIsBound) {
    EXPECT_EQ(Statement(L"Select [Code],[Name],[Password],[IdGroup] From [User] Where [Name]=?",
                        Values{Text(L"x') OR ('1'='1")}),
              UsersNamedStatement(L"x') OR ('1'='1"));
    EXPECT_EQ(Statement(L"Select [Code],[Name],[Password],[IdGroup] From [User] Where [Code]=?",
                        Values{Number(7)}),
              UserCodedStatement(7));
    EXPECT_EQ(Statement(L"Select [PasswordHash],[Failed],[FirstAt],[LockedUntil],[MustChange] "
                        L"From [VnUser] Where [UserCode]=?",
                        Values{Number(7)}),
              AccountStatement(7));
}

TEST(AccountStatements, AddARowForAUserWhoHasNone) {
    EXPECT_EQ(Statement(L"Insert Into [VnUser]([UserCode],[Failed],[MustChange]) Select [Code],0,0 "
                        L"From [User] Where [Code]=? And [Code] Not In (Select [UserCode] From "
                        L"[VnUser])",
                        Values{Number(7)}),
              AddAccountStatement(7));
    EXPECT_EQ(Statement(L"Delete From [VnUser] Where [UserCode]=?", Values{Number(7)}),
              DeleteAccountStatement(7));
}

TEST(StartAnewStatement, ForgetsOldFailuresAndALockThatIsOver) {
    EXPECT_EQ(Statement(L"Update [VnUser] Set [Failed]=0,[FirstAt]=?,[LockedUntil]=Null Where "
                        L"[UserCode]=? And ([FirstAt] Is Null Or [FirstAt]<? Or [LockedUntil]<=?) "
                        L"And ([LockedUntil] Is Null Or [LockedUntil]<=?)",
                        Values{Time(kNow), Number(7), Time(MinutesAfter(kNow, -15)), Time(kNow),
                               Time(kNow)}),
              StartAnewStatement(7, kNow, kLocked));
}

TEST(StartAnewStatement, KeepsTheFailuresOfADelayedUser) {
    EXPECT_EQ(Statement(L"Update [VnUser] Set [Failed]=0,[FirstAt]=?,[LockedUntil]=Null Where "
                        L"[UserCode]=? And ([FirstAt] Is Null Or [FirstAt]<?) "
                        L"And ([LockedUntil] Is Null Or [LockedUntil]<=?)",
                        Values{Time(kNow), Number(3), Time(MinutesAfter(kNow, -15)), Time(kNow)}),
              StartAnewStatement(3, kNow, kDelayed));
}

TEST(CountTryStatement, CountsAndClosesInOneStatement) {
    const Values values = {Number(3), Time(MinutesAfter(kNow, 10)), Number(7), Time(kNow)};
    const std::wstring rest = L",[Failed]=[Failed]+1 Where [UserCode]=? And ([LockedUntil] Is Null "
                              L"Or [LockedUntil]<=?)";
    for (const Engine engine :
         {Engine::Sqlite, Engine::PostgreSql, Engine::SqlServer, Engine::MySql})
        EXPECT_EQ(
            Statement(L"Update [VnUser] Set [LockedUntil]=Case When [Failed]+1>=? Then ? Else "
                      L"[LockedUntil] End" +
                          rest,
                      values),
            CountTryStatement(7, 1, kNow, kLocked, engine));
    EXPECT_EQ(
        Statement(L"Update [VnUser] Set [LockedUntil]=IIf([Failed]+1>=?,?,[LockedUntil])" + rest,
                  values),
        CountTryStatement(7, 1, kNow, kLocked, Engine::Jet));
}

TEST(CountTryStatement, ClosesAtOnceForADelayedUser) {
    EXPECT_EQ(Statement(L"Update [VnUser] Set [LockedUntil]=?,[Failed]=[Failed]+1 Where "
                        L"[UserCode]=? And ([LockedUntil] Is Null Or [LockedUntil]<=?)",
                        Values{Time(SecondsAfter(kNow, 8)), Number(3), Time(kNow)}),
              CountTryStatement(3, 3, kNow, kDelayed, Engine::Sqlite));
}

TEST(AccountStatements, PullTimesBackOnlyThatLieAhead) {
    EXPECT_EQ(
        Statement(L"Update [VnUser] Set [LockedUntil]=? Where [UserCode]=? And [LockedUntil]>?",
                  Values{Time(kNow), Number(7), Time(kNow)}),
        PullLockStatement(7, kNow));
    EXPECT_EQ(Statement(L"Update [VnUser] Set [FirstAt]=? Where [UserCode]=? And [FirstAt]>?",
                        Values{Time(kNow), Number(7), Time(kNow)}),
              PullWindowStatement(7, kNow));
}

TEST(LoggedOnStatement, TakesTheTimeOfTheServer) {
    const std::wstring start =
        L"Update [VnUser] Set [Failed]=0,[FirstAt]=Null,[LockedUntil]=Null,[LastAt]=";
    const std::wstring end = L",[LastPC]=? Where [UserCode]=?";
    const Values values = {Text(L"PC-1"), Number(7)};
    const std::pair<Engine, const wchar_t*> servers[] = {
        {Engine::Sqlite, L"CURRENT_TIMESTAMP"},
        {Engine::PostgreSql, L"(CURRENT_TIMESTAMP AT TIME ZONE 'UTC')"},
        {Engine::SqlServer, L"GETUTCDATE()"},
        {Engine::MySql, L"UTC_TIMESTAMP()"}};
    for (const auto& [engine, now] : servers)
        EXPECT_EQ(Statement(start + now + end, values),
                  LoggedOnStatement(7, {engine, kNow}, L"PC-1"));
    EXPECT_EQ(Statement(start + L"?" + end, {Time(kNow), Text(L"PC-1"), Number(7)}),
              LoggedOnStatement(7, {Engine::Jet, kNow}, L"PC-1"));
}

TEST(AccountStatements, UnlockForgetsFailuresAndLock) {
    EXPECT_EQ(Statement(L"Update [VnUser] Set [Failed]=0,[FirstAt]=Null,[LockedUntil]=Null Where "
                        L"[UserCode]=?",
                        Values{Number(7)}),
              UnlockStatement(7));
}

TEST(AccountStatements, WritePasswords) {
    EXPECT_EQ(Statement(L"Update [VnUser] Set [PasswordHash]=?,[MustChange]=? Where [UserCode]=?",
                        Values{Text(L"pbkdf2"), Number(1), Number(7)}),
              SetHashStatement(7, L"pbkdf2", true));
    EXPECT_EQ(Statement(L"Update [VnUser] Set [MustChange]=? Where [UserCode]=?",
                        Values{Number(0), Number(7)}),
              SetMustChangeStatement(7, false));
    EXPECT_EQ(Statement(L"Update [User] Set [Password]=? Where [Code]=?",
                        Values{std::optional(1401.0), Number(7)}),
              SetNumberStatement(7, 1401));
}

TEST(GiveUpNumberStatement, ComparesWithTheNumberThatWasRead) {
    EXPECT_EQ(
        Statement(L"Update [User] Set [Password]=? Where [Code]=? And [Password]=?",
                  Values{std::optional(-1.0), Number(7), std::optional(26043816245124981625.0)}),
        GiveUpNumberStatement(7, 26043816245124981625.0));
}
