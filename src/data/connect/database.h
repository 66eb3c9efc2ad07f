// SPDX-License-Identifier: MIT
// An opened database: the connection, what kind of engine it speaks to, and where it came from.
#pragma once

#include <string>
#include <string_view>

#include "data/connect/ado.h"
#include "data/text/literals.h"

namespace vndesk {

struct Database {
    AdoConnection connection;
    DatabaseKind kind = DatabaseKind::SqlServer;
    std::wstring connectionString;
};

// Jet when the connection string names its provider, in any case of letters; else SQL Server.
DatabaseKind KindOf(std::wstring_view connectionString);

// An unopened connection object.
AdoConnection NewConnection();

// Never fails: what cannot be opened is shown once, and the unopened connection is returned, on
// which the first statement will fail.
Database OpenConnection(std::wstring_view connectionString);

// Runs a statement that gives no rows. Throws ComError with the provider's description.
void Execute(const Database& database, const std::wstring& statement);

// A connection that is not open is left as it is.
void CloseConnection(Database& database);

} // namespace vndesk
