// SPDX-License-Identifier: MIT
#include "accounts/text/lock_out.h"

#include <algorithm>
#include <cmath>

namespace vndesk {

namespace {

constexpr double kSecondsOfADay = 86400;
constexpr long kMaxDelay = 30;
// Half a second: times are whole seconds, which a double does not hold exactly.
constexpr double kSlack = 0.5 / kSecondsOfADay;

bool IsAfter(Moment left, Moment right) {
    return left.days > right.days + kSlack;
}

} // namespace

Moment SecondsAfter(Moment moment, long seconds) {
    return {moment.days + seconds / kSecondsOfADay};
}

Moment MinutesAfter(Moment moment, long minutes) {
    return {moment.days + minutes * 60.0 / kSecondsOfADay};
}

long SecondsBetween(Moment earlier, Moment later) {
    const double seconds = (later.days - earlier.days) * kSecondsOfADay;
    return std::max(1L, static_cast<long>(std::ceil(seconds - 0.5)));
}

LockRules RulesFor(long userCode, const Settings& settings) {
    return {settings.LockAfter, settings.LockWindowMinutes, settings.LockMinutes,
            userCode == kMainUser};
}

Gate GateAt(const Tries& tries, Moment now, const LockRules& rules) {
    Gate gate;
    if (tries.lockedUntil && IsAfter(*tries.lockedUntil, now)) {
        const Moment last =
            rules.delayed ? SecondsAfter(now, kMaxDelay) : MinutesAfter(now, rules.lockMinutes);
        gate.clockWentBack = IsAfter(*tries.lockedUntil, last);
        gate.closedUntil = gate.clockWentBack ? last : *tries.lockedUntil;
        return gate;
    }
    if (!tries.firstAt) {
        gate.startsAnew = true;
        return gate;
    }
    gate.clockWentBack = IsAfter(*tries.firstAt, now);
    const bool lockIsOver = tries.lockedUntil && !rules.delayed;
    gate.startsAnew =
        lockIsOver || IsAfter(MinutesAfter(now, -rules.windowMinutes), *tries.firstAt);
    return gate;
}

Moment ClosedAfter(long failed, Moment now, const LockRules& rules) {
    return rules.delayed ? SecondsAfter(now, DelaySeconds(failed))
                         : MinutesAfter(now, rules.lockMinutes);
}

long DelaySeconds(long failed) {
    constexpr long kDoublings = 5;
    return std::min(kMaxDelay, 1L << std::clamp(failed, 1L, kDoublings));
}

} // namespace vndesk
