// SPDX-License-Identifier: MIT
// An opened database: its ODBC connection, its dialect and its transactions. A connection and the
// record sets opened on it share one session; closing it closes them all.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ado/engine/error_log.h"
#include "ado/engine/odbc.h"
#include "ado/engine/parameter_value.h"
#include "ado/engine/rewriting.h"
#include "ado/engine/row_set.h"
#include "ado/text/dialect.h"

namespace vndesk::ado {

enum class CommandKind { Statement, Table };

struct Outcome {
    std::shared_ptr<const RowSet> rows; // null when the statement returns none
    long affected = -1;                 // rows changed; -1 for a statement that returns rows
};

class Session {
public:
    // `odbcText` is what the driver manager reads.
    Session(const std::wstring& odbcText, OdbcText text, std::shared_ptr<ErrorLog> log);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool IsOpen() const { return connection_.has_value(); }
    void Close();

    // SQLite opens any file and notices only when it reads. Throws the driver's error.
    void ReadFileHeader() { RunPlain(L"PRAGMA schema_version"); }

    // `values` stand for the statement's question marks.
    Outcome Execute(std::wstring_view statement, CommandKind kind,
                    const std::vector<ParameterValue>& values = {});

    // What the driver says of its engine.
    const std::wstring& EngineName() const { return connection_->EngineName(); }
    std::wstring EngineVersion() const { return connection_->Info(SQL_DBMS_VER); }

    // The level that was begun, 1 for the outermost. Inner ones are save points.
    long BeginTransaction();
    void EndTransaction(bool commit);

private:
    std::wstring ForEngine(std::wstring_view statement, CommandKind kind) const;
    std::wstring SavePoint() const;
    void RunPlain(const std::wstring& statement);

    std::shared_ptr<ErrorLog> log_;
    std::optional<OdbcConnection> connection_;
    std::wstring source_ = L"ODBC";
    Dialect dialect_ = {};
    const bool asWritten_ = LeavesStatements();
    long level_ = 0;
};

struct OpenRequest {
    std::wstring provider; // of the property; the string's own wins
    std::wstring connectionString;
    std::wstring user;
    std::wstring password;
};

// Opens what a host's connection string names.
std::shared_ptr<Session> OpenSession(const OpenRequest& request, std::shared_ptr<ErrorLog> log);

} // namespace vndesk::ado
