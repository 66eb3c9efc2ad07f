// SPDX-License-Identifier: MIT
// The setup program and the installations that it makes.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace vndesk::test {

// Exit codes, as docs/installing.md has them.
enum SetupCode : DWORD {
    kDone = 0,
    kNoRights = 3,
    kInUse = 4,
    kRegistration = 5,
    kFiles = 6,
    kOtherInstallation = 7,
    kArguments = 8
};

// What makes the difference between all users and one.
struct Scope {
    const wchar_t* option;
    HKEY root;
    std::wstring defaultFolder;
};
const Scope& AllUsers();
const Scope& CurrentUser();

// Runs the setup silently with the words given and returns its exit code.
DWORD RunSetup(const std::wstring& words);

// Runs an installation's uninstaller, waits for its end and returns its exit code.
DWORD RunUninstaller(const std::wstring& folder);

// Runs the line that "Add or remove programs" has for removing without questions, and waits until
// the topmost folder that the setup had made has gone.
void RemoveAsTheSystemDoes(const Scope& scope);

// Values of the entry under "Add or remove programs"; empty and 0 when they are not there.
std::wstring EntryText(const Scope& scope, const wchar_t* name);
void SetEntryText(const Scope& scope, const wchar_t* name, const std::wstring& text);
DWORD EntryNumber(const Scope& scope, const wchar_t* name);

// The lines of the list that the uninstaller goes by.
std::vector<std::wstring> InstalledNames(const std::wstring& folder);

// What a program of the architecture says that creates every class of the installation and looks
// where it comes from; empty when all is well.
std::string CreateClasses(const std::wstring& folder, const std::wstring& arch);

bool FileExists(const std::wstring& path);
void WriteText(const std::wstring& path, const std::string& text);
std::string ReadText(const std::wstring& path);

} // namespace vndesk::test
