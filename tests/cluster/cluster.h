// SPDX-License-Identifier: MIT
// Two servers, of which one writes and the other follows (scripts/with-standby): the one that
// writes is killed, and the other takes over. Before each test that needs them there are two.
#pragma once

#include <gtest/gtest.h>

#include "support/forms/font_in_use.h"
#include "support/sample_database.h"
#include "support/server_control.h"
#include "support/ui_windows.h"

namespace vndesk::test {

class Cluster : public testing::Test {
protected:
    void SetUp() override {
        if (!ServerControl::HasStandby())
            GTEST_SKIP() << "no server with a standby: VNDESK_PG_STANDBY is not set";
        if (alone_ && NeedsStandby())
            Rejoin();
    }

    virtual bool NeedsStandby() const { return true; }

    void FailOver() {
        alone_ = true;
        servers_.Give("kill");
        servers_.Give("promote");
    }
    void Rejoin() {
        servers_.Give("rejoin");
        alone_ = false;
    }
    // Commits wait from now on. `arrives` says whether the standby will have them all the same.
    void StopAnswers(bool arrives) { servers_.Give(arrives ? "hold" : "part"); }

private:
    // That of all controls on forms that are prepared.
    const FontInUse font_{{kHouseFont, 9}};
    ServerControl servers_;
    static inline bool alone_ = false;
};

} // namespace vndesk::test
