// SPDX-License-Identifier: MIT
// One try at a user's password, counted in the database before the password is looked at: of many
// programs at once none gets a try that has not been counted.
#pragma once

#include <optional>

#include "accounts/account.h"

namespace vndesk {

class Lock {
public:
    // Reads the server's time.
    Lock(const Database& database, const Account& account);

    // Counts the try. Nothing is counted where the gate that is returned is closed, and where
    // VnUser cannot be written: that never fails a logon.
    Gate Enter();

    Moment Now() const { return now_; }
    // After a try that failed: how many are left. Nothing for a user who is only delayed.
    std::optional<long> TriesLeft();
    std::optional<Moment> ClosedUntil() const { return account_.tries.lockedUntil; }

private:
    Gate Count(Gate gate);

    const Database& database_;
    Account account_;
    const LockRules rules_;
    const Moment now_;
};

} // namespace vndesk
