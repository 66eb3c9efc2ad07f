// SPDX-License-Identifier: MIT
// The tour with a database that has been upgraded: tries are counted, the user is locked and
// unlocked, and logs on with a password that is hashed from then on.
#pragma once

#include <string>

#include "tools/vnplay/steps.h"

namespace vndesk::test {

struct Person {
    std::wstring name, password;
};

// The user must be the first one of the list.
void PlaySecondAct(Tour& tour, const Person& user, const Person& administrator);

} // namespace vndesk::test
