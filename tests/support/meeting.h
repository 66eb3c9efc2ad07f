// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <atomic>

#include "support/ui_windows.h"

namespace vndesk::test {

// Where threads wait for each other: the last one to come does what is to be done, then all go on.
class Meeting {
public:
    explicit Meeting(int expected) : missing_(expected) {}

    template <class Act> void Arrive(Act act) {
        if (--missing_ == 0) {
            act();
            over_ = true;
        } else if (!WaitUntil([this] { return over_.load(); }, 60000)) {
            ADD_FAILURE() << missing_ << " have not come";
        }
    }

private:
    std::atomic<int> missing_;
    std::atomic<bool> over_{false};
};

} // namespace vndesk::test
