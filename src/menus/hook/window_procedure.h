// SPDX-License-Identifier: MIT
// The hook's place among the procedures of a window. Others come and go before and behind it, and
// put back what they have saved: the hook may be called after its uninstallation.
#pragma once

#include <windows.h>

namespace vndesk {

// Puts the hook before the window's procedure, which is returned. A hook that others have kept from
// an earlier installation serves again, where it stands.
WNDPROC PutHook(HWND window);

// Takes it away again where it is the window's procedure. Where it is not, others stand before it
// or have taken it away themselves, and the window is left to them.
void TakeHookAway(HWND window, WNDPROC previous);

// Passes on what comes to the hook of a window that is not installed any more.
LRESULT PassOnAfterwards(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The question whether the hook is called for a window; true when the message is that.
bool AnswersProbe(UINT message, WPARAM wParam, LPARAM lParam);

// The window goes.
void ForgetHook(HWND window);

} // namespace vndesk
