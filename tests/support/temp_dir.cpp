// SPDX-License-Identifier: MIT
#include "support/temp_dir.h"

#include <windows.h>

#include "support/text.h"

namespace vndesk::test {
namespace {

void RemoveTree(const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (find != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring name = entry.cFileName;
            const std::wstring path = folder + L"\\" + name;
            if (name == L"." || name == L"..")
                continue;
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_READONLY)
                SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveTree(path);
            else
                DeleteFileW(path.c_str());
        } while (FindNextFileW(find, &entry));
        FindClose(find);
    }
    RemoveDirectoryW(folder.c_str());
}

} // namespace

TempDir::TempDir() {
    static LONG counter = 0;
    wchar_t temp[MAX_PATH + 1] = L"";
    GetTempPathW(MAX_PATH + 1, temp);
    do {
        path_ = std::wstring(temp) + L"vndesk-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                std::to_wstring(InterlockedIncrement(&counter));
        if (CreateDirectoryW(path_.c_str(), nullptr))
            return;
    } while (GetLastError() == ERROR_ALREADY_EXISTS);
    Fail(L"cannot create " + path_);
}

TempDir::~TempDir() {
    RemoveTree(path_);
}

} // namespace vndesk::test
