// SPDX-License-Identifier: MIT
#include "support/sample_database.h"

#include <windows.h>

#include "support/engine_variant.h"
#include "support/env.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kFileName[] = L"host.db";

std::wstring Script(const wchar_t* name) {
    return ReadUtf8File(SourceDir() + L"\\schema\\" + name);
}

std::wstring SqliteString(const std::wstring& file) {
    return L"Driver=SQLite3;Database=" + DriverPath(file) + L";";
}

// The script runs once per process, each test gets a copy of the file.
const std::wstring& TemplateFile() {
    static const TempDir folder;
    static const std::wstring file = [] {
        std::wstring path = folder.File(L"template.db");
        OdbcSession(SqliteString(path)).ExecuteScript(Script(L"sqlite.sql"));
        return path;
    }();
    return file;
}

// The connection string with its Database= replaced.
std::wstring WithDatabase(std::wstring text, const std::wstring& name) {
    std::wstring lower = text;
    CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
    size_t from = lower.starts_with(L"database=") ? 0 : lower.find(L";database=");
    if (from != std::wstring::npos) {
        from += from > 0;
        const size_t to = text.find(L';', from);
        text.erase(from, to == std::wstring::npos ? to : to - from + 1);
    }
    if (!text.empty() && text.back() != L';')
        text += L';';
    return text + L"Database=" + name + L";";
}

std::wstring UniqueName() {
    static LONG counter = 0;
    return L"vndesk_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
           std::to_wstring(GetTickCount()) + L"_" + std::to_wstring(InterlockedIncrement(&counter));
}

} // namespace

SampleDatabase SampleDatabase::Embedded() {
    SampleDatabase database(L"sqlite");
    database.folder_ = std::make_unique<TempDir>();
    const std::wstring file = database.File();
    if (!CopyFileW(TemplateFile().c_str(), file.c_str(), TRUE))
        Fail(L"cannot make " + file);
    database.odbcString_ = SqliteString(file);
    database.connectionString_ =
        L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file + L";Jet OLEDB:Engine Type=5";
    return database;
}

bool SampleDatabase::ServerAvailable() {
    return !PostgresConnection().empty();
}

// The script runs once per process, each test gets a copy.
SampleDatabase SampleDatabase::Server() {
    static const SampleDatabase filled = [] {
        SampleDatabase database =
            OnPostgres(L"template0 ENCODING 'UTF8' LC_COLLATE 'C.UTF-8' LC_CTYPE 'C.UTF-8'");
        OdbcSession(database.odbcString_).ExecuteScript(Script(L"postgresql.sql"));
        return database;
    }();
    SampleDatabase database = OnPostgres(filled.database_);
    // What the time is called in the language that the hosts of the test speak.
    if (CurrentVariant().dialect == vnDialectSqlServer)
        database.Execute(L"create function getutcdate() returns timestamp language sql as "
                         L"$$select current_timestamp at time zone 'UTC'$$");
    return database;
}

SampleDatabase SampleDatabase::Copy() const {
    return OnPostgres(database_);
}

SampleDatabase SampleDatabase::OnPostgres(const std::wstring& original) {
    return OnServer(L"postgresql", PostgresConnection(), L" TEMPLATE " + original,
                    L" WITH (FORCE)");
}

bool SampleDatabase::MariaDbAvailable() {
    return !MariaDbConnection().empty();
}

// The server knows no copies of a database.
SampleDatabase SampleDatabase::MariaDb() {
    SampleDatabase database = OnServer(L"mariadb", MariaDbConnection(), L"", L"");
    OdbcSession(database.odbcString_).ExecuteScript(Script(L"mariadb.sql"));
    return database;
}

bool SampleDatabase::GaleraAvailable() {
    return !GaleraConnection().empty();
}

SampleDatabase SampleDatabase::Galera() {
    SampleDatabase database = OnServer(L"mariadb", GaleraConnection(), L"", L"");
    OdbcSession(database.odbcString_).ExecuteScript(Script(L"mariadb.sql"));
    database.odbcString_ += L"InitStmt=SET SESSION sql_mode='ANSI'";
    return database;
}

SampleDatabase SampleDatabase::OnServer(const wchar_t* engine, const std::wstring& server,
                                        const std::wstring& how, const wchar_t* howDropped) {
    SampleDatabase database(engine);
    const std::wstring name = UniqueName();
    OdbcSession(server).Execute(L"CREATE DATABASE " + name + how);
    database.database_ = name;
    database.server_ = server;
    database.drop_ = L"DROP DATABASE IF EXISTS " + name + howDropped;
    database.odbcString_ = WithDatabase(server, name);
    database.connectionString_ = database.odbcString_;
    return database;
}

SampleDatabase::SampleDatabase(SampleDatabase&& other) noexcept : engine_(other.engine_) {
    folder_.swap(other.folder_);
    database_.swap(other.database_);
    server_.swap(other.server_);
    drop_.swap(other.drop_);
    connectionString_.swap(other.connectionString_);
    odbcString_.swap(other.odbcString_);
}

SampleDatabase::~SampleDatabase() {
    if (drop_.empty())
        return;
    try {
        OdbcSession(server_).Execute(drop_);
    } catch (const std::exception&) {
        // The server is the runner's own and goes with it.
    }
}

std::wstring SampleDatabase::File() const {
    return folder_ ? folder_->File(kFileName) : L"";
}

long SampleDatabase::Execute(std::wstring_view statement) const {
    return OdbcSession(odbcString_).Execute(statement);
}

std::wstring SampleDatabase::ScalarText(std::wstring_view statement) const {
    return OdbcSession(odbcString_).ScalarText(statement);
}

std::vector<OdbcSession::Row> SampleDatabase::Query(std::wstring_view statement) const {
    return OdbcSession(odbcString_).Query(statement);
}

} // namespace vndesk::test
