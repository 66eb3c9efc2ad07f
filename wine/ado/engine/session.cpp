// SPDX-License-Identifier: MIT
#include "ado/engine/session.h"

#include <algorithm>

#include "ado/engine/ado_error.h"
#include "ado/engine/row_fetch.h"
#include "ado/engine/statement_trace.h"
#include "ado/text/parameter_markers.h"

namespace vndesk::ado {

namespace {

Outcome OutcomeOf(OdbcStatement& running) {
    Outcome outcome;
    if (running.ColumnCount() > 0)
        outcome.rows = FetchRows(running);
    else
        outcome.affected = std::max<long>(0, static_cast<long>(running.RowCount()));
    return outcome;
}

} // namespace

Session::Session(const std::wstring& odbcText, OdbcText text, std::shared_ptr<ErrorLog> log)
    : log_(std::move(log)) {
    log_->Record(source_, [&] { connection_.emplace(odbcText, text); });
    if (!connection_->EngineName().empty())
        source_ = connection_->EngineName();
    dialect_ = DialectOf(connection_->EngineName(), connection_->NameQuote());
}

Session::~Session() {
    Close();
}

void Session::Close() {
    kept_.reset();
    // A driver does not disconnect inside a transaction.
    if (connection_ && level_ > 0)
        Trap([&] { connection_->EndTransaction(false); });
    level_ = 0;
    connection_.reset();
}

std::wstring Session::ForEngine(std::wstring_view statement, CommandKind kind) const {
    if (asWritten_)
        return (kind == CommandKind::Table ? L"SELECT * FROM " : L"") + std::wstring(statement);
    return kind == CommandKind::Table ? TableStatement(statement, dialect_)
                                      : TranslateStatement(statement, dialect_);
}

std::wstring Session::ForDriver(std::wstring_view statement, CommandKind kind) const {
    const std::wstring translated = ForEngine(statement, kind);
    return connection_->IsSqlite() ? BareMarkers(translated) : translated;
}

Outcome Session::Execute(std::wstring_view statement, CommandKind kind,
                         const std::vector<ParameterValue>& values, Preparation preparation) {
    if (!IsOpen())
        ThrowMisuse(AdoMisuse::InvalidConnection);
    TraceStatement(statement);
    return log_->Record(source_, [&] {
        std::vector<BoundValue> bound = BindableValues(values, connection_->Text());
        if (preparation == Preparation::Kept && kind == CommandKind::Statement && !bound.empty())
            return ExecuteKept(statement, std::move(bound));
        OdbcStatement running(*connection_); // reads what is bound
        if (bound.empty()) {
            running.Execute(ForEngine(statement, kind));
        } else {
            Prepare(running, ForDriver(statement, kind));
            ExecuteBound(running, bound);
        }
        return OutcomeOf(running);
    });
}

// One that fails or gives rows is not kept: the driver may hold on to something.
Outcome Session::ExecuteKept(std::wstring_view statement, std::vector<BoundValue> values) {
    std::unique_ptr<KeptStatement> kept = std::move(kept_);
    // A value that is not given anew would be read where the last one lay.
    if (!kept || kept->text != statement || kept->values.size() != values.size()) {
        kept = std::make_unique<KeptStatement>(*connection_, statement);
        Prepare(kept->running, ForDriver(statement, CommandKind::Statement));
    }
    kept->values = std::move(values);
    ExecuteBound(kept->running, kept->values);
    Outcome outcome = OutcomeOf(kept->running);
    if (!outcome.rows)
        kept_ = std::move(kept);
    return outcome;
}

Outcome Session::PrimaryKeys(const std::optional<std::wstring>& catalog,
                             const std::optional<std::wstring>& schema, const std::wstring& table) {
    if (!IsOpen())
        ThrowMisuse(AdoMisuse::InvalidConnection);
    return log_->Record(source_, [&] {
        OdbcStatement running(*connection_);
        running.ReadPrimaryKeys(catalog, schema, table);
        return Outcome{FetchRows(running, {L"TABLE_CATALOG", L"TABLE_SCHEMA", L"TABLE_NAME",
                                           L"COLUMN_NAME", L"ORDINAL", L"PK_NAME"})};
    });
}

std::wstring Session::SavePoint() const {
    return L"ado_level_" + std::to_wstring(level_);
}

void Session::RunPlain(const std::wstring& statement) {
    OdbcStatement(*connection_).Execute(statement);
}

long Session::BeginTransaction() {
    return log_->Record(source_, [&] {
        if (level_ == 0)
            connection_->SetAutoCommit(false);
        else
            RunPlain(L"SAVEPOINT ado_level_" + std::to_wstring(level_ + 1));
        return ++level_;
    });
}

void Session::EndTransaction(bool commit) {
    if (level_ == 0)
        throw ComError(kNoTransaction, L"No transaction is active.");
    log_->Record(source_, [&] {
        if (level_ > 1) {
            if (!commit)
                RunPlain(L"ROLLBACK TO SAVEPOINT " + SavePoint());
            RunPlain(L"RELEASE SAVEPOINT " + SavePoint());
            --level_;
            return;
        }
        connection_->EndTransaction(commit);
        --level_;
        // The end was made, whatever comes now. Without it, nothing that follows would be
        // committed.
        if (Trap([&] { connection_->SetAutoCommit(true); }))
            Close();
    });
}

} // namespace vndesk::ado
