// SPDX-License-Identifier: MIT
// Plays the user of the calling thread's forms from inside their own loops, for tests with forms
// in several threads at once: a driver from outside would meet the windows of all.
#pragma once

#include "support/forms/host_process.h"

namespace vndesk::test {

// One step: when the form is there and `ready` agrees, `act` is done, once.
struct Step {
    const wchar_t* form;
    std::function<void(HWND)> act;
    std::function<bool(HWND)> ready = {};
};

class ThreadScript {
public:
    explicit ThreadScript(std::vector<Step> steps)
        : steps_(std::move(steps)), deadline_(GetTickCount64() + kProcessStart),
          timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer)) {
        current_ = this;
    }
    ~ThreadScript() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
        EXPECT_EQ(steps_.size(), next_) << "steps done";
    }
    ThreadScript(const ThreadScript&) = delete;
    ThreadScript& operator=(const ThreadScript&) = delete;

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (current_)
            current_->Go();
    }

    static std::vector<HWND> OwnWindows() {
        std::vector<HWND> windows = TopWindows();
        std::erase_if(windows, [](HWND window) {
            return GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId();
        });
        return windows;
    }

    // A step that does not come ends the forms, so that the call returns.
    void Go() {
        const bool late = GetTickCount64() > deadline_;
        for (const HWND window : OwnWindows()) {
            if (!IsWindowEnabled(window))
                continue;
            if (late)
                PostMessageW(window, WM_CLOSE, 0, 0);
            else if (next_ < steps_.size() && WindowName(window) == steps_[next_].form &&
                     (!steps_[next_].ready || steps_[next_].ready(window)))
                // Counted first: what is done may let the timer in again.
                return steps_[next_++].act(window);
        }
    }

    static inline thread_local ThreadScript* current_ = nullptr;
    const std::vector<Step> steps_;
    size_t next_ = 0;
    const ULONGLONG deadline_;
    UINT_PTR timer_;
};

} // namespace vndesk::test
