// SPDX-License-Identifier: MIT
// When a user may try a password: window, lock, delays, and clocks that are set back.
#include "accounts/text/lock_out.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr Moment kNow = {46000.4375};
constexpr LockRules kLocked = {3, 15, 10, false};
constexpr LockRules kDelayed = {3, 15, 10, true};

Moment In(long minutes) {
    return MinutesAfter(kNow, minutes);
}
Moment InSeconds(long seconds) {
    return SecondsAfter(kNow, seconds);
}

// Whole seconds from kNow; nothing stays nothing.
std::optional<long> Seconds(const std::optional<Moment>& moment) {
    if (!moment)
        return std::nullopt;
    return static_cast<long>((moment->days - kNow.days) * 86400 + 0.5);
}

} // namespace

TEST(RulesFor, TakesTheSettingsAndDelaysTheMainUserOnly) {
    Settings settings;
    settings.LockAfter = 5;
    settings.LockWindowMinutes = 7;
    settings.LockMinutes = 9;
    const LockRules rules = RulesFor(4, settings);
    EXPECT_EQ(5, rules.after);
    EXPECT_EQ(7, rules.windowMinutes);
    EXPECT_EQ(9, rules.lockMinutes);
    EXPECT_FALSE(rules.delayed);
    EXPECT_TRUE(RulesFor(3, settings).delayed);
    EXPECT_FALSE(RulesFor(0, settings).delayed);
}

TEST(GateAt, FirstTryStartsAnew) {
    const Gate gate = GateAt({}, kNow, kLocked);
    EXPECT_FALSE(gate.closedUntil);
    EXPECT_TRUE(gate.startsAnew);
    EXPECT_FALSE(gate.clockWentBack);
}

TEST(GateAt, FailuresCountUntilTheWindowIsOver) {
    EXPECT_FALSE(GateAt({2, In(0)}, kNow, kLocked).startsAnew);
    EXPECT_FALSE(GateAt({2, In(-14)}, kNow, kLocked).startsAnew);
    EXPECT_FALSE(GateAt({2, In(-15)}, kNow, kLocked).startsAnew);
    EXPECT_TRUE(GateAt({2, SecondsAfter(In(-15), -1)}, kNow, kLocked).startsAnew);
    EXPECT_TRUE(GateAt({2, In(-50000)}, kNow, kLocked).startsAnew);
}

TEST(GateAt, LockHoldsUntilItsTimeAndThenStartsAnew) {
    const Gate closed = GateAt({3, In(-1), In(9)}, kNow, kLocked);
    EXPECT_EQ(9 * 60, Seconds(closed.closedUntil));
    EXPECT_FALSE(closed.clockWentBack);
    EXPECT_EQ(1, Seconds(GateAt({3, In(-9), InSeconds(1)}, kNow, kLocked).closedUntil));
    for (const long seconds : {0L, -1L, -600L}) {
        const Gate open = GateAt({3, In(-11), InSeconds(seconds)}, kNow, kLocked);
        EXPECT_FALSE(open.closedUntil) << seconds;
        EXPECT_TRUE(open.startsAnew) << seconds;
    }
}

TEST(GateAt, LockOfALongWindowEndsWithItsOwnTime) {
    const LockRules rules = {3, 600, 1, false};
    const Gate gate = GateAt({3, In(-2), In(-1)}, kNow, rules);
    EXPECT_FALSE(gate.closedUntil);
    EXPECT_TRUE(gate.startsAnew);
}

TEST(GateAt, DelayKeepsTheFailuresOfTheWindow) {
    const Gate closed = GateAt({2, In(-1), InSeconds(3)}, kNow, kDelayed);
    EXPECT_EQ(3, Seconds(closed.closedUntil));
    const Gate open = GateAt({2, In(-1), InSeconds(0)}, kNow, kDelayed);
    EXPECT_FALSE(open.closedUntil);
    EXPECT_FALSE(open.startsAnew);
    EXPECT_TRUE(GateAt({2, In(-16), In(-15)}, kNow, kDelayed).startsAnew);
}

TEST(GateAt, ClockThatWasSetBackLocksNoLongerThanTheRulesAndLetsNobodyIn) {
    // Locked until 10:10 by a clock that showed 10:00; now it is a year before.
    const Gate gate = GateAt({3, In(525600), In(525610)}, kNow, kLocked);
    EXPECT_EQ(10 * 60, Seconds(gate.closedUntil));
    EXPECT_TRUE(gate.clockWentBack);
    const Gate main = GateAt({3, In(525600), In(525600)}, kNow, kDelayed);
    EXPECT_EQ(30, Seconds(main.closedUntil));
    EXPECT_TRUE(main.clockWentBack);
}

TEST(GateAt, ClockThatWasSetBackALittleKeepsTheLockAsItIs) {
    const Gate gate = GateAt({3, In(2), In(10)}, kNow, kLocked);
    EXPECT_EQ(10 * 60, Seconds(gate.closedUntil));
    EXPECT_FALSE(gate.clockWentBack);
}

TEST(GateAt, FailuresFromTheFutureCountAndTheirWindowIsPulled) {
    const Gate gate = GateAt({2, In(1)}, kNow, kLocked);
    EXPECT_FALSE(gate.closedUntil);
    EXPECT_FALSE(gate.startsAnew);
    EXPECT_TRUE(gate.clockWentBack);
}

TEST(ClosedAfter, IsTheLockOrTheDelay) {
    EXPECT_EQ(10 * 60, Seconds(ClosedAfter(1, kNow, kLocked)));
    EXPECT_EQ(10 * 60, Seconds(ClosedAfter(3, kNow, kLocked)));
    EXPECT_EQ(2, Seconds(ClosedAfter(1, kNow, kDelayed)));
    EXPECT_EQ(30, Seconds(ClosedAfter(99, kNow, kDelayed)));
}

TEST(DelaySeconds, DoublesUpToHalfAMinute) {
    const long wanted[] = {2, 4, 8, 16, 30, 30};
    for (long failed = 1; failed <= 6; ++failed)
        EXPECT_EQ(wanted[failed - 1], DelaySeconds(failed));
    EXPECT_EQ(2, DelaySeconds(0));
    EXPECT_EQ(2, DelaySeconds(-5));
    EXPECT_EQ(30, DelaySeconds(2147483647));
}

TEST(SecondsBetween, RoundsUpAndIsAtLeastOne) {
    EXPECT_EQ(30, SecondsBetween(kNow, InSeconds(30)));
    EXPECT_EQ(1, SecondsBetween(kNow, kNow));
    EXPECT_EQ(1, SecondsBetween(InSeconds(5), kNow));
    EXPECT_EQ(600, SecondsBetween(kNow, In(10)));
}

TEST(MinutesAfter, TakesTheLongestTimesThatMayBeSet) {
    EXPECT_DOUBLE_EQ(kNow.days + 365, In(525600).days);
    EXPECT_DOUBLE_EQ(kNow.days - 365, In(-525600).days);
}
