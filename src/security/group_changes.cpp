// SPDX-License-Identifier: MIT
#include "security/group_changes.h"

#include "accounts/audit.h"
#include "accounts/together.h"
#include "comkit/base/com_error.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "security/text/group_statements.h"
#include "security/text/permissions.h"

namespace vndesk {

namespace {

std::wstring DescribedGroup(const GroupFields& group) {
    return Described({{L"Name", group.name}, {L"Des", group.description}});
}

std::wstring DescribedRights(const Rights& rights) {
    std::wstring text;
    for (size_t i = 0; i < rights.columns.size() && i < rights.masks.size(); ++i)
        text += (i > 0 ? L"; " : L"") + rights.columns[i] + L"=" + std::to_wstring(rights.masks[i]);
    return text;
}

// The groups of a list that are there; read for the record only.
std::vector<GroupFields> Read(const Operation& operation, const Statement& statement) {
    std::vector<GroupFields> groups;
    if (!operation.database.settings.Audit)
        return groups;
    Recordset rows;
    rows.Create(operation.database);
    rows.Open(statement);
    for (; !rows.Eof(); rows.MoveNext())
        groups.push_back({NullToText(rows.Value(L"Name")), NullToText(rows.Value(L"Des"))});
    return groups;
}

std::wstring NameOf(const Operation& operation, long groupCode) {
    const auto groups =
        Read(operation, GroupRightsStatement(groupCode, operation.database.Style()));
    return groups.empty() ? std::to_wstring(groupCode) : groups.front().name;
}

} // namespace

void AddGroup(const Operation& operation, const std::wstring& table, const GroupFields& group) {
    const Database& database = operation.database;
    Together(database, [&] {
        Execute(database,
                InsertGroupStatement(table, group.name, group.description, database.Style()));
        Record(operation, {L"group-add", group.name, {}, DescribedGroup(group)});
    });
}

void EditGroup(const Operation& operation, const std::wstring& table, long code,
               const GroupFields& group) {
    const Database& database = operation.database;
    Together(database, [&] {
        const auto before = Read(operation, GroupStatement(table, code, database.Style()));
        Execute(database,
                UpdateGroupStatement(table, code, group.name, group.description, database.Style()));
        Record(operation, {L"group-edit", group.name,
                           before.empty() ? std::wstring() : DescribedGroup(before.front()),
                           DescribedGroup(group)});
    });
}

void DeleteGroups(const Operation& operation, const std::wstring& table,
                  const std::wstring& codes) {
    const Database& database = operation.database;
    Together(database, [&] {
        const auto before = Read(operation, DeletedGroupsStatement(table, codes, database.Style()));
        Execute(database, DeleteGroupsStatement(table, codes, database.Style()));
        for (const GroupFields& group : before)
            Record(operation, {L"group-delete", group.name, DescribedGroup(group)});
    });
}

void WriteRights(const Operation& operation, long groupCode, const Rights& before,
                 const Rights& after) {
    const Database& database = operation.database;
    Together(database, [&] {
        Execute(database,
                WriteRightsStatement(after.columns, after.masks, groupCode, database.Style()));
        Record(operation, {L"rights", NameOf(operation, groupCode), DescribedRights(before),
                           DescribedRights(after)});
    });
}

} // namespace vndesk
