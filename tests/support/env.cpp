// SPDX-License-Identifier: MIT
#include "support/env.h"

#include <windows.h>

#include "support/text.h"

namespace vndesk::test {
namespace {

// The runner may hand over the paths of the machine around Wine.
std::wstring WindowsPath(std::wstring path) {
    for (wchar_t& c : path)
        if (c == L'/')
            c = L'\\';
    if (!path.empty() && path[0] == L'\\' && (path.size() < 2 || path[1] != L'\\'))
        path.insert(0, L"Z:");
    while (path.size() > 3 && path.back() == L'\\')
        path.pop_back();
    return path;
}

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

} // namespace

std::wstring EnvironmentText(const wchar_t* name) {
    std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
    return text;
}

std::wstring SourceDir() {
    std::wstring folder = WindowsPath(EnvironmentText(L"VNDESK_SOURCE_DIR"));
    if (!folder.empty())
        return folder;
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    folder = program;
    for (size_t cut; (cut = folder.rfind(L'\\')) != std::wstring::npos;) {
        folder.resize(cut);
        if (Exists(folder + L"\\schema\\sqlite.sql"))
            return folder;
    }
    Fail(L"VNDESK_SOURCE_DIR is not set and the sources are not above the program");
}

std::wstring OutDir() {
    std::wstring folder = WindowsPath(EnvironmentText(L"VNDESK_OUT"));
    if (folder.empty()) {
        wchar_t temp[MAX_PATH + 1] = L"";
        GetTempPathW(MAX_PATH + 1, temp);
        folder = std::wstring(temp) + L"vndesk-out";
    }
    for (size_t cut = folder.find(L'\\', 3); cut != std::wstring::npos;
         cut = folder.find(L'\\', cut + 1))
        CreateDirectoryW(folder.substr(0, cut).c_str(), nullptr);
    CreateDirectoryW(folder.c_str(), nullptr);
    return folder;
}

std::wstring PostgresConnection() {
    return EnvironmentText(L"VNDESK_PG");
}

std::wstring MariaDbConnection() {
    return EnvironmentText(L"VNDESK_MARIADB");
}

std::wstring GaleraConnection() {
    return EnvironmentText(L"VNDESK_GALERA");
}

bool RunningUnderWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace vndesk::test
