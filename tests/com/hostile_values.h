// SPDX-License-Identifier: MIT
// What a careless or hostile host may put into an argument: values of every kind, the senseless
// ones too.
#pragma once
#include <comutil.h>

#include <string>
#include <vector>

namespace vndesk::test {

struct HostileValue {
    std::string name;
    VARIANT value; // what it refers to lives as long as the program
    // Nothing that a number or a text could be made of.
    bool unusable = false;
    // A reference that leads nowhere: to be refused by every member.
    bool nowhere = false;
};

const std::vector<HostileValue>& HostileValues();

} // namespace vndesk::test
