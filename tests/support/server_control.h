// SPDX-License-Identifier: MIT
// The database servers that run beside the tests (scripts/with-postgres, scripts/with-standby):
// they are taken away and brought back by orders through a pipe.
#pragma once

#include <string>

namespace vndesk::test {

class ServerControl {
public:
    static bool Available();
    // Whether there are two, of which one writes and the other follows.
    static bool HasStandby();

    // Gives an order, and waits until it has been carried out. Throws where nobody obeys.
    void Give(const std::string& order);
};

} // namespace vndesk::test
