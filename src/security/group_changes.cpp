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

} // namespace

void AddGroup(const Operation& operation, const std::wstring& table, const GroupFields& group) {
    const Database& database = operation.database;
    const Actor actor = ActorOf(operation);
    Together(database, [&] {
        Execute(database,
                InsertGroupStatement(table, group.name, group.description, database.Style()));
        Record(database, actor, {L"group-add", group.name, {}, DescribedGroup(group)});
    });
}

void EditGroup(const Operation& operation, const std::wstring& table, long code,
               const GroupFields& group) {
    const Database& database = operation.database;
    const auto before = Read(operation, GroupStatement(table, code, database.Style()));
    const Actor actor = ActorOf(operation);
    Together(database, [&] {
        Execute(database,
                UpdateGroupStatement(table, code, group.name, group.description, database.Style()));
        const std::wstring is = DescribedGroup(group);
        for (const GroupFields& stored : before)
            if (const std::wstring was = DescribedGroup(stored); is != was)
                Record(database, actor, {L"group-edit", group.name, was, is});
    });
}

void DeleteGroups(const Operation& operation, const std::wstring& table,
                  const std::wstring& codes) {
    const Database& database = operation.database;
    const auto before = Read(operation, DeletedGroupsStatement(table, codes, database.Style()));
    const Actor actor = ActorOf(operation);
    Together(database, [&] {
        Execute(database, DeleteGroupsStatement(table, codes, database.Style()));
        for (const GroupFields& group : before)
            Record(database, actor, {L"group-delete", group.name, DescribedGroup(group)});
    });
}

void WriteRights(const Operation& operation, long groupCode, const Rights& before,
                 const Rights& after) {
    const Database& database = operation.database;
    const auto groups = Read(operation, GroupRightsStatement(groupCode, database.Style()));
    const Actor actor = ActorOf(operation);
    Together(database, [&] {
        Execute(database,
                WriteRightsStatement(after.columns, after.masks, groupCode, database.Style()));
        const std::wstring was = DescribedRights(before), is = DescribedRights(after);
        if (is != was)
            for (const GroupFields& group : groups)
                Record(database, actor, {L"rights", group.name, was, is});
    });
}

} // namespace vndesk
