// SPDX-License-Identifier: MIT
#include "forms/password/eye_button.h"

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"
#include "forms/look/common_controls.h"
#include "forms/password/eye_icon.h"
#include "forms/password/text/captions.h"
#include "forms/window/window_name.h"
#include "text/tcvn3.h"

namespace vndesk {

EyeButton::EyeButton(HWND box, const RECT& place, const std::wstring& name)
    : box_(box),
      // Its caption is not seen: screen readers say it.
      eye_(CreateWindowExW(0, L"BUTTON", ToUncText(texts::kShowPassword, kToUnicode).c_str(),
                           WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON | BS_ICON, place.left,
                           place.top, place.right - place.left, place.bottom - place.top,
                           GetParent(box), nullptr, ModuleInstance(), nullptr)) {
    if (!eye_)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowName(eye_, name);
    Controls6().SetWindowSubclass(eye_, Procedure, reinterpret_cast<UINT_PTR>(this),
                                  reinterpret_cast<DWORD_PTR>(this));
    icon_ = MakeEyeIcon((place.bottom - place.top) * 2 / 3, GetSysColor(COLOR_BTNTEXT));
    SendMessageW(eye_, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon_.get()));
}

EyeButton::~EyeButton() {
    if (!eye_)
        return;
    Controls6().RemoveWindowSubclass(eye_, Procedure, reinterpret_cast<UINT_PTR>(this));
    ClearWindowName(eye_);
    DestroyWindow(eye_);
}

void EyeButton::SetEnabled(bool enabled) {
    if (!enabled)
        Hide();
    EnableWindow(eye_, enabled);
}

void EyeButton::Show(bool show) {
    if (show == shows_)
        return;
    shows_ = show;
    if (show)
        mask_ = static_cast<WPARAM>(SendMessageW(box_, EM_GETPASSWORDCHAR, 0, 0));
    SendMessageW(box_, EM_SETPASSWORDCHAR, show ? 0 : mask_, 0);
    // The caret stands between other letters now.
    DWORD start = 0, end = 0;
    SendMessageW(box_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    SendMessageW(box_, EM_SETSEL, start, static_cast<LPARAM>(end));
    InvalidateRect(box_, nullptr, TRUE);
    SendMessageW(eye_, BM_SETSTATE, show, 0);
}

// True for what the button would take for a click.
bool EyeButton::OnMessage(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        // The user types on where the password stands.
        SetFocus(box_);
        SetCapture(eye_);
        Show(true);
        return true;
    case WM_LBUTTONUP:
        if (GetCapture() == eye_)
            ReleaseCapture();
        Hide();
        return true;
    case WM_KEYDOWN:
        if (wParam == VK_SPACE)
            Show(true);
        return wParam == VK_SPACE;
    case WM_KEYUP:
        if (wParam == VK_SPACE)
            Hide();
        return wParam == VK_SPACE;
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
    case WM_KILLFOCUS:
        Hide();
        return false;
    case BM_CLICK:
        return true;
    default:
        return false;
    }
}

LRESULT CALLBACK EyeButton::Procedure(HWND eye, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self) {
    auto* button = reinterpret_cast<EyeButton*>(self);
    // No default button, and arrow keys stay here.
    if (message == WM_GETDLGCODE)
        return DLGC_BUTTON | DLGC_WANTARROWS;
    if (message == WM_NCDESTROY) {
        Controls6().RemoveWindowSubclass(eye, Procedure, id);
        ClearWindowName(eye);
        button->eye_ = nullptr;
    } else if (button->OnMessage(message, wParam)) {
        return 0;
    }
    return Controls6().DefSubclassProc(eye, message, wParam, lParam);
}

} // namespace vndesk
