// SPDX-License-Identifier: MIT
#include "options.h"

#include <windows.h>
#include <shellapi.h>

namespace {

constexpr wchar_t kUsage[] =
    L"vntour --database FILE [--once]\n"
    L"vntour --connect CONNECTION-STRING [--once]\n\n"
    L"--once  leave after the logon (exit code 0 when somebody has logged on, else 1)";

std::wstring FullPath(const std::wstring& file) {
    std::wstring path(GetFullPathNameW(file.c_str(), 0, nullptr, nullptr), L'\0');
    path.resize(
        GetFullPathNameW(file.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
    return path;
}

} // namespace

std::wstring EmbeddedConnection(const std::wstring& file) {
    // The library takes a connection string with "Jet OLEDB" in it for a Jet database.
    return L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file + L";Jet OLEDB:Engine Type=5";
}

Options ReadOptions(const wchar_t* commandLine) {
    Options options;
    int count = 0;
    wchar_t** words = CommandLineToArgvW(commandLine, &count);
    for (int i = 1; i < count; ++i) {
        const std::wstring word = words[i];
        const bool hasValue = i + 1 < count;
        if (word == L"--once")
            options.once = true;
        else if (word == L"--database" && hasValue)
            options.file = FullPath(words[++i]);
        else if (word == L"--connect" && hasValue)
            options.connect = words[++i];
        else
            options.error = kUsage;
    }
    LocalFree(words);
    if (!options.file.empty())
        options.connect = EmbeddedConnection(options.file);
    if (options.connect.empty())
        options.error = kUsage;
    return options;
}
