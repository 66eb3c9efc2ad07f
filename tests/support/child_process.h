// SPDX-License-Identifier: MIT
// Another program: started here, ended with its owner.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace vndesk::test {

class ChildProcess {
public:
    enum class Errors { ToTheFile, ToOurs };

    // The program and its arguments. It writes to our own output, or to a file. Throws when it
    // cannot be started.
    explicit ChildProcess(const std::vector<std::wstring>& words, const std::wstring& output = {},
                          Errors errors = Errors::ToTheFile);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    DWORD Id() const { return process_.dwProcessId; }
    bool HasEnded() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0; }
    // Waits for the end and throws when there is none.
    DWORD ExitCode(DWORD milliseconds);

private:
    void Start(std::wstring line, HANDLE output, HANDLE errors);

    PROCESS_INFORMATION process_ = {};
};

} // namespace vndesk::test
