// SPDX-License-Identifier: MIT
#include "support/setup.h"

#include <shlobj.h>

#include <sstream>

#include "support/child_process.h"
#include "support/env.h"
#include "support/temp_dir.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kEntry[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\VnDesk";
constexpr DWORD kLimit = 120'000;

// Setup programs take the last word as it stands, without quotes.
DWORD RunLine(std::wstring line) {
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        Fail(L"cannot start " + line + L": error " + std::to_wstring(GetLastError()));
    CloseHandle(process.hThread);
    DWORD code = STILL_ACTIVE;
    const bool ended = WaitForSingleObject(process.hProcess, kLimit) == WAIT_OBJECT_0;
    if (!ended)
        TerminateProcess(process.hProcess, 1);
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    if (!ended)
        Fail(line + L" does not end");
    return code;
}

std::wstring KnownFolder(int folder) {
    wchar_t path[MAX_PATH] = L"";
    if (FAILED(SHGetFolderPathW(nullptr, folder, nullptr, 0, path)))
        Fail(L"a folder of the system is not known");
    return path;
}

// Both kinds of programs are built when the setup is.
std::wstring Dist() {
    return SourceDir() + L"\\dist\\";
}

void ReadEntry(const Scope& scope, const wchar_t* name, DWORD type, void* data, DWORD size) {
    HKEY key = nullptr;
    RegOpenKeyExW(scope.root, kEntry, 0, KEY_READ | KEY_WOW64_64KEY, &key);
    RegGetValueW(key, nullptr, name, type, nullptr, data, &size);
    RegCloseKey(key);
}

} // namespace

const Scope& AllUsers() {
    static const Scope scope = {L"/AllUsers", HKEY_LOCAL_MACHINE, L"C:\\Program Files\\VnDesk"};
    return scope;
}

const Scope& CurrentUser() {
    static const Scope scope = {L"/CurrentUser", HKEY_CURRENT_USER,
                                KnownFolder(CSIDL_LOCAL_APPDATA) + L"\\Programs\\VnDesk"};
    return scope;
}

DWORD RunSetup(const std::wstring& words) {
    WIN32_FIND_DATAW found;
    const HANDLE find = FindFirstFileW((Dist() + L"vndesk-*-setup.exe").c_str(), &found);
    if (find == INVALID_HANDLE_VALUE)
        Fail(L"dist has no setup program");
    FindClose(find);
    return RunLine(L'"' + Dist() + found.cFileName + L"\" /S " + words);
}

DWORD RunUninstaller(const std::wstring& folder) {
    // A program that runs cannot be deleted: a copy can do it, and can be waited for.
    const TempDir scratch;
    const std::wstring copy = scratch.File(L"uninstall.exe");
    if (!CopyFileW((folder + L"\\uninstall.exe").c_str(), copy.c_str(), TRUE))
        Fail(L"no uninstaller in " + folder);
    return RunLine(L'"' + copy + L"\" /S _?=" + folder);
}

void RemoveAsTheSystemDoes(const Scope& scope) {
    // A copy of the program does the work, and the topmost folder is the last thing to go.
    const std::wstring folder = EntryText(scope, L"CreatedFolder");
    if (folder.empty())
        Fail(L"the setup has not made the folder");
    RunLine(EntryText(scope, L"QuietUninstallString"));
    const ULONGLONG end = GetTickCount64() + kLimit;
    while (FileExists(folder)) {
        if (GetTickCount64() > end)
            Fail(L"the uninstaller does not end");
        Sleep(20);
    }
}

std::wstring EntryText(const Scope& scope, const wchar_t* name) {
    wchar_t text[1024] = L"";
    ReadEntry(scope, name, RRF_RT_REG_SZ, text, sizeof text);
    return text;
}

void SetEntryText(const Scope& scope, const wchar_t* name, const std::wstring& text) {
    HKEY key = nullptr;
    LSTATUS status = RegOpenKeyExW(scope.root, kEntry, 0, KEY_WRITE | KEY_WOW64_64KEY, &key);
    if (status == ERROR_SUCCESS)
        status = RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    if (status != ERROR_SUCCESS)
        Fail(L"the entry cannot be changed");
}

DWORD EntryNumber(const Scope& scope, const wchar_t* name) {
    DWORD number = 0;
    ReadEntry(scope, name, RRF_RT_REG_DWORD, &number, sizeof number);
    return number;
}

std::vector<std::wstring> InstalledNames(const std::wstring& folder) {
    std::vector<std::wstring> names;
    std::istringstream list(ReadText(folder + L"\\installed.txt"));
    for (std::string line; std::getline(list, line);)
        names.push_back(FromUtf8(line));
    return names;
}

std::string CreateClasses(const std::wstring& folder, const std::wstring& arch) {
    const TempDir scratch;
    const std::wstring output = scratch.File(L"output");
    ChildProcess program(
        {Dist() + arch + L"\\tests\\vncreate.exe", folder + L"\\" + arch + L"\\vndesk.dll"},
        output);
    const DWORD code = program.ExitCode(kLimit);
    return code == 0 ? "" : std::to_string(code) + " failures:\n" + ReadText(output);
}

bool FileExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void WriteText(const std::wstring& path, const std::string& text) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    const bool good =
        file != INVALID_HANDLE_VALUE &&
        WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
    if (!good)
        Fail(L"cannot write " + path);
}

std::string ReadText(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        Fail(L"cannot read " + path);
    std::string text(GetFileSize(file, nullptr), '\0');
    DWORD size = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &size, nullptr);
    CloseHandle(file);
    text.resize(size);
    return text;
}

} // namespace vndesk::test
