// SPDX-License-Identifier: MIT
#include "data/connect/transaction.h"

#include "comkit/base/com_error.h"

namespace vndesk {

Transaction::Transaction(const Database& database) : connection_(database.connection) {
    if (!connection_)
        throw ComError(E_UNEXPECTED);
    long level = 0;
    CheckCall(connection_->BeginTrans(&level), connection_.Get(), __uuidof(_Connection));
    open_ = true;
}

// What cannot be taken back now goes with the connection.
Transaction::~Transaction() {
    if (open_)
        connection_->RollbackTrans();
}

void Transaction::Commit() {
    CheckCall(connection_->CommitTrans(), connection_.Get(), __uuidof(_Connection));
    open_ = false;
}

} // namespace vndesk
