// SPDX-License-Identifier: MIT
#include "accounts/lock.h"

#include <algorithm>

#include "accounts/text/account_statements.h"
#include "comkit/base/com_error.h"
#include "data/connect/engine.h"

namespace vndesk {

Lock::Lock(const Database& database, const Account& account)
    : database_(database), account_(account), rules_(RulesFor(account.userCode, database.settings)),
      now_(ServerTime(database)) {}

Gate Lock::Enter() {
    if (!account_.kept)
        KeepAccount(database_, account_.userCode);
    Gate gate = GateAt(account_.tries, now_, rules_);
    // Where nothing can be written, tries are not counted, and what has been read decides.
    Trap([&] { gate = Count(gate); });
    return gate;
}

Gate Lock::Count(Gate gate) {
    const long code = account_.userCode;
    if (gate.clockWentBack)
        Execute(database_, gate.closedUntil
                               ? PullLockStatement(code, *gate.closedUntil, database_.Dialect())
                               : PullWindowStatement(code, now_, database_.Dialect()));
    if (gate.closedUntil)
        return gate;
    if (gate.startsAnew) {
        Execute(database_, StartAnewStatement(code, now_, rules_, database_.Dialect()));
        account_.tries.failed = 0;
    }
    const Engine engine = EngineOf(database_);
    const long failed = account_.tries.failed + 1;
    if (Execute(database_,
                CountTryStatement(code, failed, now_, rules_, engine, database_.Dialect())) == 1)
        return gate;
    ReadKept(database_, account_);
    // No row could be added.
    if (!account_.kept)
        return gate;
    // Another program has closed the gate in between.
    gate = GateAt(account_.tries, now_, rules_);
    if (!gate.closedUntil)
        gate.closedUntil = SecondsAfter(now_, 1);
    return gate;
}

std::optional<long> Lock::TriesLeft() {
    if (rules_.delayed)
        return std::nullopt;
    ReadKept(database_, account_);
    return std::max(0L, rules_.after - account_.tries.failed);
}

} // namespace vndesk
