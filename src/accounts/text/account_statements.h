// SPDX-License-Identifier: MIT
// The statements on VnUser, and those that find the user of an account, in the language of an
// engine where one is named. All values are bound; times are the server's.
#pragma once

#include <string>
#include <string_view>

#include "accounts/text/lock_out.h"
#include "data/text/engine.h"

namespace vndesk {

// The time of the server that runs the statement, or of this machine where there is no server.
struct Clock {
    Engine engine;
    Moment machine;
};
StatementWriter& operator<<(StatementWriter& writer, const Clock& now);

Statement UsersNamedStatement(std::wstring_view name, const Dialect* dialect = nullptr);
Statement UserCodedStatement(long userCode, const Dialect* dialect = nullptr);

Statement AccountStatement(long userCode, const Dialect* dialect = nullptr);
// Changes nothing where the user has one.
Statement AddAccountStatement(long userCode, const Dialect* dialect = nullptr);
Statement DeleteAccountStatement(long userCode, const Dialect* dialect = nullptr);

// A try begins: failures from before are forgotten.
Statement StartAnewStatement(long userCode, Moment now, const LockRules& rules,
                             const Dialect* dialect = nullptr);
// Counts a failure in advance, and closes the gate where it is the last that is allowed. Changes
// nothing where the gate has been closed meanwhile.
Statement CountTryStatement(long userCode, long failed, Moment now, const LockRules& rules,
                            Engine engine, const Dialect* dialect = nullptr);
// Brings times that lie too far ahead back to where a clock that was set back may have them.
Statement PullLockStatement(long userCode, Moment lockedUntil, const Dialect* dialect = nullptr);
Statement PullWindowStatement(long userCode, Moment now, const Dialect* dialect = nullptr);
Statement LoggedOnStatement(long userCode, const Clock& now, std::wstring_view computer,
                            const Dialect* dialect = nullptr);
Statement UnlockStatement(long userCode, const Dialect* dialect = nullptr);

// The record of a new password. `MustChange` at the next logon.
Statement SetHashStatement(long userCode, std::wstring_view record, bool mustChange,
                           const Dialect* dialect = nullptr);
Statement SetMustChangeStatement(long userCode, bool mustChange, const Dialect* dialect = nullptr);
// Only where the password is still the number that has been compared.
Statement GiveUpNumberStatement(long userCode, double number, const Dialect* dialect = nullptr);
Statement SetNumberStatement(long userCode, double number, const Dialect* dialect = nullptr);

// What [User].[Password] holds beside a hash: no password has this number.
inline constexpr double kNoNumber = -1;

inline constexpr wchar_t kLockedUsersStatement[] =
    L"Select [UserCode],[LockedUntil] From [VnUser] Where [LockedUntil] Is Not Null";
Statement LockedUsersStatement(const Dialect* dialect = nullptr);

} // namespace vndesk
