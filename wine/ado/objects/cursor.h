// SPDX-License-Identifier: MIT
// Where a record set stands in its rows. The record set, its Fields and each Field share it.
#pragma once

#include <cstddef>
#include <memory>

#include "ado/engine/ado_error.h"
#include "ado/engine/row_set.h"
#include "ado/engine/session.h"

namespace vndesk::ado {

struct Cursor {
    std::shared_ptr<const RowSet> rows; // null while closed
    std::shared_ptr<Session> session;   // null when the rows stand alone
    std::ptrdiff_t position = 0; // -1 before the first row, the number of rows behind the last

    // Closing a connection closes its record sets.
    bool IsOpen() const { return rows && (!session || session->IsOpen()); }
    void RequireOpen() const {
        if (!IsOpen())
            ThrowMisuse(AdoMisuse::ObjectClosed);
    }
    std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(rows->RowCount()); }
    bool AtBegin() const { return position < 0 || Count() == 0; }
    bool AtEnd() const { return position >= Count(); }
    std::size_t RequireRow() const {
        RequireOpen();
        if (AtBegin() || AtEnd())
            ThrowMisuse(AdoMisuse::NoCurrentRecord);
        return static_cast<std::size_t>(position);
    }
};

} // namespace vndesk::ado
