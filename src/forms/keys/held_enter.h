// SPDX-License-Identifier: MIT
// A key that is held repeats, and each repetition would press another button: in a message, in the
// form behind, in the host's window.
#pragma once

#include <windows.h>

namespace vndesk {

// Enter pressed, or a repetition of it while it is held.
bool IsEnterDown(const MSG& message);
bool IsEnterRepeat(const MSG& message);

// While one lives, the thread gets no repetitions of Enter, whoever's loop takes its messages.
class NoEnterRepeats {
public:
    NoEnterRepeats();
    ~NoEnterRepeats();
    NoEnterRepeats(const NoEnterRepeats&) = delete;
    NoEnterRepeats& operator=(const NoEnterRepeats&) = delete;

    // For a form that Enter has closed: waits until the key is released, or repeats no more. Not
    // in a form behind which another one gets no repetitions either.
    void WaitForRelease();

private:
    void Unhook();

    HHOOK hook_;
};

} // namespace vndesk
