// SPDX-License-Identifier: MIT
// After each test the registry and the disk must be what they were before the first.
#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/setup.h"
#include "install/snapshot.h"
#include "support/text.h"
#include "vndesk_version.h"

namespace vndesk::test {

// As the entry among the installed programs tells it.
inline const std::wstring kProductVersion = FromUtf8(VNDESK_SHORT_VERSION);

// One of the classes stands for all where keys are read or damaged.
inline constexpr char kVarnokClass[] = "{50CDD460-A34D-40EF-8FCA-C03B99BADC66}";

class InstallTest : public testing::Test {
protected:
    // The state before the test: before anything was installed.
    static const Snapshot& Pristine() {
        if (last_.empty()) {
            // Each user of Windows has this key; under Wine it comes with the first class.
            HKEY classes = nullptr;
            RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes", &classes);
            RegCloseKey(classes);
            last_ = TakeSnapshot();
        }
        return last_;
    }
    void SetUp() override { Pristine(); }
    void TearDown() override {
        const Snapshot after = TakeSnapshot();
        EXPECT_EQ("", Differences(Pristine(), after)) << "left behind";
        // What one test leaves is not the next one's fault.
        last_ = after;
    }
    static void ExpectWorks(const std::wstring& folder) {
        EXPECT_EQ("", CreateClasses(folder, L"x86"));
        EXPECT_EQ("", CreateClasses(folder, L"x64"));
    }

private:
    static inline Snapshot last_;
};

} // namespace vndesk::test
