// SPDX-License-Identifier: MIT
// The statements of the group manager. Names and descriptions go in as they are typed.
#pragma once

#include <string>
#include <string_view>

#include "data/text/literals.h"

namespace vndesk {

std::wstring GroupMembersStatement(long code);
std::wstring GroupStatement(std::wstring_view table, long code);
std::wstring InsertGroupStatement(std::wstring_view table, std::wstring_view name,
                                  std::wstring_view description, DatabaseKind kind);
std::wstring UpdateGroupStatement(std::wstring_view table, long code, std::wstring_view name,
                                  std::wstring_view description, DatabaseKind kind);
// `codes` is separated by commas. Groups 1 and 8 stay, whatever it holds.
std::wstring DeleteGroupsStatement(std::wstring_view table, std::wstring_view codes);

} // namespace vndesk
