// SPDX-License-Identifier: MIT
#include "menus/hook/window_procedure.h"

#include <memory>

#include "comkit/base/module.h"
#include "menus/hook/menu_hook.h"
#include "menus/state/window_calls.h"

namespace vndesk {

namespace {

// Window properties, because they must outlive everything else that is known of the window.
constexpr wchar_t kPrevious[] = L"VnDesk menu procedure";
constexpr wchar_t kHold[] = L"VnDesk menu hold";

// Its address marks the question "are you called?", sent as WM_NULL, which no window handles.
const char probe = 0;

WPARAM ProbeMark() {
    return reinterpret_cast<WPARAM>(&probe);
}

bool IsHookCalled(HWND window) {
    bool called = false;
    SendMessageW(window, WM_NULL, ProbeMark(), reinterpret_cast<LPARAM>(&called));
    return called;
}

WNDPROC Previous(HWND window) {
    return reinterpret_cast<WNDPROC>(reinterpret_cast<void*>(GetPropW(window, kPrevious)));
}

// The module stays loaded while others may call its hook.
void Hold(HWND window) {
    if (GetPropW(window, kHold))
        return;
    auto hold = std::make_unique<ModuleLock>();
    if (SetPropW(window, kHold, hold.get()))
        static_cast<void>(hold.release());
}

void EndHold(HWND window) {
    delete static_cast<ModuleLock*>(RemovePropW(window, kHold));
}

} // namespace

WNDPROC PutHook(HWND window) {
    const WNDPROC kept = Previous(window);
    if (kept && IsHookCalled(window)) {
        EndHold(window);
        return kept;
    }
    const WNDPROC current = WindowProcedureOf(window);
    SetWindowProcedure(window, MenuWindowProc);
    return current;
}

void TakeHookAway(HWND window, WNDPROC previous) {
    SetPropW(window, kPrevious, reinterpret_cast<HANDLE>(reinterpret_cast<void*>(previous)));
    if (WindowProcedureOf(window) == MenuWindowProc)
        SetWindowProcedure(window, previous);
    else if (IsHookCalled(window))
        Hold(window);
}

LRESULT PassOnAfterwards(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    WNDPROC previous = Previous(window);
    if (previous)
        Hold(window);
    else
        previous = IsWindowUnicode(window) ? DefWindowProcW : DefWindowProcA;
    return Forward(window, previous, message, wParam, lParam);
}

bool AnswersProbe(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_NULL || wParam != ProbeMark())
        return false;
    *reinterpret_cast<bool*>(lParam) = true;
    return true;
}

void ForgetHook(HWND window) {
    RemovePropW(window, kPrevious);
    EndHold(window);
}

} // namespace vndesk
