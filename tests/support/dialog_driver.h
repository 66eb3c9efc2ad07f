// SPDX-License-Identifier: MIT
// Plays the user while the test's thread sits in a modal call:
//
//     DialogDriver user([] {
//         HWND form = WaitForForm(L"FrmLogon");
//         ClickWindow(Control(form, L"CMDCAN"));
//     });
//     logon->ShowLogon(connection, &code);
//     user.Finish();
#pragma once
#include <functional>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

namespace vndesk::test {

class DialogDriver {
public:
    // The script may use GoogleTest's assertions and everything that throws std::exception.
    // After a failure, or when windows stay open `grace` milliseconds after the script's end, the
    // left-over windows are closed, so that the modal call returns and the test fails.
    explicit DialogDriver(std::function<void()> script, DWORD grace = 10000);
    ~DialogDriver(); // finishes when that was not done

    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

    // To be called after the modal call: waits for the script and reports its failure here.
    void Finish();

private:
    void Run(const std::function<void()>& script, DWORD grace);
    std::vector<HWND> LeftOver() const;
    void CloseLeftOver();

    std::vector<HWND> before_; // windows that were open at the start are not ours to close
    std::string failure_;      // read after the join
    HANDLE returned_;          // event: the modal call has returned
    HANDLE done_;              // event: the script's thread is at its end
    std::thread thread_;
};

} // namespace vndesk::test
