// SPDX-License-Identifier: MIT
// How users are added, edited and deleted: [User], what VnUser holds of them, and the record.
#pragma once

#include <optional>
#include <string>

#include "accounts/operation.h"
#include "security/text/user_statements.h"

namespace vndesk {

struct NewPassword {
    std::wstring text; // as typed
    bool mustChange = false;
};

// All of these throw the provider's error, and then nothing has been written.
void AddUser(const Operation& operation, const UserFields& user, const NewPassword& password);
// Without a new password the one that is kept stays; then `mustChange` says whether the user must
// choose another one from now on, or not any more.
void EditUser(const Operation& operation, const std::wstring& oldName, const UserFields& user,
              const std::optional<NewPassword>& password,
              std::optional<bool> mustChange = std::nullopt);
void DeleteUser(const Operation& operation, const std::wstring& name);

} // namespace vndesk
