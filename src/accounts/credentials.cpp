// SPDX-License-Identifier: MIT
#include "accounts/credentials.h"

#include "accounts/account.h"
#include "accounts/audit.h"
#include "accounts/lock.h"
#include "accounts/passwords.h"
#include "comkit/base/com_error.h"
#include "data/text/number_text.h"
#include "passwords/password.h"
#include "passwords/password_hash.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

bool NumberFits(const Account& account, const std::wstring& password) {
    if (!account.number || account.number == kNoNumber)
        return false;
    double code = 0;
    // A password too long for a number has none.
    if (Trap([&] { code = PasswordCodeOf(TrimBlanks(password)); }))
        return false;
    // As the statement of 1.0 compares them: with 15 digits.
    return DoubleToText(code) == DoubleToText(*account.number);
}

enum class Fit { No, Yes, Unreadable };

// One derivation whatever the answer, so that the time tells neither users nor how far they are
// upgraded.
Fit Fits(const Account& account, const std::wstring& password, const Settings& settings) {
    if (settings.Scheme == PasswordScheme::Code)
        return NumberFits(account, password) ? Fit::Yes : Fit::No;
    if (!account.hash.empty() && account.number == kNoNumber) {
        switch (MatchPassword(password, account.hash)) {
        case PasswordMatch::Yes:
            return Fit::Yes;
        case PasswordMatch::Unreadable:
            SpendPasswordTime(password);
            return Fit::Unreadable;
        default:
            return Fit::No;
        }
    }
    const bool fits = NumberFits(account, password);
    // Otherwise the upgrade derives.
    if (!fits || !settings.UpgradeOnLogon)
        SpendPasswordTime(password);
    return fits ? Fit::Yes : Fit::No;
}

// What is written about a logon never decides it.
template <class Write> void Aside(Write write) {
    Trap(write);
}

LogonAnswer Closed(const Database& database, const Account& account, const Gate& gate, Moment now,
                   const std::wstring& password) {
    LogonAnswer answer{.userCode = account.userCode, .closedUntil = gate.closedUntil};
    if (account.userCode == kMainUser) {
        answer.verdict = LogonAnswer::Delayed;
        answer.waitSeconds = SecondsBetween(now, *gate.closedUntil);
        return answer;
    }
    answer.verdict = LogonAnswer::Locked;
    // As long as a name takes that nobody has.
    if (database.settings.Scheme == PasswordScheme::Pbkdf2)
        SpendPasswordTime(password);
    Aside([&] {
        RecordOf(database, account.userCode, account.name, {L"logon-locked", account.name});
    });
    return answer;
}

LogonAnswer Refuse(const Database& database, const Account& account, Fit fit,
                   std::optional<Lock>& lock) {
    LogonAnswer answer{.userCode = account.userCode};
    if (lock)
        answer.triesLeft = lock->TriesLeft();
    if (answer.triesLeft && *answer.triesLeft == 0) {
        answer.verdict = LogonAnswer::Locked;
        answer.closedUntil = lock->ClosedUntil();
    }
    Aside([&] {
        RecordOf(database, account.userCode, account.name,
                 {L"logon-failed",
                  account.name,
                  {},
                  fit == Fit::Unreadable ? L"PasswordHash cannot be read" : L""});
    });
    return answer;
}

LogonAnswer Accept(const Database& database, const Account& account, const std::wstring& password) {
    const Settings& settings = database.settings;
    const bool byNumber = account.hash.empty() || account.number != kNoNumber;
    if (settings.Scheme == PasswordScheme::Pbkdf2 && settings.UpgradeOnLogon && byNumber)
        Aside([&] { UpgradePassword(database, account, password); });
    if (settings.KeepsAccounts())
        Aside([&] {
            Execute(database, LoggedOnStatement(account.userCode, ClockOf(database), ComputerName(),
                                                database.Dialect()));
        });
    Aside([&] { RecordOf(database, account.userCode, account.name, {L"logon", account.name}); });
    return {.verdict = LogonAnswer::Accepted,
            .userCode = account.userCode,
            .userName = account.name,
            .mustChange = settings.Scheme == PasswordScheme::Pbkdf2 && account.mustChange};
}

// One try at the password of the first of these users, whoever of them it fits.
template <class Accepted>
LogonAnswer Judge(const Database& database, const std::vector<Account>& accounts,
                  const std::wstring& password, Accepted accepted) {
    std::optional<Lock> lock;
    if (database.settings.LockAfter > 0) {
        lock.emplace(database, accounts.front());
        if (const Gate gate = lock->Enter(); gate.closedUntil)
            return Closed(database, accounts.front(), gate, lock->Now(), password);
    }
    Fit fit = Fit::No;
    for (const Account& account : accounts) {
        fit = Fits(account, password, database.settings);
        if (fit == Fit::Yes)
            return accepted(account);
    }
    return Refuse(database, accounts.front(), fit, lock);
}

// Waits where the user is delayed.
template <class Check> LogonAnswer InTurn(Check check) {
    for (;;) {
        const LogonAnswer answer = check();
        if (answer.verdict != LogonAnswer::Delayed)
            return answer;
        Sleep(static_cast<DWORD>(answer.waitSeconds) * 1000);
    }
}

} // namespace

LogonAnswer CheckCredentials(const Database& database, const std::wstring& name,
                             const std::wstring& password) {
    const Settings& settings = database.settings;
    const std::vector<Account> accounts = AccountsNamed(database, name);
    if (accounts.empty()) {
        if (settings.Scheme == PasswordScheme::Pbkdf2)
            SpendPasswordTime(password);
        Aside([&] { RecordOf(database, std::nullopt, name, {L"logon-failed", name}); });
        return {};
    }
    return Judge(database, accounts, password,
                 [&](const Account& account) { return Accept(database, account, password); });
}

long VerifiedUser(const Database& database, const std::wstring& name,
                  const std::wstring& password) {
    const LogonAnswer answer = InTurn(
        [&] { return CheckCredentials(database, std::wstring(TrimBlanks(name)), password); });
    return answer.verdict == LogonAnswer::Accepted ? answer.userCode : 0;
}

LogonAnswer CheckPresentPassword(const Database& database, long userCode,
                                 const std::wstring& password) {
    return InTurn([&] {
        const std::vector<Account> accounts = {RequireAccount(database, userCode)};
        return Judge(database, accounts, password, [&](const Account& account) {
            if (database.settings.LockAfter > 0)
                Aside([&] {
                    Execute(database, UnlockStatement(account.userCode, database.Dialect()));
                });
            return LogonAnswer{.verdict = LogonAnswer::Accepted, .userCode = account.userCode};
        });
    });
}

} // namespace vndesk
