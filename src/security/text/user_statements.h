// SPDX-License-Identifier: MIT
// The statements of the user editor and the user list. Names and descriptions go in as they are
// typed: nothing is doubled and nothing is trimmed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/text/literals.h"

namespace vndesk {

struct UserFields {
    std::wstring name;
    std::wstring description;
    long groupCode = 0;
};

std::wstring UserNamedStatement(std::wstring_view name, DatabaseKind kind);
// A new user has a password: without one the code would be 0, which the empty password logs on.
std::wstring InsertUserStatement(const UserFields& user, double password, DatabaseKind kind);
std::wstring LoadUserStatement(std::wstring_view name, DatabaseKind kind);
std::wstring OtherUserNamedStatement(std::wstring_view name, std::wstring_view oldName,
                                     DatabaseKind kind);
// Without a new password the stored one stays.
std::wstring UpdateUserStatement(const UserFields& user, std::optional<double> newPassword,
                                 std::wstring_view oldName, DatabaseKind kind);

inline constexpr wchar_t kUserListStatement[] = L"Select Code,Name,Dec from [user] Order by Code";
std::wstring UsersAfterStatement(long code);
std::wstring UserWithCodeStatement(std::wstring_view code);
std::wstring DeleteUserStatement(std::wstring_view name, DatabaseKind kind);

} // namespace vndesk
