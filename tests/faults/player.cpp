// SPDX-License-Identifier: MIT
#include "faults/player.h"

#include "support/ui_windows.h"

namespace vndesk::test {

namespace {

thread_local Player* player = nullptr;

// A form or a message box that the user can work in.
BOOL CALLBACK IsInFront(HWND window, LPARAM found) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window) ||
        (WindowName(window).empty() && ClassName(window) != L"#32770"))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The topmost one of this thread.
HWND Front() {
    HWND front = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), IsInFront, reinterpret_cast<LPARAM>(&front));
    return front;
}

std::wstring PlainText(HWND box) {
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassName(child) != L"Button" && !TextOf(child).empty())
            return TextOf(child);
    return L"";
}

} // namespace

Player::Player(const std::vector<Step>& steps, ULONGLONG patience)
    : steps_(steps), deadline_(GetTickCount64() + patience) {
    player = this;
    timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Tick);
}

Player::~Player() {
    KillTimer(nullptr, timer_);
    player = nullptr;
}

void CALLBACK Player::Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (player)
        player->Act();
}

void Player::Act() {
    const HWND front = Front();
    if (!front)
        return;
    if (GetTickCount64() > deadline_) {
        stuck_ = true;
        next_ = steps_.size();
        DestroyWindow(front);
        return;
    }
    const std::wstring name = WindowName(front);
    if (name.empty()) {
        messages_.push_back(PlainText(front));
        PostMessageW(front, WM_COMMAND, IDOK, 0);
        return;
    }
    if (name == L"MessageBox" || name == L"NoticeBox") {
        messages_.push_back(TextOf(front, L"Message"));
        Press(front, L"Cmd1");
        return;
    }
    size_t step = next_;
    while (step < steps_.size() && name != steps_[step].form)
        ++step;
    if (step == steps_.size()) {
        PostMessageW(front, WM_CLOSE, 0, 0);
        return;
    }
    next_ = step + 1;
    steps_[step].act(front);
}

void Press(HWND form, const wchar_t* button) {
    PostMessageW(form, WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(FindControl(form, button))), 0);
}

void ChooseItem(HWND form, const wchar_t* list, int item) {
    const HWND window = FindControl(form, list);
    const bool combo = ClassName(window) == L"ComboBox";
    if (GetWindowLongPtrW(window, GWL_STYLE) & (combo ? 0 : LBS_EXTENDEDSEL | LBS_MULTIPLESEL)) {
        SendMessageW(window, LB_SETSEL, FALSE, -1);
        SendMessageW(window, LB_SETSEL, TRUE, item);
        SendMessageW(window, LB_SETCARETINDEX, static_cast<WPARAM>(item), FALSE);
    } else {
        SendMessageW(window, combo ? CB_SETCURSEL : LB_SETCURSEL, static_cast<WPARAM>(item), 0);
    }
    SendMessageW(form, WM_COMMAND,
                 MAKEWPARAM(GetDlgCtrlID(window), combo ? CBN_SELCHANGE : LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(window));
}

} // namespace vndesk::test
