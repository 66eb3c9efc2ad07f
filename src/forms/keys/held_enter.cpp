// SPDX-License-Identifier: MIT
#include "forms/keys/held_enter.h"

#include <atomic>

namespace vndesk {

namespace {

// Keys begin to repeat after a second at the latest. One whose release another program has got
// seems to be held, and does not repeat.
constexpr DWORD kLongestPause = 1100; // milliseconds

// There is one keyboard: the key may be released in another window, of another thread.
std::atomic<int> hooks{0};
std::atomic<bool> held{false};
std::atomic<DWORD> lastDown{0};
// The thread whose key is being looked at: forms above each other have a hook each, and the first
// one that is called decides.
std::atomic<DWORD> decided{0};

void PressedNow() {
    held = true;
    lastDown = GetTickCount();
}

bool MayRepeat() {
    return held && GetTickCount() - lastDown < kLongestPause;
}

// What Windows calls a repetition, and what comes without a release between: some systems forget
// that a key is down when another window comes up. Messages that were only posted are no keys.
bool Repeats(const MSG& message) {
    return IsEnterRepeat(message) ||
           (IsEnterDown(message) && MayRepeat() && GetKeyState(VK_RETURN) < 0);
}

LRESULT CALLBACK DropRepeats(int code, WPARAM removed, LPARAM taken) {
    auto& message = *reinterpret_cast<MSG*>(taken);
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP;
    if (code != HC_ACTION || !isKey || message.wParam != VK_RETURN ||
        decided == GetCurrentThreadId())
        return CallNextHookEx(nullptr, code, removed, taken);
    const bool repeats = Repeats(message);
    if ((removed & PM_REMOVE) && message.message == WM_KEYUP)
        held = false;
    else if ((removed & PM_REMOVE) && GetKeyState(VK_RETURN) < 0)
        PressedNow();
    if (repeats)
        message.message = WM_NULL;
    decided = GetCurrentThreadId();
    const LRESULT result = CallNextHookEx(nullptr, code, removed, taken);
    decided = 0;
    return result;
}

} // namespace

bool IsEnterDown(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
}

bool IsEnterRepeat(const MSG& message) {
    return IsEnterDown(message) && (HIWORD(message.lParam) & KF_REPEAT);
}

NoEnterRepeats::NoEnterRepeats()
    : hook_(SetWindowsHookExW(WH_GETMESSAGE, DropRepeats, nullptr, GetCurrentThreadId())) {
    const bool outermost = ++hooks == 1;
    // The stroke that has opened the form, in a box or with a button of the host.
    if (GetKeyState(VK_RETURN) < 0)
        PressedNow();
    else if (outermost)
        held = false;
}

NoEnterRepeats::~NoEnterRepeats() {
    Unhook();
    --hooks;
}

void NoEnterRepeats::Unhook() {
    if (hook_)
        UnhookWindowsHookEx(hook_);
    hook_ = nullptr;
}

void NoEnterRepeats::WaitForRelease() {
    if (hooks > 1)
        return;
    Unhook();
    constexpr DWORD kLook = 10;
    // Wine's GetAsyncKeyState tells for 50 ms what it has found before.
    constexpr int kUpLooks = 12;
    for (int up = 0; MayRepeat() && up < kUpLooks;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE)) {
            if (!IsEnterDown(message))
                return; // released, or another key
            PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE);
            PressedNow();
        }
        up = GetAsyncKeyState(VK_RETURN) < 0 ? 0 : up + 1;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kLook, QS_KEY);
    }
}

} // namespace vndesk
