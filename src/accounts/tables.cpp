// SPDX-License-Identifier: MIT
#include "accounts/tables.h"

#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "data/connect/recordset.h"

namespace vndesk {

namespace {

void RequireTable(const Database& database, const std::wstring& table, const std::wstring& script) {
    const ErrorState error = Trap([&] {
        Recordset rows;
        rows.Create(database);
        rows.Open(L"Select * From [" + table + L"] Where 1=0");
    });
    if (error)
        throw ComError(kMissingTable, L"The table " + table + L" is missing: run schema/upgrade/" +
                                          script + L"." +
                                          std::wstring(ScriptName(EngineOf(database))) +
                                          L".sql on the database. (" + error.description + L")");
}

} // namespace

void RequireTables(const Database& database, Tables needed) {
    if (!IsOpen(database))
        return;
    const Settings& settings = database.settings;
    if (needed == Tables::Accounts || settings.KeepsAccounts())
        RequireTable(database, L"VnUser", L"accounts");
    if (needed == Tables::Audit || settings.Audit)
        RequireTable(database, L"VnAudit", L"audit");
}

} // namespace vndesk
