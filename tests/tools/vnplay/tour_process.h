// SPDX-License-Identifier: MIT
// The program that is played: started here, ended with its owner.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace vndesk::test {

class TourProcess {
public:
    // The program and its arguments. It writes to our own output. Throws when it cannot be started.
    explicit TourProcess(const std::vector<std::wstring>& words);
    ~TourProcess();
    TourProcess(const TourProcess&) = delete;
    TourProcess& operator=(const TourProcess&) = delete;

    DWORD Id() const { return process_.dwProcessId; }
    bool HasEnded() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0; }
    // Waits for the end and throws when there is none.
    DWORD ExitCode(DWORD milliseconds);

private:
    PROCESS_INFORMATION process_ = {};
};

} // namespace vndesk::test
