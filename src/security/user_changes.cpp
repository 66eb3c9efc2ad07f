// SPDX-License-Identifier: MIT
#include "security/user_changes.h"

#include <algorithm>

#include "accounts/account.h"
#include "accounts/audit.h"
#include "accounts/passwords.h"
#include "accounts/together.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "passwords/password.h"
#include "passwords/password_hash.h"

namespace vndesk {

namespace {

// A user as the database has him, where more than his row hangs on it.
struct Stored {
    long code = 0;
    UserFields fields;
};

bool NeedsMore(const Settings& settings) {
    return settings.KeepsAccounts() || settings.Audit;
}

std::optional<Stored> Find(const Database& database, const std::wstring& name) {
    if (!NeedsMore(database.settings))
        return std::nullopt;
    Recordset user;
    user.Create(database);
    user.Open(LoadUserStatement(name, database.Style()));
    if (user.Eof())
        return std::nullopt;
    return Stored{ToInteger(user.Value(L"Code")),
                  {NullToText(user.Value(L"Name")), NullToText(user.Value(L"Dec")),
                   NullToInteger(user.Value(L"IdGroup"))}};
}

std::wstring DescribedUser(const UserFields& user) {
    return Described({{L"Name", user.name},
                      {L"Dec", user.description},
                      {L"IdGroup", std::to_wstring(user.groupCode)}});
}

std::wstring DescribedChange(bool mustChange) {
    return Described({{L"MustChange", std::to_wstring(mustChange)}});
}

// The user who has just been added: of those with the name the last one.
long NewestCode(const Database& database, const std::wstring& name) {
    long newest = 0;
    for (const Account& account : AccountsNamed(database, name))
        newest = std::max(newest, account.userCode);
    return newest;
}

// What stands in [User].[Password] for a password.
double NumberOf(const Settings& settings, const std::wstring& password) {
    return settings.Scheme == PasswordScheme::Pbkdf2 ? kNoNumber : PasswordCodeOf(password);
}

// The slow part, before anything is locked in the database. Empty where the number is the password.
std::wstring HashOf(const Settings& settings, const std::wstring& password) {
    return settings.Scheme == PasswordScheme::Pbkdf2 ? HashPassword(password) : std::wstring();
}

void WriteHash(const Database& database, long userCode, const std::wstring& hash, bool mustChange) {
    if (!hash.empty())
        Execute(database, SetHashStatement(userCode, hash, mustChange));
}

} // namespace

void AddUser(const Operation& operation, const UserFields& user, const NewPassword& password) {
    const Database& database = operation.database;
    const std::wstring hash = HashOf(database.settings, password.text);
    Together(database, [&] {
        Execute(database, InsertUserStatement(user, NumberOf(database.settings, password.text),
                                              database.Style()));
        if (database.settings.KeepsAccounts()) {
            const long code = NewestCode(database, user.name);
            // Of a user who had the code before, whom a host of 1.0 has deleted.
            Execute(database, DeleteAccountStatement(code));
            if (!hash.empty())
                Execute(database, AddAccountStatement(code));
            WriteHash(database, code, hash, password.mustChange);
        }
        Record(operation, {L"user-add", user.name, {}, DescribedUser(user)});
    });
}

void EditUser(const Operation& operation, const std::wstring& oldName, const UserFields& user,
              const std::optional<NewPassword>& password, std::optional<bool> mustChange) {
    const Database& database = operation.database;
    const std::optional<Stored> before = Find(database, oldName);
    const std::wstring hash = password ? HashOf(database.settings, password->text) : L"";
    std::optional<double> number;
    if (password)
        number = NumberOf(database.settings, password->text);
    if (before && (!hash.empty() || mustChange))
        KeepAccount(database, before->code);
    Together(database, [&] {
        Execute(database, UpdateUserStatement(user, number, oldName, database.Style()));
        if (!before)
            return;
        if (password) {
            WriteHash(database, before->code, hash, password->mustChange);
            Record(operation, {L"user-password", user.name});
        } else if (mustChange) {
            Execute(database, SetMustChangeStatement(before->code, *mustChange));
            Record(operation, {L"user-edit", user.name, DescribedChange(!*mustChange),
                               DescribedChange(*mustChange)});
        }
        const std::wstring was = DescribedUser(before->fields);
        if (const std::wstring is = DescribedUser(user); is != was)
            Record(operation, {L"user-edit", user.name, was, is});
    });
}

void DeleteUser(const Operation& operation, const std::wstring& name) {
    const Database& database = operation.database;
    const std::optional<Stored> before = Find(database, name);
    Together(database, [&] {
        Execute(database, DeleteUserStatement(name, database.Style()));
        if (!before)
            return;
        if (database.settings.KeepsAccounts())
            Execute(database, DeleteAccountStatement(before->code));
        Record(operation, {L"user-delete", before->fields.name, DescribedUser(before->fields)});
    });
}

} // namespace vndesk
