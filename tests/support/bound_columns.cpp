// SPDX-License-Identifier: MIT
#include "support/bound_columns.h"

#include <sql.h>
#include <sqlext.h>

#include "support/imports.h"

namespace vndesk::test {
namespace {

std::vector<int> counted;

// The bridge binds all columns in turn.
SQLRETURN SQL_API CountAndBind(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                               SQLPOINTER cells, SQLLEN width, SQLLEN* lengths) {
    if (column == 1)
        counted.push_back(0);
    ++counted.back();
    return SQLBindCol(statement, column, type, cells, width, lengths);
}

} // namespace

BoundColumns::BoundColumns() {
    counted.clear();
    if (!GetModuleHandleExW(0, L"adobridge.dll", &bridge_))
        return;
    bind_ = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"odbc32.dll"), "SQLBindCol"));
    for (void** slot : ImportsFrom(bridge_, "odbc32.dll"))
        if (*slot == bind_)
            slot_ = slot;
    if (!slot_)
        throw std::runtime_error("the bridge binds no columns by SQLBindCol");
    SetImport(slot_, reinterpret_cast<void*>(CountAndBind));
}

BoundColumns::~BoundColumns() {
    if (!bridge_)
        return;
    SetImport(slot_, bind_);
    FreeLibrary(bridge_);
}

const std::vector<int>& BoundColumns::OfStatements() const {
    return counted;
}

BareBindings::BareBindings(const std::vector<int>& columnsOfStatements)
    : columns_(columnsOfStatements) {
    if (!columns_.empty())
        session_ = std::make_unique<OdbcSession>(L"Driver=SQLite3;Database=:memory:");
}

void BareBindings::Make() const {
    for (const int count : columns_)
        session_->BindColumns(count);
}

} // namespace vndesk::test
