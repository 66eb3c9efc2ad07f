// SPDX-License-Identifier: MIT
#include "menus/state/window_calls.h"

namespace vndesk {

namespace {

// For functions that Windows 7 lacks.
template <class Function> Function* UserFunction(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

} // namespace

WNDPROC WindowProcedureOf(HWND window) {
    const LONG_PTR procedure = IsWindowUnicode(window) ? GetWindowLongPtrW(window, GWLP_WNDPROC)
                                                       : GetWindowLongPtrA(window, GWLP_WNDPROC);
    return reinterpret_cast<WNDPROC>(procedure);
}

void SetWindowProcedure(HWND window, WNDPROC procedure) {
    const auto value = reinterpret_cast<LONG_PTR>(procedure);
    if (IsWindowUnicode(window))
        SetWindowLongPtrW(window, GWLP_WNDPROC, value);
    else
        SetWindowLongPtrA(window, GWLP_WNDPROC, value);
}

LRESULT Forward(HWND window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam) {
    return IsWindowUnicode(window) ? CallWindowProcW(procedure, window, message, wParam, lParam)
                                   : CallWindowProcA(procedure, window, message, wParam, lParam);
}

int DpiOf(HWND window) {
    static const auto ask = UserFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
    if (const UINT dpi = ask ? ask(window) : 0)
        return static_cast<int>(dpi);
    const HDC dc = GetWindowDC(window);
    const int dpi = GetDeviceCaps(dc, LOGPIXELSY);
    ReleaseDC(window, dc);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

int MetricAt(int metric, int dpi) {
    static const auto ask = UserFunction<int WINAPI(int, UINT)>("GetSystemMetricsForDpi");
    return ask ? ask(metric, static_cast<UINT>(dpi)) : GetSystemMetrics(metric);
}

} // namespace vndesk
