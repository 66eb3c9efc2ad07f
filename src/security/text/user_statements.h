// SPDX-License-Identifier: MIT
// The statements of the user editor and the user list. Names and descriptions go in as they are
// typed: nothing is doubled and nothing is trimmed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/text/statement.h"

namespace vndesk {

struct UserFields {
    std::wstring name;
    std::wstring description;
    long groupCode = 0;
};

Statement UserNamedStatement(std::wstring_view name, ValueStyle style);
// A new user has a password: without one the code would be 0, which the empty password logs on.
Statement InsertUserStatement(const UserFields& user, double password, ValueStyle style);
Statement LoadUserStatement(std::wstring_view name, ValueStyle style);
Statement OtherUserNamedStatement(std::wstring_view name, std::wstring_view oldName,
                                  ValueStyle style);
// Without a new password the stored one stays.
Statement UpdateUserStatement(const UserFields& user, std::optional<double> newPassword,
                              std::wstring_view oldName, ValueStyle style);

inline constexpr wchar_t kUserListStatement[] = L"Select Code,Name,Dec from [user] Order by Code";
Statement UsersAfterStatement(long code, ValueStyle style = {});
Statement UserWithCodeStatement(std::wstring_view code, ValueStyle style = {});
Statement DeleteUserStatement(std::wstring_view name, ValueStyle style);

} // namespace vndesk
