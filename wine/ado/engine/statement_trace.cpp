// SPDX-License-Identifier: MIT
#include "ado/engine/statement_trace.h"

#include <windows.h>

#include <string>

#include "ado/text/utf8.h"

namespace vndesk::ado {

void TraceStatement(std::wstring_view statement) {
    wchar_t path[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(L"VNDESK_ADO_TRACE", path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        return;
    const HANDLE file = CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    std::string line = ToUtf8(statement);
    for (char& ch : line)
        if (ch == '\r' || ch == '\n')
            ch = ' ';
    line += '\n';
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(file);
}

} // namespace vndesk::ado
