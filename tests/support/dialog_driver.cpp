// SPDX-License-Identifier: MIT
#include "support/dialog_driver.h"

#include <algorithm>
#include <exception>
#include <gtest/gtest.h>

#include "support/failure_picture.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

// Asks a window to go: as its close box would, then as its buttons would (a Yes/No box has no
// close box), last by the key that cancels.
void AskToClose(HWND window) {
    if (!IsWindowEnabled(window)) // waits for a modal window above it
        return;
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (WaitUntil([=] { return !IsWindow(window) || !IsWindowVisible(window); }, 300))
        return;
    for (const int id : {IDCANCEL, IDNO, IDOK})
        if (const HWND button = GetDlgItem(window, id))
            PostMessageW(button, BM_CLICK, 0, 0);
    if (WaitUntil([=] { return !IsWindow(window) || !IsWindowVisible(window); }, 300))
        return;
    const HWND focus = FocusWindow(window);
    PostMessageW(focus ? focus : window, WM_KEYDOWN, VK_ESCAPE, 0);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassName(child).find(L"utton") != std::wstring::npos && IsWindowEnabled(child))
            PostMessageW(child, BM_CLICK, 0, 0);
}

} // namespace

DialogDriver::DialogDriver(std::function<void()> script, DWORD grace)
    : before_(TopWindows()), returned_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      done_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_([this, script = std::move(script), grace] {
          Run(script, grace);
          SetEvent(done_);
      }) {}

DialogDriver::~DialogDriver() {
    Finish();
    CloseHandle(returned_);
    CloseHandle(done_);
}

void DialogDriver::Finish() {
    if (!thread_.joinable())
        return;
    SetEvent(returned_);
    // The script may still be sending messages to windows of this thread.
    while (MsgWaitForMultipleObjects(1, &done_, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    thread_.join();
    if (!failure_.empty())
        ADD_FAILURE() << failure_;
}

void DialogDriver::Run(const std::function<void()>& script, DWORD grace) {
    bool failed = false;
    try {
        script();
        failed = testing::Test::HasFatalFailure(); // an ASSERT has left the script early
    } catch (const std::exception& error) {
        failure_ = error.what();
        failed = true;
    }
    if (!failed && WaitForSingleObject(returned_, grace) == WAIT_OBJECT_0)
        return;
    if (WaitForSingleObject(returned_, 0) == WAIT_OBJECT_0)
        return;
    const std::string picture = PictureOfFailure();
    for (HWND window : LeftOver())
        failure_ += "\nleft open: " + ToUtf8(DescribeWindow(window));
    if (failure_.empty())
        failure_ = "the modal call does not return, though no window is open";
    failure_ += picture;
    while (WaitForSingleObject(returned_, 100) != WAIT_OBJECT_0)
        CloseLeftOver();
}

std::vector<HWND> DialogDriver::LeftOver() const {
    std::vector<HWND> windows = TopWindows();
    std::erase_if(windows, [this](HWND window) {
        return std::find(before_.begin(), before_.end(), window) != before_.end();
    });
    return windows;
}

void DialogDriver::CloseLeftOver() {
    for (HWND window : LeftOver())
        AskToClose(window);
}

} // namespace vndesk::test
