// SPDX-License-Identifier: MIT
#include "support/child_process.h"

#include "support/text.h"

namespace vndesk::test {
namespace {

// A word as the other side's parser gives it back: backslashes count only before a quote.
std::wstring Quoted(const std::wstring& word) {
    std::wstring text = L"\"";
    size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, L'\\') + L'"';
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::wstring>& words, const std::wstring& output,
                           Errors errors) {
    std::wstring line;
    for (const std::wstring& word : words)
        line += (line.empty() ? L"" : L" ") + Quoted(word);
    if (output.empty()) {
        Start(line, GetStdHandle(STD_OUTPUT_HANDLE), GetStdHandle(STD_ERROR_HANDLE));
        return;
    }
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const HANDLE file = CreateFileW(output.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        Fail(L"cannot write " + output);
    Start(line, file, errors == Errors::ToTheFile ? file : GetStdHandle(STD_ERROR_HANDLE));
    CloseHandle(file);
}

void ChildProcess::Start(std::wstring line, HANDLE output, HANDLE errors) {
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = output;
    start.hStdError = errors;
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process_))
        Fail(L"cannot start " + line + L": error " + std::to_wstring(GetLastError()));
    CloseHandle(process_.hThread);
}

ChildProcess::~ChildProcess() {
    if (!HasEnded())
        TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hProcess);
}

DWORD ChildProcess::ExitCode(DWORD milliseconds) {
    if (WaitForSingleObject(process_.hProcess, milliseconds) != WAIT_OBJECT_0)
        Fail(L"the program does not end");
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

} // namespace vndesk::test
