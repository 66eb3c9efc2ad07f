// SPDX-License-Identifier: MIT
// A user with what VnUser holds of him.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "accounts/text/lock_out.h"
#include "data/connect/database.h"

namespace vndesk {

struct Account {
    long userCode = 0;
    std::wstring name;
    long groupCode = 0;
    std::optional<double> number = {}; // [User].[Password]; Null is nobody's password
    bool kept = false;                 // VnUser has a row
    std::wstring hash = {};
    Tries tries = {};
    bool mustChange = false;
};

// The users of a name, in the order of the database. What VnUser holds is read where the settings
// need it. Throw the provider's error, as all of these.
std::vector<Account> AccountsNamed(const Database& database, const std::wstring& name);
std::optional<Account> AccountCoded(const Database& database, long userCode);

// The user of the code; error 0x80040212 where there is none.
Account RequireAccount(const Database& database, long userCode);

// Reads what VnUser holds anew.
void ReadKept(const Database& database, Account& account);

// A row in VnUser, where there is none yet. Another program may add it at the same time.
void KeepAccount(const Database& database, long userCode);

} // namespace vndesk
