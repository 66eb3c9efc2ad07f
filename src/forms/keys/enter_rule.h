// SPDX-License-Identifier: MIT
// What Enter does in the forms of a host for whom it confirms: it goes on while there is something
// to fill in, and presses the default button.
#pragma once

#include <cstddef>
#include <span>

namespace vndesk {

// A control as Enter sees it. A form has them in the order of Tab.
struct EnterStop {
    enum Kind { Field, Shown, Button }; // Shown: reached by Tab, with nothing to fill in

    Kind kind = Field;
    bool enabled = true;
    bool empty = false;
    bool goesOn = false;   // on to the next field, also where that is filled
    bool confirms = false; // the form's default button
};

struct EnterStep {
    enum Kind { Nothing, Focus, Press };

    Kind kind = Nothing;
    size_t stop = 0;
};

// `from` is where the keyboard is, beyond the last one where it is in no control. `always` is
// Control and Enter, which confirms wherever it is.
EnterStep AfterEnter(std::span<const EnterStop> stops, size_t from, bool always);

} // namespace vndesk
