// SPDX-License-Identifier: MIT
#include "accounts/tables.h"

#include <span>
#include <vector>

#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "data/connect/failure.h"
#include "data/connect/recordset.h"

namespace vndesk {

namespace {

struct Table {
    std::wstring_view name;
    std::wstring_view script;
};

// What the provider says where one of them cannot be read.
ErrorState TryToRead(const Database& database, std::span<const Table> tables) {
    std::wstring list;
    for (const Table& table : tables)
        list.append(list.empty() ? L"[" : L",[").append(table.name).append(L"]");
    return Trap([&] {
        Recordset rows;
        rows.Create(database);
        rows.Open(OwnStatement(L"Select * From " + list + L" Where 1=0", database.Style()));
    });
}

[[noreturn]] void ThrowMissing(const Database& database, const Table& table,
                               const ErrorState& error) {
    std::wstring text = L"The table ";
    text.append(table.name).append(L" is missing: run schema/upgrade/").append(table.script);
    text.append(L".").append(ScriptName(EngineOf(database)));
    throw ComError(kMissingTable, text + L".sql on the database. (" +
                                      ShownText(database, error.description) + L")");
}

} // namespace

void RequireTables(const Database& database, Tables needed) {
    if (!IsOpen(database))
        return;
    const Settings& settings = database.settings;
    std::vector<Table> tables;
    if (needed == Tables::Accounts || settings.KeepsAccounts())
        tables.push_back({L"VnUser", L"accounts"});
    if (needed == Tables::Audit || settings.Audit)
        tables.push_back({L"VnAudit", L"audit"});
    // One statement where all is well.
    if (tables.empty() || !TryToRead(database, tables))
        return;
    for (const Table& table : tables)
        if (const ErrorState error = TryToRead(database, {&table, 1}))
            ThrowMissing(database, table, error);
}

} // namespace vndesk
