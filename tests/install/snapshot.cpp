// SPDX-License-Identifier: MIT
#include "install/snapshot.h"

#include <windows.h>

#include <fstream>
#include <sstream>

#include "support/temp_dir.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

// What Wine changes by itself when programs run, each with the reason. Matched anywhere in a place.
constexpr const char* kNoise[] = {
    // Our own scratch folders, and those that setup programs leave to the next start of the system:
    // a running uninstaller cannot delete itself.
    "\\AppData\\Local\\Temp\\",
    // The first program that loads the ODBC manager copies the machine's drivers and data sources.
    "\\ODBC\\ODBC.INI",
    "\\ODBC\\ODBCINST.INI",
};

bool IsNoise(const std::string& place) {
    for (const char* part : kNoise)
        if (place.find(part) != std::string::npos)
            return true;
    return false;
}

void Add(Snapshot& snapshot, const std::string& place, const std::string& state) {
    if (!IsNoise(place))
        snapshot[place] = state;
}

void AllowBackup() {
    HANDLE token = nullptr;
    TOKEN_PRIVILEGES privileges = {1, {{{}, SE_PRIVILEGE_ENABLED}}};
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &token) ||
        !LookupPrivilegeValueW(nullptr, SE_BACKUP_NAME, &privileges.Privileges[0].Luid) ||
        !AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr))
        Fail(L"no right to save the registry");
    CloseHandle(token);
}

// The registry as Wine's server saves it, with one call instead of some hundred thousand: a text
// with a line for each value below its key's. Both views are in it, the 32-bit one as Wow6432Node.
void AddRegistry(Snapshot& snapshot, HKEY root, const std::string& name) {
    const TempDir folder;
    const std::wstring file = folder.File(L"saved.reg");
    HKEY software = nullptr;
    LSTATUS status = RegOpenKeyExW(root, L"Software", 0, KEY_READ | KEY_WOW64_64KEY, &software);
    if (status == ERROR_SUCCESS)
        status = RegSaveKeyW(software, file.c_str(), nullptr);
    RegCloseKey(software);
    if (status != ERROR_SUCCESS)
        Fail(L"the registry cannot be saved: error " + std::to_wstring(status));

    std::ifstream text(ToUtf8(file));
    std::string line, key;
    while (std::getline(text, line)) {
        // Long data goes on in the next line.
        for (std::string more; line.ends_with("\\") && std::getline(text, more);)
            line.replace(line.size() - 1, 1, more);
        if (line.starts_with("[")) {
            key = name + "\\" + line.substr(1, line.rfind(']') - 1);
            // In the text each backslash is two.
            for (size_t i = 0; (i = key.find("\\\\", i)) != std::string::npos; ++i)
                key.erase(i, 1);
            Add(snapshot, key, "");
        } else if (line.starts_with("\"") || line.starts_with("@")) {
            const size_t end = line.starts_with("@") ? 1 : line.find("\"=") + 1;
            Add(snapshot, key + "|" + line.substr(0, end), line.substr(end + 1));
        }
    }
}

void AddFolder(Snapshot& snapshot, const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    const HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = entry.cFileName;
        const std::wstring path = folder + L"\\" + name;
        if (name == L"." || name == L"..")
            continue;
        const bool isFolder = entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        std::ostringstream state;
        if (!isFolder)
            state << entry.nFileSizeLow << " bytes, " << entry.ftLastWriteTime.dwHighDateTime << '.'
                  << entry.ftLastWriteTime.dwLowDateTime;
        Add(snapshot, ToUtf8(path), state.str());
        // Links lead out of the disk.
        if (isFolder && !(entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT))
            AddFolder(snapshot, path);
    } while (FindNextFileW(find, &entry));
    FindClose(find);
}

} // namespace

Snapshot TakeSnapshot() {
    Snapshot snapshot;
    AllowBackup();
    AddRegistry(snapshot, HKEY_LOCAL_MACHINE, "HKLM\\Software");
    AddRegistry(snapshot, HKEY_CURRENT_USER, "HKCU\\Software");
    // Without this a 32-bit program sees only one of the system's two folders.
    void* redirection = nullptr;
    Wow64DisableWow64FsRedirection(&redirection);
    AddFolder(snapshot, L"C:");
    Wow64RevertWow64FsRedirection(redirection);
    return snapshot;
}

std::string Differences(const Snapshot& before, const Snapshot& after) {
    std::string text;
    for (const auto& [place, state] : before) {
        const auto found = after.find(place);
        if (found == after.end() || found->second != state)
            text += "- " + place + " " + state + "\n";
    }
    for (const auto& [place, state] : after) {
        const auto found = before.find(place);
        if (found == before.end() || found->second != state)
            text += "+ " + place + " " + state + "\n";
    }
    return text;
}

} // namespace vndesk::test
