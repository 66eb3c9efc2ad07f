// SPDX-License-Identifier: MIT
// What the platform keeps of the columns that statements have bound: newer Wine versions hold a
// length for each, and free that of a statement's first column alone. Counted in the ADO bridge,
// and bound again by bare calls, it can be told from what the library keeps.
#pragma once
#include <memory>
#include <vector>
#include <windows.h>

#include "support/odbc_session.h"

namespace vndesk::test {

// Counts while it lives what the bridge binds; nothing where no bridge is loaded.
class BoundColumns {
public:
    BoundColumns();
    ~BoundColumns();
    BoundColumns(const BoundColumns&) = delete;
    BoundColumns& operator=(const BoundColumns&) = delete;

    // How many each statement has bound.
    const std::vector<int>& OfStatements() const;

private:
    HMODULE bridge_ = nullptr;
    void** slot_ = nullptr;
    void* bind_ = nullptr;
};

// As many columns of as many statements, for one row each.
class BareBindings {
public:
    explicit BareBindings(const std::vector<int>& columnsOfStatements);
    void Make() const;

private:
    const std::vector<int> columns_;
    std::unique_ptr<OdbcSession> session_;
};

} // namespace vndesk::test
