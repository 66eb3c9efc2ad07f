// SPDX-License-Identifier: MIT
#include "security/user_changes.h"

#include <algorithm>

#include "accounts/account.h"
#include "accounts/audit.h"
#include "accounts/passwords.h"
#include "accounts/together.h"
#include "comkit/base/com_error.h"
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

// All users of a name: the statements below mean all of them.
std::vector<Stored> Named(const Database& database, const std::wstring& name) {
    std::vector<Stored> found;
    if (!NeedsMore(database.settings))
        return found;
    Recordset users;
    users.Create(database);
    users.Open(LoadUserStatement(name, database.Style()));
    for (; !users.Eof(); users.MoveNext())
        found.push_back({ToInteger(users.Value(L"Code")),
                         {NullToText(users.Value(L"Name")), NullToText(users.Value(L"Dec")),
                          NullToInteger(users.Value(L"IdGroup"))}});
    return found;
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
    const std::vector<Stored> named = Named(database, name);
    if (named.empty())
        throw ComError(E_UNEXPECTED);
    return std::ranges::max(named, {}, &Stored::code).code;
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
        Execute(database, SetHashStatement(userCode, hash, mustChange, database.Dialect()));
}

} // namespace

void AddUser(const Operation& operation, const UserFields& user, const NewPassword& password) {
    const Database& database = operation.database;
    const Actor actor = ActorOf(operation);
    const std::wstring hash = HashOf(database.settings, password.text);
    Together(database, [&] {
        Execute(database, InsertUserStatement(user, NumberOf(database.settings, password.text),
                                              database.Style()));
        if (database.settings.KeepsAccounts()) {
            const long code = NewestCode(database, user.name);
            // Of a user who had the code before, whom a host of 1.0 has deleted.
            Execute(database, DeleteAccountStatement(code, database.Dialect()));
            if (!hash.empty())
                Execute(database, AddAccountStatement(code, database.Dialect()));
            WriteHash(database, code, hash, password.mustChange);
        }
        Record(database, actor, {L"user-add", user.name, {}, DescribedUser(user)});
    });
}

void EditUser(const Operation& operation, const std::wstring& oldName, const UserFields& user,
              const std::optional<NewPassword>& password, std::optional<bool> mustChange) {
    const Database& database = operation.database;
    const std::vector<Stored> before = Named(database, oldName);
    const Actor actor = ActorOf(operation);
    const std::wstring hash = password ? HashOf(database.settings, password->text) : L"";
    std::optional<double> number;
    if (password)
        number = NumberOf(database.settings, password->text);
    if (!hash.empty() || mustChange)
        for (const Stored& stored : before)
            KeepAccount(database, stored.code);
    Together(database, [&] {
        Execute(database, UpdateUserStatement(user, number, oldName, database.Style()));
        const std::wstring is = DescribedUser(user);
        for (const Stored& stored : before) {
            if (password) {
                WriteHash(database, stored.code, hash, password->mustChange);
                Record(database, actor, {L"user-password", user.name});
            } else if (mustChange) {
                Execute(database,
                        SetMustChangeStatement(stored.code, *mustChange, database.Dialect()));
                Record(database, actor,
                       {L"user-edit", user.name, DescribedChange(!*mustChange),
                        DescribedChange(*mustChange)});
            }
            if (const std::wstring was = DescribedUser(stored.fields); is != was)
                Record(database, actor, {L"user-edit", user.name, was, is});
        }
    });
}

void DeleteUser(const Operation& operation, const std::wstring& name) {
    const Database& database = operation.database;
    const std::vector<Stored> before = Named(database, name);
    const Actor actor = ActorOf(operation);
    Together(database, [&] {
        Execute(database, DeleteUserStatement(name, database.Style()));
        for (const Stored& stored : before) {
            if (database.settings.KeepsAccounts())
                Execute(database, DeleteAccountStatement(stored.code, database.Dialect()));
            Record(database, actor,
                   {L"user-delete", stored.fields.name, DescribedUser(stored.fields)});
        }
    });
}

} // namespace vndesk
