// SPDX-License-Identifier: MIT
// New passwords: whether they are good enough, and how they get into the database.
#pragma once

#include <optional>
#include <string>

#include "accounts/account.h"
#include "accounts/operation.h"
#include "accounts/text/account_statements.h"

namespace vndesk {

// 0x80040211, as the reference tells hosts.
inline constexpr HRESULT kPasswordRefused = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x211);

// Why a new password is refused, in Unicode: by the rules of the settings, then by the host.
// Nothing for a good one.
std::optional<std::wstring> RefusalOf(const Operation& operation, const std::wstring& userName,
                                      const std::wstring& password);

// The hash instead of the number, where the number is still the one that was compared.
void UpgradePassword(const Database& database, const Account& account,
                     const std::wstring& password);

// Throws kPasswordRefused, or the error of an unknown user.
void SetPassword(const Operation& operation, long userCode, const std::wstring& password,
                 bool mustChange);

void UnlockUser(const Operation& operation, long userCode);

struct LockedUser {
    long userCode;
    Moment until; // UTC
};
// Who may not log on at this moment.
std::vector<LockedUser> LockedUsers(const Database& database);

} // namespace vndesk
