// SPDX-License-Identifier: MIT
// Installing and removing, in a Wine prefix where the library has never been.
#include <algorithm>

#include <shlobj.h>
#include <wrl/client.h>

#include "install/install_fixture.h"

namespace {

using namespace vndesk::test;
using Microsoft::WRL::ComPtr;
using testing::HasSubstr;

TEST_F(InstallTest, InstallsForAllUsersWithoutQuestions) {
    ASSERT_EQ(kDone, RunSetup(L""));
    const std::wstring folder = AllUsers().defaultFolder;
    for (const std::wstring& name : InstalledNames(folder))
        EXPECT_TRUE(FileExists(folder + L"\\" + name)) << ToUtf8(name);
    ExpectWorks(folder);

    const Scope& entry = AllUsers();
    EXPECT_EQ(L"VnDesk", EntryText(entry, L"DisplayName"));
    EXPECT_EQ(kProductVersion, EntryText(entry, L"DisplayVersion"));
    EXPECT_EQ(L"The VnDesk makers", EntryText(entry, L"Publisher"));
    EXPECT_EQ(folder, EntryText(entry, L"InstallLocation"));
    EXPECT_EQ(folder + L"\\uninstall.exe", EntryText(entry, L"DisplayIcon"));
    EXPECT_EQ(L'"' + folder + L"\\uninstall.exe\" /AllUsers", EntryText(entry, L"UninstallString"));
    ULONGLONG bytes = 0;
    for (const std::wstring& name : InstalledNames(folder))
        if (!name.ends_with(L'\\'))
            bytes += ReadText(folder + L"\\" + name).size();
    EXPECT_NEAR(static_cast<double>(bytes) / 1024, EntryNumber(entry, L"EstimatedSize"), 200);

    RemoveAsTheSystemDoes(AllUsers());
}

// What an entry of the start menu starts.
std::wstring MenuEntry(int menu, const std::wstring& name) {
    wchar_t folder[MAX_PATH] = L"", program[MAX_PATH] = L"", words[MAX_PATH] = L"";
    SHGetFolderPathW(nullptr, menu, nullptr, 0, folder);
    const std::wstring file = std::wstring(folder) + L"\\VnDesk\\VnDesk " + name + L".lnk";
    ComPtr<IShellLinkW> link;
    ComPtr<IPersistFile> stored;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(&link))) ||
        FAILED(link.As(&stored)) || FAILED(stored->Load(file.c_str(), STGM_READ)) ||
        FAILED(link->GetPath(program, MAX_PATH, nullptr, SLGP_RAWPATH)) ||
        FAILED(link->GetArguments(words, MAX_PATH)))
        return L"";
    EXPECT_TRUE(FileExists(program)) << ToUtf8(program);
    return program + (*words ? L" " + std::wstring(words) : L"");
}

TEST_F(InstallTest, EntriesOfTheStartMenuLeadToWhatIsThere) {
    for (const auto& [scope, menu] : {std::pair(&AllUsers(), CSIDL_COMMON_PROGRAMS),
                                      std::pair(&CurrentUser(), CSIDL_PROGRAMS)}) {
        const std::wstring& folder = scope->defaultFolder;
        ASSERT_EQ(kDone, RunSetup(scope->option));
        EXPECT_EQ(folder + L"\\samples\\start.cmd tour", MenuEntry(menu, L"sample program"));
        EXPECT_EQ(folder + L"\\docs", MenuEntry(menu, L"documents"));
        for (const auto& [bits, arch] : {std::pair(L"32", L"x86"), std::pair(L"64", L"x64")}) {
            const std::wstring check = folder + L"\\" + arch + L"\\vndesk-check.exe";
            EXPECT_TRUE(FileExists(check));
            EXPECT_TRUE(FileExists(folder + L"\\" + arch + L"\\vndesk-convert.exe"));
            EXPECT_TRUE(MenuEntry(menu, L"check (" + std::wstring(bits) + L"-bit)")
                            .ends_with(L"\\cmd.exe /k \"\"" + check + L"\"\""));
        }
        for (const wchar_t* file : {L"x86\\vntour.exe", L"x64\\vntour.exe", L"schema\\sample.db"})
            EXPECT_TRUE(FileExists(folder + L"\\" + file)) << ToUtf8(file);
        EXPECT_EQ(kDone, RunUninstaller(folder));
        EXPECT_EQ(L"", MenuEntry(menu, L"sample program"));
    }
}

// Wine does not let a user's classes be found, so that they can only be read here. It keeps them in
// one view, where those registered last stand, and type libraries with those of all users.
TEST_F(InstallTest, InstallsForOneUserWithoutTouchingTheOthers) {
    ASSERT_EQ(kDone, RunSetup(L"/CurrentUser"));
    const std::wstring folder = CurrentUser().defaultFolder;
    const Snapshot installed = TakeSnapshot();
    const auto server = installed.find("HKCU\\Software\\Classes\\CLSID\\" +
                                       std::string(kVarnokClass) + "\\InprocServer32|@");
    ASSERT_NE(installed.end(), server);
    EXPECT_THAT(server->second, HasSubstr("VnDesk\\\\x64\\\\vndesk.dll"));
    for (const char* bits : {"32", "64"}) {
        const auto library =
            std::find_if(installed.begin(), installed.end(), [&](const auto& item) {
                return item.first.ends_with(std::string("\\1.1\\0\\win") + bits + "|@") &&
                       item.second.find("vndesk.dll") != std::string::npos;
            });
        ASSERT_NE(installed.end(), library) << bits;
        EXPECT_THAT(library->second, HasSubstr("AppData\\\\Local\\\\Programs")) << bits;
    }
    const std::string changes = Differences(Pristine(), installed);
    for (const char* place : {"HKLM\\Software\\Classes\\CLSID", "HKLM\\Software\\Classes\\VnDesk",
                              "HKLM\\Software\\Wow6432Node\\Classes\\CLSID", "ADODB",
                              "HKLM\\Software\\Microsoft", "C:\\Program Files"})
        EXPECT_EQ(std::string::npos, changes.find(place)) << place;
    EXPECT_EQ(folder, EntryText(CurrentUser(), L"InstallLocation"));
    EXPECT_EQ(L"", EntryText(AllUsers(), L"InstallLocation"));

    EXPECT_EQ(kDone, RunUninstaller(folder));
}

TEST_F(InstallTest, AFolderMayHaveSpacesAndVietnameseLetters) {
    const std::wstring folder = L"C:\\Phần mềm của tôi\\Bàn làm việc";
    ASSERT_EQ(kDone, RunSetup(L"/D=" + folder));
    ExpectWorks(folder);
    EXPECT_EQ(folder, EntryText(AllUsers(), L"InstallLocation"));
    RemoveAsTheSystemDoes(AllUsers());
    EXPECT_FALSE(FileExists(L"C:\\Phần mềm của tôi")) << "made by the setup";
}

TEST_F(InstallTest, FilesOfOthersStay) {
    const std::wstring folder = L"C:\\Shared";
    ASSERT_EQ(kDone, RunSetup(L"/D=" + folder));
    WriteText(folder + L"\\docs\\mine.txt", "mine");
    EXPECT_EQ(kDone, RunUninstaller(folder));
    EXPECT_EQ("mine", ReadText(folder + L"\\docs\\mine.txt"));
    DeleteFileW((folder + L"\\docs\\mine.txt").c_str());
    RemoveDirectoryW((folder + L"\\docs").c_str());
    RemoveDirectoryW(folder.c_str());
}

TEST_F(InstallTest, RefusesTwoScopes) {
    EXPECT_EQ(kArguments, RunSetup(L"/AllUsers /CurrentUser"));
}

} // namespace
