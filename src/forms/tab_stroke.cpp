// SPDX-License-Identifier: MIT
#include "tab_stroke.h"

#include "keys.h"

namespace vndesk {

namespace {

// Some 10 milliseconds each.
constexpr int kMostLooks = 100;
constexpr int kSteadyLooks = 3;

bool HasKeyboard(HWND form) {
    return GetForegroundWindow() == form && IsChild(form, GetFocus());
}

} // namespace

TabStroke::~TabStroke() {
    Stop();
}

void TabStroke::Send() {
    looks_ = 0;
    steady_ = 0;
    SetTimer(form_, reinterpret_cast<UINT_PTR>(this), USER_TIMER_MINIMUM, OnTimer);
}

void CALLBACK TabStroke::OnTimer(HWND, UINT, UINT_PTR id, DWORD) {
    reinterpret_cast<TabStroke*>(id)->Look();
}

void TabStroke::Look() {
    steady_ = HasKeyboard(form_) ? steady_ + 1 : 0;
    if (steady_ < kSteadyLooks && ++looks_ < kMostLooks)
        return;
    Stop();
    if (steady_ == kSteadyLooks)
        Gui_Phim(VK_TAB, 0);
}

void TabStroke::Stop() {
    if (form_)
        KillTimer(form_, reinterpret_cast<UINT_PTR>(this));
}

} // namespace vndesk
