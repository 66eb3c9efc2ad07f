// SPDX-License-Identifier: MIT
#include "support/keys.h"

#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

// Faster input overtakes focus changes that the receiving thread has still to make.
constexpr DWORD kPause = kKeyPause;

void Send(INPUT& input) {
    if (SendInput(1, &input, sizeof input) != 1)
        Fail(L"SendInput was refused");
}

void SendKey(WORD virtualKey, wchar_t unicode, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = unicode ? static_cast<WORD>(unicode)
                             : static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    Send(input);
}

DWORD ExtendedFlag(WORD virtualKey) {
    switch (virtualKey) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_INSERT:
    case VK_DELETE:
    case VK_APPS:
        return KEYEVENTF_EXTENDEDKEY;
    }
    return 0;
}

void SendMouse(DWORD flags, DWORD data = 0) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    Send(input);
    Sleep(kPause / 2);
}

void Click(POINT point, DWORD down, DWORD up, int times) {
    MoveMouseTo(point);
    for (int i = 0; i < times; ++i) {
        SendMouse(down);
        SendMouse(up);
    }
    Sleep(kPause);
}

POINT VisibleCentre(HWND window) {
    RECT box;
    if (!GetWindowRect(window, &box) || !IsWindowVisible(window))
        Fail(L"cannot click a window that is not visible: " + DescribeWindow(window));
    const POINT point = {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    // A disabled window is not found by its point: its parent is, which is what a user would hit.
    const HWND hit = WindowFromPoint(point);
    const HWND root = GetAncestor(window, GA_ROOT);
    if (hit && GetAncestor(hit, GA_ROOT) != root)
        Fail(DescribeWindow(window) + L" is covered by " + DescribeWindow(hit));
    return point;
}

} // namespace

void PressKey(WORD virtualKey, unsigned modifiers) {
    const struct {
        unsigned bit;
        WORD key;
    } kModifiers[] = {{kShift, VK_SHIFT}, {kControl, VK_CONTROL}, {kAlt, VK_MENU}};
    for (const auto& modifier : kModifiers)
        if (modifiers & modifier.bit)
            SendKey(modifier.key, 0, 0);
    SendKey(virtualKey, 0, ExtendedFlag(virtualKey));
    SendKey(virtualKey, 0, ExtendedFlag(virtualKey) | KEYEVENTF_KEYUP);
    for (const auto& modifier : kModifiers)
        if (modifiers & modifier.bit)
            SendKey(modifier.key, 0, KEYEVENTF_KEYUP);
    Sleep(kPause);
}

void HoldKey(WORD virtualKey, int repeats) {
    constexpr DWORD kRepeat = 30; // milliseconds, of a fast keyboard
    for (int i = 0; i <= repeats; ++i) {
        SendKey(virtualKey, 0, ExtendedFlag(virtualKey));
        Sleep(kRepeat);
    }
    SendKey(virtualKey, 0, ExtendedFlag(virtualKey) | KEYEVENTF_KEYUP);
    Sleep(kPause);
}

namespace {

// In Wine 10, and not in 8, a window that comes to the front takes the keys of the X server for
// those that are down, and that knows nothing of SendInput.
bool KeysOutliveWindows() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    const auto version = reinterpret_cast<const char*(CDECL*)()>(
        reinterpret_cast<void*>(GetProcAddress(system, "wine_get_version")));
    return !version || strtol(version(), nullptr, 10) < 10;
}

} // namespace

void HoldKeyBesideWindows(WORD virtualKey) {
    if (KeysOutliveWindows())
        HoldKey(virtualKey);
    else
        PressKey(virtualKey);
}

void PressPadEnter() {
    SendKey(VK_RETURN, 0, KEYEVENTF_EXTENDEDKEY);
    SendKey(VK_RETURN, 0, KEYEVENTF_EXTENDEDKEY | KEYEVENTF_KEYUP);
    Sleep(kPause);
}

void TypeText(std::wstring_view text, DWORD pause) {
    for (const wchar_t c : text) {
        SendKey(0, c, KEYEVENTF_UNICODE);
        SendKey(0, c, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
        Sleep(pause);
    }
}

void MoveMouseTo(POINT point) {
    SetCursorPos(point.x, point.y);
    Sleep(kPause / 2);
}

void ClickAt(POINT point) {
    Click(point, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, 1);
}

void RightClickAt(POINT point) {
    Click(point, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, 1);
}

void TurnWheel(int clicks) {
    SendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(clicks * WHEEL_DELTA));
}

void ClickWindow(HWND window) {
    Click(VisibleCentre(window), MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, 1);
}

void DoubleClickWindow(HWND window) {
    Click(VisibleCentre(window), MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, 2);
}

void RightClickWindow(HWND window) {
    Click(VisibleCentre(window), MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, 1);
}

} // namespace vndesk::test
