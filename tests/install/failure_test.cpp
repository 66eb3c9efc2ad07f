// SPDX-License-Identifier: MIT
// Installations that cannot succeed: an exit code that says why, and everything as it was.
#include "install/install_fixture.h"
#include "support/child_process.h"

namespace {

using namespace vndesk::test;

const std::wstring kFolder = L"C:\\Program Files\\VnDesk";

// The library cannot write its lasting keys below one that goes with the session.
class Obstacle {
public:
    explicit Obstacle(REGSAM view) : view_(view) {
        HKEY key = nullptr;
        const LSTATUS status =
            RegCreateKeyExW(HKEY_LOCAL_MACHINE, Name().c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                            KEY_WRITE | view_, nullptr, &key, nullptr);
        if (status != ERROR_SUCCESS)
            Fail(L"no obstacle made: error " + std::to_wstring(status));
        RegCloseKey(key);
    }
    ~Obstacle() { RegDeleteKeyExW(HKEY_LOCAL_MACHINE, Name().c_str(), view_, 0); }
    Obstacle(const Obstacle&) = delete;
    Obstacle& operator=(const Obstacle&) = delete;

    static std::wstring Name() { return L"Software\\Classes\\CLSID\\" + FromUtf8(kVarnokClass); }

private:
    REGSAM view_;
};

// What a program does that uses the library.
class User {
public:
    explicit User(const std::wstring& dll) : module_(LoadLibraryW(dll.c_str())) {
        if (!module_)
            Fail(L"cannot load " + dll);
    }
    ~User() { FreeLibrary(module_); }
    User(const User&) = delete;
    User& operator=(const User&) = delete;

private:
    HMODULE module_;
};

TEST_F(InstallTest, AFailedRegistrationIsRolledBack) {
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
        const Obstacle obstacle(view);
        EXPECT_EQ(kRegistration, RunSetup(L""));
    }
}

TEST_F(InstallTest, AFailedRepairLeavesWhatWasThere) {
    ASSERT_EQ(kDone, RunSetup(L""));
    WriteText(kFolder + L"\\docs\\menus.md", "as it was");
    // With the 64-bit classes gone, a key of theirs can be made one that goes with the session.
    ChildProcess unregister(
        {L"C:\\windows\\sysnative\\regsvr32.exe", L"/s", L"/u", kFolder + L"\\x64\\vndesk.dll"});
    ASSERT_EQ(0u, unregister.ExitCode(60'000));
    {
        const Obstacle obstacle(KEY_WOW64_64KEY);
        EXPECT_EQ(kRegistration, RunSetup(L""));
    }
    EXPECT_EQ("as it was", ReadText(kFolder + L"\\docs\\menus.md"));
    EXPECT_EQ("", CreateClasses(kFolder, L"x86"));
    EXPECT_EQ(kProductVersion, EntryText(AllUsers(), L"DisplayVersion"));
    ASSERT_EQ(kDone, RunSetup(L""));
    ExpectWorks(kFolder);
    EXPECT_EQ(kDone, RunUninstaller(kFolder));
}

TEST_F(InstallTest, ALibraryInUseIsNotTouched) {
    ASSERT_EQ(kDone, RunSetup(L""));
    const Snapshot installed = TakeSnapshot();
    {
        const User user(kFolder + L"\\x86\\vndesk.dll");
        EXPECT_EQ(kInUse, RunSetup(L""));
        EXPECT_EQ(kInUse, RunUninstaller(kFolder));
        EXPECT_EQ("", Differences(installed, TakeSnapshot()));
    }
    EXPECT_EQ(kDone, RunUninstaller(kFolder));
}

TEST_F(InstallTest, AFileThatCannotBeWrittenIsNamedByTheExitCode) {
    const std::wstring folder = L"C:\\Blocked";
    CreateDirectoryW(folder.c_str(), nullptr);
    CreateDirectoryW((folder + L"\\LICENSE").c_str(), nullptr);
    const Snapshot before = TakeSnapshot();
    EXPECT_EQ(kFiles, RunSetup(L"/D=" + folder));
    EXPECT_EQ("", Differences(before, TakeSnapshot()));
    RemoveDirectoryW((folder + L"\\LICENSE").c_str());
    RemoveDirectoryW(folder.c_str());
}

} // namespace
