// SPDX-License-Identifier: MIT
#include "accounts/text/account_statements.h"

namespace vndesk {

namespace {

StatementWriter Bound(const Dialect* dialect) {
    return StatementWriter({DatabaseKind::SqlServer, true, dialect});
}

constexpr std::wstring_view kUserColumns = L"Select [Code],[Name],[Password] From [User] Where ";
constexpr std::wstring_view kGateIsOpen = L" And ([LockedUntil] Is Null Or [LockedUntil]<=";

} // namespace

StatementWriter& operator<<(StatementWriter& writer, const Clock& now) {
    const std::wstring_view server = UtcNow(now.engine);
    return server.empty() ? writer << std::optional(now.machine) : writer << AsGiven{server};
}

Statement UsersNamedStatement(std::wstring_view name, const Dialect* dialect) {
    return Bound(dialect) << kUserColumns << L"[Name]=" << Quoted{name};
}

Statement UserCodedStatement(long userCode, const Dialect* dialect) {
    return Bound(dialect) << kUserColumns << L"[Code]=" << userCode;
}

Statement AccountStatement(long userCode, const Dialect* dialect) {
    return Bound(dialect) << L"Select [PasswordHash],[Failed],[FirstAt],[LockedUntil],[MustChange] "
                             L"From [VnUser] Where [UserCode]="
                          << userCode;
}

Statement AddAccountStatement(long userCode, const Dialect* dialect) {
    return Bound(dialect)
           << L"Insert Into [VnUser]([UserCode],[Failed],[MustChange]) Select [Code],0,0 "
              L"From [User] Where [Code]="
           << userCode << L" And [Code] Not In (Select [UserCode] From [VnUser])";
}

Statement DeleteAccountStatement(long userCode, const Dialect* dialect) {
    return Bound(dialect) << L"Delete From [VnUser] Where [UserCode]=" << userCode;
}

Statement StartAnewStatement(long userCode, Moment now, const LockRules& rules,
                             const Dialect* dialect) {
    StatementWriter statement = Bound(dialect);
    statement << L"Update [VnUser] Set [Failed]=0,[FirstAt]=" << std::optional(now)
              << L",[LockedUntil]=Null Where [UserCode]=" << userCode
              << L" And ([FirstAt] Is Null Or [FirstAt]<"
              << std::optional(MinutesAfter(now, -rules.windowMinutes));
    if (!rules.delayed)
        statement << L" Or [LockedUntil]<=" << std::optional(now);
    return statement << L")" << kGateIsOpen << std::optional(now) << L")";
}

Statement CountTryStatement(long userCode, long failed, Moment now, const LockRules& rules,
                            Engine engine, const Dialect* dialect) {
    const std::optional closed = ClosedAfter(failed, now, rules);
    StatementWriter statement = Bound(dialect);
    statement << L"Update [VnUser] Set [LockedUntil]=";
    if (rules.delayed) {
        statement << closed;
    } else {
        const Choice choice = ChoiceOf(engine);
        statement << choice.before << L"[Failed]+1>=" << rules.after << choice.then << closed
                  << choice.otherwise << L"[LockedUntil]" << choice.after;
    }
    return statement << L",[Failed]=[Failed]+1 Where [UserCode]=" << userCode << kGateIsOpen
                     << std::optional(now) << L")";
}

Statement PullLockStatement(long userCode, Moment lockedUntil, const Dialect* dialect) {
    return Bound(dialect) << L"Update [VnUser] Set [LockedUntil]=" << std::optional(lockedUntil)
                          << L" Where [UserCode]=" << userCode << L" And [LockedUntil]>"
                          << std::optional(lockedUntil);
}

Statement PullWindowStatement(long userCode, Moment now, const Dialect* dialect) {
    return Bound(dialect) << L"Update [VnUser] Set [FirstAt]=" << std::optional(now)
                          << L" Where [UserCode]=" << userCode << L" And [FirstAt]>"
                          << std::optional(now);
}

Statement LoggedOnStatement(long userCode, const Clock& now, std::wstring_view computer,
                            const Dialect* dialect) {
    StatementWriter statement = Bound(dialect);
    statement << L"Update [VnUser] Set [Failed]=0,[FirstAt]=Null,[LockedUntil]=Null,[LastAt]=";
    return statement << now << L",[LastPC]=" << Quoted{computer} << L" Where [UserCode]="
                     << userCode;
}

Statement UnlockStatement(long userCode, const Dialect* dialect) {
    return Bound(dialect) << L"Update [VnUser] Set [Failed]=0,[FirstAt]=Null,[LockedUntil]=Null "
                             L"Where [UserCode]="
                          << userCode;
}

Statement SetHashStatement(long userCode, std::wstring_view record, bool mustChange,
                           const Dialect* dialect) {
    return Bound(dialect) << L"Update [VnUser] Set [PasswordHash]=" << Quoted{record}
                          << L",[MustChange]=" << long{mustChange} << L" Where [UserCode]="
                          << userCode;
}

Statement SetMustChangeStatement(long userCode, bool mustChange, const Dialect* dialect) {
    return Bound(dialect) << L"Update [VnUser] Set [MustChange]=" << long{mustChange}
                          << L" Where [UserCode]=" << userCode;
}

Statement GiveUpNumberStatement(long userCode, double number, const Dialect* dialect) {
    return Bound(dialect) << L"Update [User] Set [Password]=" << kNoNumber << L" Where [Code]="
                          << userCode << L" And [Password]=" << Bind{std::optional(number)};
}

Statement SetNumberStatement(long userCode, double number, const Dialect* dialect) {
    return Bound(dialect) << L"Update [User] Set [Password]=" << number << L" Where [Code]="
                          << userCode;
}

Statement LockedUsersStatement(const Dialect* dialect) {
    return Bound(dialect) << kLockedUsersStatement;
}

} // namespace vndesk
