// SPDX-License-Identifier: MIT
#include "forms/keys/tab_stroke.h"

#include "forms/keys/keys.h"

namespace vndesk {

namespace {

// Timer ticks, some 10 milliseconds each.
constexpr int kMaxLooks = 300;
constexpr int kSteadyLooks = 3;

} // namespace

TabStroke::~TabStroke() {
    Stop();
}

void TabStroke::Send() {
    if (FormHasKeyboard())
        Gui_Phim(VK_TAB, 0);
    else
        SendAfterClosing();
}

void TabStroke::SendAfterClosing() {
    looks_ = 0;
    steady_ = 0;
    SetTimer(window_, reinterpret_cast<UINT_PTR>(this), USER_TIMER_MINIMUM, OnTimer);
}

bool TabStroke::FormHasKeyboard() const {
    const HWND form = GetAncestor(window_, GA_ROOT);
    const HWND focus = GetFocus();
    return focus && GetForegroundWindow() == form && GetAncestor(focus, GA_ROOT) == form;
}

void CALLBACK TabStroke::OnTimer(HWND, UINT, UINT_PTR id, DWORD) {
    reinterpret_cast<TabStroke*>(id)->Look();
}

void TabStroke::Look() {
    steady_ = FormHasKeyboard() ? steady_ + 1 : 0;
    if (steady_ < kSteadyLooks && ++looks_ < kMaxLooks)
        return;
    Stop();
    if (steady_ == kSteadyLooks)
        Gui_Phim(VK_TAB, 0);
}

void TabStroke::Stop() {
    KillTimer(window_, reinterpret_cast<UINT_PTR>(this));
}

} // namespace vndesk
