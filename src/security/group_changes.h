// SPDX-License-Identifier: MIT
// How groups and their rights are added, edited and deleted, with the record of it.
#pragma once

#include <string>
#include <vector>

#include "accounts/operation.h"

namespace vndesk {

struct GroupFields {
    std::wstring name;
    std::wstring description;
};

// All of these throw the provider's error, and then nothing has been written.
void AddGroup(const Operation& operation, const std::wstring& table, const GroupFields& group);
void EditGroup(const Operation& operation, const std::wstring& table, long code,
               const GroupFields& group);
// `codes` are separated by commas; groups 1 and 8 stay.
void DeleteGroups(const Operation& operation, const std::wstring& table, const std::wstring& codes);

// The masks of a group's row, and what its columns are called.
struct Rights {
    std::vector<std::wstring> columns;
    std::vector<long> masks;
    bool operator==(const Rights&) const = default;
};

void WriteRights(const Operation& operation, long groupCode, const Rights& before,
                 const Rights& after);

} // namespace vndesk
