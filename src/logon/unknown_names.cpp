// SPDX-License-Identifier: MIT
#include "logon/unknown_names.h"

#include <algorithm>

#include "comkit/base/upper_case.h"
#include "data/connect/engine.h"

namespace vndesk {

LogonAnswer UnknownNames::AsIfKnown(const LogonAnswer& answer, const std::wstring& name,
                                    const Settings& settings) {
    if (answer.userCode != 0 || settings.LockAfter == 0)
        return answer;
    const Moment now = MachineTime();
    const LockRules rules = RulesFor(0, settings);
    Tries& tries = tries_[UpperCase(name)];
    const Gate gate = GateAt(tries, now, rules);
    LogonAnswer shown = answer;
    if (!gate.closedUntil) {
        if (gate.startsAnew)
            tries = {0, now};
        if (++tries.failed >= rules.after)
            tries.lockedUntil = ClosedAfter(tries.failed, now, rules);
        shown.triesLeft = std::max(0L, rules.after - tries.failed);
    }
    shown.closedUntil = tries.lockedUntil;
    return shown;
}

} // namespace vndesk
