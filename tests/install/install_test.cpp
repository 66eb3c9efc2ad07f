// SPDX-License-Identifier: MIT
// Installing, repairing and removing, in a Wine prefix where the library has never been. After each
// test the registry and the disk must be what they were before the first.
#include <gtest/gtest.h>

#include "setup.h"
#include "snapshot.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

// The state before anything was installed.
const Snapshot& Pristine() {
    static const Snapshot snapshot = TakeSnapshot();
    return snapshot;
}

class InstallTest : public testing::Test {
protected:
    void SetUp() override {
        // COM's part in the registry of a new user is made when it is first used.
        Pristine();
    }
    void TearDown() override {
        EXPECT_EQ("", Differences(Pristine(), TakeSnapshot())) << "left behind";
    }
};

void ExpectWorks(const std::wstring& folder) {
    EXPECT_EQ("", CreateClasses(folder, L"x86"));
    EXPECT_EQ("", CreateClasses(folder, L"x64"));
}

TEST_F(InstallTest, InstallsForAllUsersWithoutQuestions) {
    ASSERT_EQ(kDone, RunSetup(L""));
    const std::wstring folder = AllUsers().defaultFolder;
    for (const std::wstring& name : InstalledNames(folder))
        EXPECT_TRUE(FileExists(folder + L"\\" + name)) << ToUtf8(name);
    ExpectWorks(folder);
    RemoveAsTheSystemDoes(AllUsers());
    EXPECT_FALSE(FileExists(folder));
}

} // namespace
