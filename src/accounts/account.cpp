// SPDX-License-Identifier: MIT
#include "accounts/account.h"

#include <comutil.h>

#include "accounts/text/account_statements.h"
#include "comkit/base/com_error.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"

namespace vndesk {

namespace {

constexpr HRESULT kNoSuchUser = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x212);

std::vector<Account> Accounts(const Database& database, const Statement& statement) {
    std::vector<Account> accounts;
    Recordset rows;
    rows.Create(database);
    rows.Open(statement);
    for (; !rows.Eof(); rows.MoveNext()) {
        accounts.push_back(
            {.userCode = ToInteger(rows.Value(0L)), .name = NullToText(rows.Value(1L))});
        if (const _variant_t number = rows.Value(2L); V_VT(&number) != VT_NULL)
            accounts.back().number = NullToDouble(number);
    }
    rows.Close();
    if (database.settings.KeepsAccounts())
        for (Account& account : accounts)
            ReadKept(database, account);
    return accounts;
}

} // namespace

std::vector<Account> AccountsNamed(const Database& database, const std::wstring& name) {
    return Accounts(database, UsersNamedStatement(name, database.Dialect()));
}

std::optional<Account> AccountCoded(const Database& database, long userCode) {
    std::vector<Account> accounts =
        Accounts(database, UserCodedStatement(userCode, database.Dialect()));
    return accounts.empty() ? std::nullopt : std::optional(std::move(accounts.front()));
}

Account RequireAccount(const Database& database, long userCode) {
    std::optional<Account> account = AccountCoded(database, userCode);
    if (!account)
        throw ComError(kNoSuchUser,
                       L"There is no user with the Code " + std::to_wstring(userCode) + L".");
    return std::move(*account);
}

void ReadKept(const Database& database, Account& account) {
    Recordset row;
    row.Create(database);
    row.Open(AccountStatement(account.userCode, database.Dialect()));
    account.kept = !row.Eof();
    if (!account.kept)
        return;
    account.hash = NullToText(row.Value(0L));
    account.tries = {NullToInteger(row.Value(1L)), NullToMoment(row.Value(2L)),
                     NullToMoment(row.Value(3L))};
    account.mustChange = NullToInteger(row.Value(4L)) != 0;
}

void KeepAccount(const Database& database, long userCode) {
    // Two at once may both see none: the second is refused by the primary key.
    Trap([&] { Execute(database, AddAccountStatement(userCode, database.Dialect())); });
}

} // namespace vndesk
