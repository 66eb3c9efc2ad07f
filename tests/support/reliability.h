// SPDX-License-Identifier: MIT
// The long form of tests that make test runs in short, and the figures that they tell.
#pragma once
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "support/env.h"

namespace vndesk::test {

// VNDESK_RELIABILITY=full
inline bool FullRun() {
    return EnvironmentText(L"VNDESK_RELIABILITY") == L"full";
}

inline int Rounds(int quick, int full) {
    return FullRun() ? full : quick;
}

// One line of the log, which scripts/reliability collects.
template <class... Parts> void TellFigures(const Parts&... parts) {
    std::ostringstream line;
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    line << "figures: " << test->test_suite_name() << "." << test->name() << ": ";
    (line << ... << parts);
    printf("%s\n", line.str().c_str());
}

} // namespace vndesk::test
