// SPDX-License-Identifier: MIT
// A fresh sample database (schema/) of a test's own, and a look into it past the code under test.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "support/odbc_session.h"
#include "support/temp_dir.h"

namespace vndesk::test {

class SampleDatabase {
public:
    // The embedded database: a SQLite file, reached by a Jet connection string.
    static SampleDatabase Embedded();
    // The server database: a PostgreSQL database. Ask ServerAvailable() first and skip the test.
    static SampleDatabase Server();
    static bool ServerAvailable();
    // A MariaDB database, in a server where names of tables have a case. Ask MariaDbAvailable()
    // first.
    static SampleDatabase MariaDb();
    static bool MariaDbAvailable();
    // The same in a cluster, where names of tables have no case; looks into it speak standard SQL.
    static SampleDatabase Galera();
    static bool GaleraAvailable();

    // Another database of the server with the same rows; no one may be connected to this one.
    SampleDatabase Copy() const;

    SampleDatabase(SampleDatabase&& other) noexcept;
    ~SampleDatabase();

    // What a host passes to the library.
    const std::wstring& ConnectionString() const { return connectionString_; }
    // What plain ODBC needs for the same database.
    const std::wstring& OdbcString() const { return odbcString_; }
    // The file behind the embedded database.
    std::wstring File() const;
    // As the scripts in schema/ call it.
    const wchar_t* Engine() const { return engine_; }

    // Each call connects anew, so no lock stays behind. Statements are in the engine's dialect.
    long Execute(std::wstring_view statement) const;
    std::wstring ScalarText(std::wstring_view statement) const;
    std::vector<OdbcSession::Row> Query(std::wstring_view statement) const;

private:
    explicit SampleDatabase(const wchar_t* engine) : engine_(engine) {}
    // Made on a server; what stands behind its name when it is made and dropped.
    static SampleDatabase OnServer(const wchar_t* engine, const std::wstring& server,
                                   const std::wstring& how, const wchar_t* howDropped);
    // A copy of one that is there, which no one may be connected to.
    static SampleDatabase OnPostgres(const std::wstring& original);

    std::unique_ptr<TempDir> folder_; // embedded only
    const wchar_t* engine_;
    // Servers only: the name, and where and by which statement the database is dropped.
    std::wstring database_, server_, drop_;
    std::wstring connectionString_;
    std::wstring odbcString_;
};

} // namespace vndesk::test
