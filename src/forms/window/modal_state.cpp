// SPDX-License-Identifier: MIT
#include "forms/window/modal_state.h"

namespace vndesk {

ModalState::ModalState(HWND form) : form_(form), focus_(GetFocus()) {
    EnumThreadWindows(GetCurrentThreadId(), DisableOne, reinterpret_cast<LPARAM>(this));
}

ModalState::~ModalState() {
    for (const HWND window : disabled_)
        if (IsWindow(window))
            EnableWindow(window, TRUE);
    if (!IsWindow(focus_))
        return;
    // Only if the user has not gone to another program meanwhile.
    if (GetActiveWindow() == form_ || !GetActiveWindow()) {
        SetActiveWindow(GetAncestor(focus_, GA_ROOT));
        SetFocus(focus_);
    }
}

BOOL CALLBACK ModalState::DisableOne(HWND window, LPARAM state) {
    auto& self = *reinterpret_cast<ModalState*>(state);
    const bool ours = window == self.form_ || GetWindow(window, GW_OWNER) == self.form_;
    if (!ours && IsWindowVisible(window) && IsWindowEnabled(window)) {
        EnableWindow(window, FALSE);
        self.disabled_.push_back(window);
    }
    return TRUE;
}

} // namespace vndesk
