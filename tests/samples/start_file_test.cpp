// SPDX-License-Identifier: MIT
// What a newcomer starts after the setup: start.cmd makes a sample database for him and runs a
// program with it. Jet's part is played by the bridge here, so the database is copied.
#include <windows.h>
#include <tlhelp32.h>

#include <functional>

#include "samples/script_folder.h"
#include "support/forms/host_process.h"

namespace vndesk::test {
namespace {

DWORD FindProcess(const std::function<bool(const PROCESSENTRY32W&)>& fits) {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W process = {};
    process.dwSize = sizeof process;
    DWORD found = 0;
    for (BOOL more = Process32FirstW(snapshot, &process); more && !found;
         more = Process32NextW(snapshot, &process))
        if (fits(process))
            found = process.th32ProcessID;
    CloseHandle(snapshot);
    return found;
}

DWORD WaitForProcess(const std::function<bool(const PROCESSENTRY32W&)>& fits) {
    DWORD found = 0;
    if (!WaitUntil([&] { return (found = FindProcess(fits)) != 0; }, kProcessStart))
        Fail(L"the program does not start");
    return found;
}

// start.cmd of some folder, for a user with a folder of his own.
class Start {
public:
    Start(const std::wstring& file, const TempDir& folder, const std::wstring& word = {})
        : profile_(EnvironmentText(L"USERPROFILE")) {
        SetEnvironmentVariableW(L"USERPROFILE", folder.Path().c_str());
        std::vector<std::wstring> words = {file};
        if (!word.empty())
            words.push_back(word);
        command_ = std::make_unique<ChildProcess>(words, folder.File(L"output.txt"));
        SetEnvironmentVariableW(L"USERPROFILE", profile_.c_str());
    }
    ChildProcess& Command() { return *command_; }

private:
    std::wstring profile_;
    std::unique_ptr<ChildProcess> command_;
};

// The folders that the setup makes of these files, with the tour of this bitness.
class SmallInstallation {
public:
    explicit SmallInstallation(const SampleDatabase& database) {
        for (const wchar_t* name : {L"samples", L"schema", L"x86"})
            CreateDirectoryW(folder_.File(name).c_str(), nullptr);
        Copy(SourceDir() + L"\\samples\\start.cmd", L"samples\\start.cmd");
        Copy(database.File(), L"schema\\sample.db");
        Copy(BuiltProgram(L"vntour.exe"), L"x86\\vntour.exe");
    }
    std::wstring File(const wchar_t* name) const { return folder_.File(name); }

private:
    void Copy(const std::wstring& from, const wchar_t* to) {
        if (!CopyFileW(from.c_str(), File(to).c_str(), TRUE))
            Fail(L"cannot copy " + from);
    }
    TempDir folder_;
};

TEST(StartFile, OpensTheTourOnASampleDatabaseOfTheUser) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const SmallInstallation installation(database);
    const TempDir user;
    Start start(installation.File(L"samples\\start.cmd"), user, L"tour");
    const DWORD tour = WaitForProcess(
        [](const PROCESSENTRY32W& process) { return !_wcsicmp(process.szExeFile, L"vntour.exe"); });
    WatchProcess(tour);
    const HWND logon = WaitForForm(L"FrmLogon", kProcessStart);
    SetBox(logon, L"TxtUser", L"Khách");
    Press(logon, L"CmdOk");
    WaitClosed(logon);
    const HWND window = WaitForClass(L"VnTourWindow", kProcessLimit);
    const HWND status = FindWindowExW(window, nullptr, L"msctls_statusbar32", nullptr);
    EXPECT_TRUE(WaitUntil([&] { return TextOf(status).find(L"Khách") != std::wstring::npos; },
                          kProcessLimit))
        << ToUtf8(TextOf(status));
    PostMessageW(window, WM_CLOSE, 0, 0);
    WaitClosed(window);
    WatchProcess(0);
    EXPECT_EQ(0u, start.Command().ExitCode(kProcessLimit));
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(user.File(L"vndesk-sample.mdb").c_str()));
}

#ifndef _WIN64
TEST(StartFile, RunsTheScriptOnTheUsersSampleDatabase) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const TempDir folder;
    CopyFileW(database.File().c_str(), folder.File(L"vndesk-sample.mdb").c_str(), TRUE);
    Start start(ScriptFolder() + L"start.cmd", folder);
    WatchProcess(WaitForProcess([&](const PROCESSENTRY32W& process) {
        return process.th32ParentProcessID == start.Command().Id();
    }));
    const HWND logon = WaitForForm(L"FrmLogon", kProcessStart);
    SetBox(logon, L"TxtUser", L"Khách");
    Press(logon, L"CmdOk");
    const HWND box = WaitForForm(L"NoticeBox", kProcessLimit);
    Press(box, L"Cmd1");
    WaitClosed(box);
    WatchProcess(0);
    start.Command().ExitCode(kProcessLimit);
    const std::wstring printed = ReadUtf8File(folder.File(L"output.txt"));
    EXPECT_NE(std::wstring::npos, printed.find(L"   user 7\r\n")) << ToUtf8(printed);
    EXPECT_NE(std::wstring::npos, printed.find(L"   yes\r\n")) << ToUtf8(printed);
}
#endif

} // namespace
} // namespace vndesk::test
