// SPDX-License-Identifier: MIT
#include "output.h"

#include <windows.h>

void PrintLine(const std::wstring& text) {
    HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
    // Started from a command prompt: its console is not ours until we ask for it.
    if ((!out || out == INVALID_HANDLE_VALUE) && AttachConsole(ATTACH_PARENT_PROCESS))
        out = GetStdHandle(STD_OUTPUT_HANDLE);
    if (!out || out == INVALID_HANDLE_VALUE)
        return;
    const std::wstring line = text + L"\r\n";
    const int length = static_cast<int>(line.size());
    std::string bytes(
        WideCharToMultiByte(CP_UTF8, 0, line.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, line.data(), length, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    DWORD written = 0;
    WriteFile(out, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}
