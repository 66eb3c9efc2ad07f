// SPDX-License-Identifier: MIT
#include "ado/engine/session.h"

#include <algorithm>

#include "ado/engine/ado_error.h"
#include "ado/engine/bind.h"
#include "ado/engine/row_fetch.h"
#include "ado/engine/statement_trace.h"
#include "ado/text/parameter_markers.h"

namespace vndesk::ado {

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

Outcome Session::Execute(std::wstring_view statement, CommandKind kind,
                         const std::vector<ParameterValue>& values) {
    if (!IsOpen())
        ThrowMisuse(AdoMisuse::InvalidConnection);
    TraceStatement(statement);
    return log_->Record(source_, [&] {
        std::vector<BoundValue> bound = BindableValues(values, connection_->Text());
        OdbcStatement running(*connection_); // reads what is bound
        const std::wstring translated = ForEngine(statement, kind);
        if (bound.empty())
            running.Execute(translated);
        else if (connection_->IsSqlite())
            ExecuteBound(running, BareMarkers(translated), bound);
        else
            ExecuteBound(running, translated, bound);
        Outcome outcome;
        if (running.ColumnCount() > 0)
            outcome.rows = FetchRows(running);
        else
            outcome.affected = std::max<long>(0, static_cast<long>(running.RowCount()));
        return outcome;
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
        } else {
            connection_->EndTransaction(commit);
            connection_->SetAutoCommit(true);
        }
        --level_;
    });
}

} // namespace vndesk::ado
