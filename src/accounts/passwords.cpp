// SPDX-License-Identifier: MIT
#include "accounts/passwords.h"

#include "accounts/audit.h"
#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "data/connect/recordset.h"
#include "data/connect/transaction.h"
#include "data/connect/values.h"
#include "passwords/password.h"
#include "passwords/password_hash.h"
#include "passwords/password_text.h"
#include "passwords/text/captions.h"
#include "text/ascii_text.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

bool HasRules(const Settings& settings) {
    return settings.Scheme == PasswordScheme::Pbkdf2 || settings.MinPasswordLength > 0;
}

// No password at all, or one that has the number of none, or too long for a number.
bool IsNone(const Settings& settings, const std::wstring& password) {
    if (settings.Scheme == PasswordScheme::Pbkdf2)
        return password.empty();
    double code = 0;
    return Trap([&] { code = PasswordCodeOf(password); }) || code == 0;
}

// By the scheme. Callers have a transaction open, and an account kept.
void WritePassword(const Database& database, long userCode, const std::wstring& password,
                   bool mustChange) {
    if (database.settings.Scheme == PasswordScheme::Code) {
        // As the logon reads it.
        Execute(database, SetNumberStatement(userCode, PasswordCodeOf(TrimBlanks(password)),
                                             database.Dialect()));
        return;
    }
    Execute(database,
            SetHashStatement(userCode, HashPassword(password), mustChange, database.Dialect()));
    Execute(database, SetNumberStatement(userCode, kNoNumber, database.Dialect()));
}

} // namespace

std::optional<std::wstring> RefusalOf(const Operation& operation, const std::wstring& userName,
                                      const std::wstring& password) {
    const Settings& settings = operation.database.settings;
    const std::wstring invalid = ToUncText(texts::kPasswordInvalid, kToUnicode);
    if (IsNone(settings, password))
        return invalid;
    if (HasRules(settings)) {
        const PasswordVerdict verdict =
            JudgeNewPassword(password, userName, settings.MinPasswordLength);
        if (verdict != PasswordVerdict::Fine)
            return ToUncText(TextOfVerdict(verdict, settings.MinPasswordLength), kToUnicode);
    }
    if (!operation.askHost)
        return std::nullopt;
    const std::optional<std::wstring> reason = operation.askHost(userName, password);
    return reason && reason->empty() ? invalid : reason;
}

void UpgradePassword(const Database& database, const Account& account,
                     const std::wstring& password) {
    const std::wstring record = HashPassword(password);
    if (!account.kept)
        KeepAccount(database, account.userCode);
    Transaction transaction(database);
    if (Execute(database, GiveUpNumberStatement(account.userCode, account.number.value(),
                                                database.Dialect())) != 1)
        return;
    Execute(database,
            SetHashStatement(account.userCode, record, account.mustChange, database.Dialect()));
    transaction.Commit();
}

void SetPassword(const Operation& operation, long userCode, const std::wstring& password,
                 bool mustChange) {
    const Database& database = operation.database;
    const Account account = RequireAccount(database, userCode);
    if (const auto refusal = RefusalOf(operation, account.name, password))
        throw ComError(kPasswordRefused, *refusal);
    const bool keeps = database.settings.KeepsAccounts();
    if (keeps && !account.kept)
        KeepAccount(database, userCode);
    Transaction transaction(database);
    WritePassword(database, userCode, password, mustChange);
    if (keeps)
        Execute(database, UnlockStatement(userCode, database.Dialect()));
    Record(operation, {L"user-password", account.name});
    transaction.Commit();
}

void UnlockUser(const Operation& operation, long userCode) {
    const Account account = RequireAccount(operation.database, userCode);
    Transaction transaction(operation.database);
    Execute(operation.database, UnlockStatement(userCode, operation.database.Dialect()));
    Record(operation, {L"user-unlock", account.name});
    transaction.Commit();
}

std::vector<LockedUser> LockedUsers(const Database& database) {
    std::vector<LockedUser> locked;
    Recordset rows;
    rows.Create(database);
    rows.Open(LockedUsersStatement(database.Dialect()));
    // The time is asked for where somebody has been locked.
    if (rows.Eof())
        return locked;
    const Moment now = ServerTime(database);
    for (; !rows.Eof(); rows.MoveNext()) {
        const long code = NullToInteger(rows.Value(0L));
        const Gate gate =
            GateAt({0, now, NullToMoment(rows.Value(1L))}, now, RulesFor(code, database.settings));
        if (gate.closedUntil && code != kMainUser)
            locked.push_back({code, *gate.closedUntil});
    }
    return locked;
}

} // namespace vndesk
