// SPDX-License-Identifier: MIT
// The statements of the group manager. Names and descriptions go in as they are typed; as literals,
// descriptions are written with their quotes doubled and a trailing blank, as older rows are.
#pragma once

#include <string>
#include <string_view>

#include "data/text/statement.h"

namespace vndesk {

Statement GroupMembersStatement(long code, ValueStyle style = {});
Statement GroupStatement(std::wstring_view table, long code, ValueStyle style = {});
Statement InsertGroupStatement(std::wstring_view table, std::wstring_view name,
                               std::wstring_view description, ValueStyle style);
Statement UpdateGroupStatement(std::wstring_view table, long code, std::wstring_view name,
                               std::wstring_view description, ValueStyle style);
// The groups that the statement below deletes.
Statement DeletedGroupsStatement(std::wstring_view table, std::wstring_view codes,
                                 ValueStyle style);
// `codes` is separated by commas. Groups 1 and 8 stay, whatever it holds.
Statement DeleteGroupsStatement(std::wstring_view table, std::wstring_view codes,
                                ValueStyle style = {});

} // namespace vndesk
