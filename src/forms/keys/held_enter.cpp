// SPDX-License-Identifier: MIT
#include "forms/keys/held_enter.h"

namespace vndesk {

namespace {

LRESULT CALLBACK DropRepeats(int code, WPARAM removed, LPARAM taken) {
    auto& message = *reinterpret_cast<MSG*>(taken);
    if (code == HC_ACTION && IsEnterRepeat(message))
        message.message = WM_NULL;
    return CallNextHookEx(nullptr, code, removed, taken);
}

// False when another key is the next one.
bool TakeRepeats(ULONGLONG& last) {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE)) {
        if (!IsEnterRepeat(message))
            return false;
        PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE);
        last = GetTickCount64();
    }
    return true;
}

} // namespace

bool IsEnterDown(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
}

bool IsEnterRepeat(const MSG& message) {
    return IsEnterDown(message) && (HIWORD(message.lParam) & KF_REPEAT);
}

NoEnterRepeats::NoEnterRepeats()
    : hook_(SetWindowsHookExW(WH_GETMESSAGE, DropRepeats, nullptr, GetCurrentThreadId())) {}

NoEnterRepeats::~NoEnterRepeats() {
    if (hook_)
        UnhookWindowsHookEx(hook_);
}

void WaitWhileEnterIsHeld() {
    // Keys begin to repeat after a second at the latest. One whose release another program has got
    // seems to be held, and does not repeat.
    constexpr ULONGLONG kLongestPause = 1100;
    constexpr DWORD kLook = 10;
    ULONGLONG last = GetTickCount64();
    for (bool held = true; held;) {
        held = GetAsyncKeyState(VK_RETURN) < 0 && GetTickCount64() - last < kLongestPause;
        if (!TakeRepeats(last))
            return;
        if (held)
            MsgWaitForMultipleObjects(0, nullptr, FALSE, kLook, QS_KEY);
    }
}

} // namespace vndesk
