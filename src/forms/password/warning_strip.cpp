// SPDX-License-Identifier: MIT
#include "forms/password/warning_strip.h"

#include <algorithm>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"
#include "forms/look/common_controls.h"
#include "forms/look/device_context.h"
#include "forms/look/twips.h"
#include "forms/window/window_name.h"

namespace vndesk {

namespace {

constexpr wchar_t kName[] = L"InputWarning";
constexpr double kMargin = 90; // twips
constexpr UINT kFormat = DT_WORDBREAK | DT_NOPREFIX;

} // namespace

WarningStrip::WarningStrip(HWND form, HFONT font, int dpi)
    : form_(form), font_(font), margin_(ToPixels(kMargin, dpi)),
      strip_(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | SS_NOPREFIX, 0, 0, 0, 0, form, nullptr,
                             ModuleInstance(), nullptr)) {
    if (!strip_)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowName(strip_, kName);
    Controls6().SetWindowSubclass(strip_, Procedure, reinterpret_cast<UINT_PTR>(this),
                                  reinterpret_cast<DWORD_PTR>(this));
}

WarningStrip::~WarningStrip() {
    if (!strip_)
        return;
    Controls6().RemoveWindowSubclass(strip_, Procedure, reinterpret_cast<UINT_PTR>(this));
    ClearWindowName(strip_);
    DestroyWindow(strip_);
}

void WarningStrip::Say(const std::wstring& text) {
    if (!strip_ || text == text_)
        return;
    text_ = text;
    SetWindowTextW(strip_, text.c_str());
    const int height = text.empty() ? 0 : HeightOf(text);
    RECT client = {};
    GetClientRect(form_, &client);
    const int top = client.bottom - height_;
    if (height != height_) {
        Grow(height - height_);
        height_ = height;
    }
    SetWindowPos(strip_, nullptr, 0, top, client.right, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | (height ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    InvalidateRect(strip_, nullptr, TRUE);
    // Screen readers say at once what they are told of so.
    if (height)
        NotifyWinEvent(EVENT_SYSTEM_ALERT, strip_, OBJID_CLIENT, CHILDID_SELF);
}

int WarningStrip::HeightOf(const std::wstring& text) const {
    RECT box = {};
    GetClientRect(form_, &box);
    box = {0, 0, box.right - 2 * margin_, 0};
    const HDC dc = GetDC(strip_);
    {
        const Selected font(dc, font_);
        DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &box, kFormat | DT_CALCRECT);
    }
    ReleaseDC(strip_, dc);
    return box.bottom + 2 * margin_;
}

// Downwards, unless the screen ends there.
void WarningStrip::Grow(int pixels) const {
    RECT box = {};
    GetWindowRect(form_, &box);
    box.bottom += pixels;
    MONITORINFO screen = {};
    screen.cbSize = sizeof screen;
    LONG up = 0;
    if (pixels > 0 && GetMonitorInfoW(MonitorFromWindow(form_, MONITOR_DEFAULTTONEAREST), &screen))
        up = std::clamp<LONG>(box.bottom - screen.rcWork.bottom, 0, pixels);
    SetWindowPos(form_, nullptr, box.left, box.top - up, box.right - box.left, box.bottom - box.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void WarningStrip::Paint() const {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(strip_, &paint);
    {
        const SavedDc saved(dc);
        RECT box = {};
        GetClientRect(strip_, &box);
        FillRect(dc, &box, GetSysColorBrush(COLOR_INFOBK));
        DrawEdge(dc, &box, BDR_SUNKENOUTER, BF_TOP);
        InflateRect(&box, -margin_, -margin_);
        SelectObject(dc, font_);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, GetSysColor(COLOR_INFOTEXT));
        DrawTextW(dc, text_.c_str(), static_cast<int>(text_.size()), &box, kFormat);
    }
    EndPaint(strip_, &paint);
}

LRESULT CALLBACK WarningStrip::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR self) {
    auto* strip = reinterpret_cast<WarningStrip*>(self);
    if (message == WM_PAINT) {
        strip->Paint();
        return 0;
    }
    if (message == WM_NCDESTROY) {
        Controls6().RemoveWindowSubclass(window, Procedure, id);
        ClearWindowName(window);
        strip->strip_ = nullptr;
    }
    return Controls6().DefSubclassProc(window, message, wParam, lParam);
}

} // namespace vndesk
