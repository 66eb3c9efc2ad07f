// SPDX-License-Identifier: MIT
// Several writes that belong together.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

// Taken back at the end unless it was committed.
class Transaction {
public:
    explicit Transaction(const Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    const AdoConnection connection_;
    bool open_ = false;
};

} // namespace vndesk
