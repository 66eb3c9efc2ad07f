// SPDX-License-Identifier: MIT
// Running the setup where an installation is already.
#include <algorithm>

#include "install/install_fixture.h"

namespace {

using namespace vndesk::test;

const std::wstring kFolder = L"C:\\Program Files\\VnDesk";

// Of files the sizes only: the uninstaller is made anew each time.
Snapshot WithoutTimes(Snapshot snapshot) {
    for (auto& [place, state] : snapshot)
        if (place.starts_with("C:"))
            state.resize(std::min(state.size(), state.find(',')));
    return snapshot;
}

TEST_F(InstallTest, ASecondRunRepairsWhatIsMissingOrDamaged) {
    ASSERT_EQ(kDone, RunSetup(L""));
    const Snapshot whole = TakeSnapshot();
    ASSERT_TRUE(DeleteFileW((kFolder + L"\\x64\\vndesk.dll").c_str()));
    ASSERT_TRUE(DeleteFileW((kFolder + L"\\installed.txt").c_str()));
    WriteText(kFolder + L"\\x86\\vndesk.dll", "cut short");
    ASSERT_EQ(ERROR_SUCCESS,
              RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\VnDesk.clsLogon"));
    const wchar_t wrong[] = L"C:\\wrong.dll";
    ASSERT_EQ(ERROR_SUCCESS,
              RegSetKeyValueW(HKEY_CLASSES_ROOT,
                              (L"CLSID\\" + FromUtf8(kVarnokClass) + L"\\InprocServer32").c_str(),
                              nullptr, REG_SZ, wrong, sizeof wrong));
    ASSERT_NE("", CreateClasses(kFolder, L"x64")) << "the damage would not be noticed";

    ASSERT_EQ(kDone, RunSetup(L""));
    EXPECT_EQ("", Differences(WithoutTimes(whole), WithoutTimes(TakeSnapshot())));
    ExpectWorks(kFolder);
    EXPECT_EQ(kDone, RunUninstaller(kFolder));
}

// Made to look as an earlier version would: another number, and a file that the new one does not
// have.
TEST_F(InstallTest, ANewerVersionReplacesAnOlderOne) {
    ASSERT_EQ(kDone, RunSetup(L""));
    const std::wstring list = kFolder + L"\\installed.txt";
    WriteText(list, "old\\\nold\\gone.dll\n" + ReadText(list) + "old\\\n");
    CreateDirectoryW((kFolder + L"\\old").c_str(), nullptr);
    WriteText(kFolder + L"\\old\\gone.dll", "of the old version");
    WriteText(kFolder + L"\\docs\\menus.md", "of the old version");
    SetEntryText(AllUsers(), L"DisplayVersion", L"0.9");

    ASSERT_EQ(kDone, RunSetup(L""));
    EXPECT_FALSE(FileExists(kFolder + L"\\old"));
    EXPECT_NE("of the old version", ReadText(kFolder + L"\\docs\\menus.md"));
    EXPECT_EQ(kProductVersion, EntryText(AllUsers(), L"DisplayVersion"));
    EXPECT_EQ(kDone, RunUninstaller(kFolder));
}

TEST_F(InstallTest, AnotherFolderReplacesTheFirst) {
    ASSERT_EQ(kDone, RunSetup(L""));
    const std::wstring other = L"C:\\VnDesk 2";
    ASSERT_EQ(kDone, RunSetup(L"/D=" + other));
    EXPECT_FALSE(FileExists(kFolder));
    ExpectWorks(other);
    EXPECT_EQ(other, EntryText(AllUsers(), L"InstallLocation"));
    EXPECT_EQ(kDone, RunUninstaller(other));
}

TEST_F(InstallTest, TheOtherScopeIsRemoved) {
    ASSERT_EQ(kDone, RunSetup(L"/CurrentUser"));
    ASSERT_EQ(kDone, RunSetup(L"/AllUsers"));
    EXPECT_FALSE(FileExists(CurrentUser().defaultFolder));
    EXPECT_EQ(L"", EntryText(CurrentUser(), L"InstallLocation"));
    ExpectWorks(kFolder);
    ASSERT_EQ(kDone, RunSetup(L"/CurrentUser"));
    EXPECT_FALSE(FileExists(kFolder));
    EXPECT_EQ(L"", EntryText(AllUsers(), L"InstallLocation"));
    EXPECT_EQ(kDone, RunUninstaller(CurrentUser().defaultFolder));
}

TEST_F(InstallTest, TheOtherScopeKeepsItsFolder) {
    ASSERT_EQ(kDone, RunSetup(L"/AllUsers"));
    const Snapshot installed = TakeSnapshot();
    EXPECT_EQ(kOtherInstallation, RunSetup(L"/CurrentUser /D=" + kFolder));
    EXPECT_EQ("", Differences(installed, TakeSnapshot()));
    EXPECT_EQ(kDone, RunUninstaller(kFolder));
}

} // namespace
