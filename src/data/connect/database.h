// SPDX-License-Identifier: MIT
// An opened database: the connection, what kind of engine it speaks to, where it came from, and
// what the operation that works on it has been asked for.
#pragma once

#include <string>
#include <string_view>

#include "data/connect/ado.h"
#include "data/text/dialect.h"
#include "settings/settings.h"

namespace vndesk {

struct Database {
    AdoConnection connection;
    DatabaseKind kind = DatabaseKind::SqlServer;
    std::wstring connectionString;
    Settings settings = {};

    // The language that the host has named; none where statements are those of 1.0.
    const vndesk::Dialect* Dialect() const { return DialectOf(settings.Dialect); }
    ValueStyle Style() const { return {kind, settings.Binds(), Dialect()}; }
};

// Jet when the connection string names its provider, in any case of letters; else SQL Server.
DatabaseKind KindOf(std::wstring_view connectionString);

// An unopened connection object.
AdoConnection NewConnection();

// Opens it; a string without a provider is opened by that of its kind, unless a dialect is set,
// with which the string says all. Throws the provider's error.
void Open(_Connection& connection, std::wstring_view connectionString, const Settings& settings);

// Never fails: what cannot be opened is shown once, and the unopened connection is returned, on
// which the first statement will fail.
Database OpenConnection(std::wstring_view connectionString, const Settings& settings = {});

// One that is opened for a piece of work without a window, and closed at its end. Throws the
// provider's error where it cannot be opened.
class OpenedDatabase {
public:
    OpenedDatabase(std::wstring_view connectionString, const Settings& settings);
    ~OpenedDatabase();
    OpenedDatabase(const OpenedDatabase&) = delete;
    OpenedDatabase& operator=(const OpenedDatabase&) = delete;

    const Database& operator*() const { return database_; }

private:
    Database database_;
};

bool IsOpen(const Database& database);

// Runs a statement that gives no rows; how many it has changed, as the provider says. Throws
// ComError with the provider's description.
long Execute(const Database& database, const Statement& statement);

// A connection that is not open is left as it is.
void CloseConnection(Database& database);

} // namespace vndesk
