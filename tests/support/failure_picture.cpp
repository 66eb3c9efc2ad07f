// SPDX-License-Identifier: MIT
#include "support/failure_picture.h"

#include <atomic>
#include <gtest/gtest.h>

#include "support/screenshot.h"
#include "support/text.h"

namespace vndesk::test {

std::string PictureOfFailure() {
    static std::atomic<const testing::TestInfo*> pictured{nullptr};
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    if (!test || pictured.exchange(test) == test)
        return "";
    std::string name = std::string("failed-") + test->test_suite_name() + "." + test->name();
    for (char& c : name)
        if (c == '/')
            c = '-';
    const std::wstring picture = SaveDesktop(std::wstring(name.begin(), name.end()));
    return picture.empty() ? "" : "\nscreen: " + ToUtf8(picture);
}

} // namespace vndesk::test
