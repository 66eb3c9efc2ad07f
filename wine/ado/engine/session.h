// SPDX-License-Identifier: MIT
// An opened database: its ODBC connection, its dialect and its transactions. A connection and the
// record sets opened on it share one session; closing it closes them all.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ado/engine/bind.h"
#include "ado/engine/error_log.h"
#include "ado/engine/odbc.h"
#include "ado/engine/parameter_value.h"
#include "ado/engine/rewriting.h"
#include "ado/engine/row_set.h"
#include "ado/text/dialect.h"

namespace vndesk::ado {

enum class CommandKind { Statement, Table };

// Whether the driver is to keep what it has prepared, for the same statement with other values.
enum class Preparation { Once, Kept };

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
                    const std::vector<ParameterValue>& values = {},
                    Preparation preparation = Preparation::Once);

    // The columns of a table's primary key, under ADO's names.
    Outcome PrimaryKeys(const std::optional<std::wstring>& catalog,
                        const std::optional<std::wstring>& schema, const std::wstring& table);

    // What the driver says of its engine.
    const std::wstring& EngineName() const { return connection_->EngineName(); }
    std::wstring EngineVersion() const { return connection_->Info(SQL_DBMS_VER); }

    // The level that was begun, 1 for the outermost. Inner ones are save points.
    long BeginTransaction();
    void EndTransaction(bool commit);

private:
    struct KeptStatement {
        KeptStatement(const OdbcConnection& connection, std::wstring_view statement)
            : text(statement), running(connection) {}
        const std::wstring text; // as the host has given it
        OdbcStatement running;
        std::vector<BoundValue> values;
    };

    std::wstring ForEngine(std::wstring_view statement, CommandKind kind) const;
    std::wstring ForDriver(std::wstring_view statement, CommandKind kind) const;
    Outcome ExecuteKept(std::wstring_view statement, std::vector<BoundValue> values);
    std::wstring SavePoint() const;
    void RunPlain(const std::wstring& statement);

    std::shared_ptr<ErrorLog> log_;
    std::optional<OdbcConnection> connection_;
    std::unique_ptr<KeptStatement> kept_; // the last one; goes before the connection
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
