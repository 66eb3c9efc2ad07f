// SPDX-License-Identifier: MIT
// When a user may try a password. All times are the server's.
#pragma once

#include <optional>

#include "data/text/statement.h"
#include "settings/settings.h"

namespace vndesk {

// The main administrator is delayed between tries and never locked out.
inline constexpr long kMainUser = 3;

// What VnUser holds of a user's tries.
struct Tries {
    long failed = 0;
    std::optional<Moment> firstAt = {}; // of those that count
    std::optional<Moment> lockedUntil = {};
};

struct LockRules {
    long after;
    long windowMinutes;
    long lockMinutes;
    bool delayed; // instead of locked
};

LockRules RulesFor(long userCode, const Settings& settings);

// What holds at a moment.
struct Gate {
    // No password is looked at before. Never further away than the rules lock: a clock that was set
    // back locks nobody for longer, and lets nobody in.
    std::optional<Moment> closedUntil = {};
    // The failures from before do not count any more.
    bool startsAnew = false;
    // The times in the table are those of a clock that has been set back.
    bool clockWentBack = false;
};

Gate GateAt(const Tries& tries, Moment now, const LockRules& rules);

// Until when no further try is allowed, if the next one, the failed-th, fails.
Moment ClosedAfter(long failed, Moment now, const LockRules& rules);

// How long a delayed user waits after so many failures: 2 seconds, 4, 8, 16, then 30.
long DelaySeconds(long failed);

Moment MinutesAfter(Moment moment, long minutes);
Moment SecondsAfter(Moment moment, long seconds);
// Rounded up, at least 1.
long SecondsBetween(Moment earlier, Moment later);

} // namespace vndesk
