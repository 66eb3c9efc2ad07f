// SPDX-License-Identifier: MIT
#include "forms/window/form.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "forms/keys/held_enter.h"
#include "forms/look/theme_scope.h"
#include "forms/window/form_window.h"
#include "forms/window/modal_state.h"
#include "forms/window/preparation.h"
#include "forms/window/window_name.h"

namespace vndesk {

namespace {

// Above IDOK, IDCANCEL and their like.
constexpr int kFirstControlId = 100;

constexpr wchar_t kEnter = 13;
constexpr wchar_t kEscape = 27;

DWORD StyleFor(FormBorder border) {
    constexpr DWORD kCommon = WS_POPUP | WS_CLIPCHILDREN;
    switch (border) {
    case FormBorder::None:
        return kCommon;
    case FormBorder::FixedDialog:
        return kCommon | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    case FormBorder::Sizable:
        return kCommon | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX;
    }
    return kCommon;
}

DWORD ExtendedStyleFor(FormBorder border) {
    return WS_EX_CONTROLPARENT | (border == FormBorder::None ? 0 : WS_EX_DLGMODALFRAME);
}

// For whoever writes a handler: a debugger shows it, the user sees nothing.
void Trace(const wchar_t* form, const ErrorState& error) {
    Trap([&] {
        const std::wstring number = std::to_wstring(error.code);
        OutputDebugStringW(
            (L"VnDesk " + std::wstring(form) + L": " + number + L" " + error.description + L"\n")
                .c_str());
    });
}

} // namespace

// Runs what the form's own code does at an event.
template <class Steps> bool Form::Fails(Steps&& steps) const {
    const ErrorState error = Trap(steps);
    if (error)
        Trace(spec_.name, error);
    return static_cast<bool>(error);
}

Form::~Form() {
    Destroy();
}

void Form::Load() {
    if (window_)
        return;
    const ThemeScope theme;
    CreateFormWindow();
    controls_.reserve(spec_.controls.size());
    for (const ControlSpec& control : spec_.controls) {
        const int id = kFirstControlId + static_cast<int>(controls_.size());
        controls_.push_back(std::make_unique<Control>(window_, dpi_, control, id));
        if (control.toolTip)
            AddToolTip(controls_.back()->Window(), control.toolTip);
    }
    for (size_t i = 0; i < controls_.size(); ++i)
        if (controls_[i]->isDefault)
            SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(kFirstControlId) + i, 0);
    if (enterConfirms_)
        MarkConfirmButton();
    OnLoad();
    PrepareForm(*this);
    OnPrepared();
    // WM_SIZE came before the controls existed.
    OnResize();
}

void Form::CreateFormWindow() {
    dpi_ = ScreenDpi();
    caption_ = spec_.caption;
    const DWORD style = StyleFor(spec_.border);
    const DWORD extendedStyle = ExtendedStyleFor(spec_.border);
    windowClass_.emplace(WindowProcedure);
    // Owned, so that the form cannot sink behind the window that the user works in.
    window_ =
        CreateEmptyDialog(IsWindow(owner_) ? owner_ : GetActiveWindow(), style, extendedStyle);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowName(window_, spec_.name);
    RECT frame = {0, 0, ToPixels(spec_.client.width, dpi_), ToPixels(spec_.client.height, dpi_)};
    AdjustWindowRectEx(&frame, style, FALSE, extendedStyle);
    least_ = {frame.right - frame.left, frame.bottom - frame.top};
    rect_ = {}; // a form may be loaded again
    Centre(ToTwips(least_.cx, dpi_), ToTwips(least_.cy, dpi_));
}

void Form::ShowModal() {
    Load();
    closedByEnter_ = false;
    std::optional<NoEnterRepeats> pressedOnce;
    if (enterConfirms_)
        pressedOnce.emplace();
    {
        const ModalState others(window_);
        modal_ = true;
        ShowWindow(window_, SW_SHOW);
        SetForegroundWindow(window_);
        const Control* first = FirstControl();
        SendMessageW(window_, WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(first ? first->Window()
                                                    : GetNextDlgTabItem(window_, nullptr, FALSE)),
                     TRUE);
        RunLoop();
        modal_ = false;
    }
    Destroy();
    // The window behind would get the repetitions.
    if (closedByEnter_ && pressedOnce)
        pressedOnce->WaitForRelease();
    if (failure_)
        std::rethrow_exception(std::exchange(failure_, nullptr));
}

void Form::Fail() {
    failure_ = std::current_exception();
    Unload();
}

void Form::RunLoop() {
    MSG message;
    while (window_ && !unloading_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            // Re-post WM_QUIT for the outer loop.
            if (got == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (PreviewKey(message) || IsDialogMessageW(window_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool Form::PreviewKey(const MSG& message) {
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd))
        return false;
    const auto code = static_cast<wchar_t>(message.wParam);
    bool handled = false;
    // F10 comes as WM_SYSKEYDOWN.
    if (message.message == WM_KEYDOWN || (message.message == WM_SYSKEYDOWN && code == VK_F10))
        if (const Control* control = FromWindow(message.hwnd))
            Fire([&] { handled = OnKeyDown(*control, message.wParam); });
    if (handled || MoveFromButton(message))
        return true;
    if (enterConfirms_ && IsEnterDown(message)) {
        handled = true;
        Fire([&] { handled = PressEnter(); });
        return handled;
    }
    // IsDialogMessage handles Enter and Escape before they become WM_CHAR.
    if (message.message == WM_KEYDOWN && (code == VK_RETURN || code == VK_ESCAPE))
        Fire([&] { handled = OnKeyPress(code == VK_RETURN ? kEnter : kEscape); });
    else if (message.message == WM_CHAR && code != kEnter && code != kEscape)
        Fire([&] { handled = OnKeyPress(code); });
    return handled;
}

// Arrow keys leave a button as Tab does. IsDialogMessage would give the focus to the next window of
// any kind; on a label the keyboard would be lost.
bool Form::MoveFromButton(const MSG& message) {
    const bool forward = message.wParam == VK_RIGHT || message.wParam == VK_DOWN;
    const bool back = message.wParam == VK_LEFT || message.wParam == VK_UP;
    if (message.message != WM_KEYDOWN || !(forward || back))
        return false;
    const Control* control = FromWindow(message.hwnd);
    if (!control || control->Kind() != ControlKind::CommandButtonW)
        return false;
    SendMessageW(window_, WM_NEXTDLGCTL, back, FALSE);
    return true;
}

void Form::Unload() {
    unloading_ = true;
    if (modal_)
        // A sent BM_CLICK does not wake GetMessage.
        PostMessageW(window_, WM_NULL, 0, 0);
    else
        Destroy();
}

void Form::Destroy() {
    if (window_)
        DestroyWindow(window_);
    controls_.clear();
    windowClass_.reset();
    unloading_ = false;
}

Control& Form::At(size_t index) {
    // A form that was closed while it loaded has none.
    if (index >= controls_.size())
        throw ComError(E_INVALIDARG);
    return *controls_[index];
}

void Form::Move(const TwipsRect& rect) {
    rect_ = rect;
    SetWindowPos(window_, nullptr, ToPixels(rect.left, dpi_), ToPixels(rect.top, dpi_),
                 ToPixels(rect.width, dpi_), ToPixels(rect.height, dpi_),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::Centre(double width, double height) {
    const auto middle = [&](int metric, double size) {
        const int screen = GetSystemMetrics(metric);
        return std::lround(ToTwips(screen, dpi_) - size) / 2;
    };
    const TwipsRect rect = {static_cast<double>(middle(SM_CXSCREEN, width)),
                            static_cast<double>(middle(SM_CYSCREEN, height)), width, height};
    // A form whose size has not changed since Load is centred already.
    if (rect != rect_)
        Move(rect);
}

void Form::SetRightToLeft(bool rightToLeft) {
    const LONG_PTR style = GetWindowLongPtrW(window_, GWL_EXSTYLE);
    const LONG_PTR wanted =
        rightToLeft ? style | WS_EX_RTLREADING : style & ~LONG_PTR{WS_EX_RTLREADING};
    if (wanted != style)
        SetWindowLongPtrW(window_, GWL_EXSTYLE, wanted);
}

void Form::SetFrameEnabled(Control& frame, bool enabled) {
    frame.SetEnabled(enabled);
    for (const auto& control : controls_)
        if (control.get() != &frame && frame.Rect().Contains(control->Rect()))
            control->SetEnabled(enabled);
}

void Form::Repaint() {
    // InvalidateRect of a null window repaints the whole desktop.
    if (window_ && IsWindowVisible(window_))
        InvalidateRect(window_, nullptr, TRUE);
}

void Form::AddToolTip(HWND control, const wchar_t* text) {
    if (!toolTips_)
        toolTips_ =
            CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0,
                            0, 0, window_, nullptr, ModuleInstance(), nullptr);
    TOOLINFOW tool = {};
    // The size without the last member, which every version of the common controls accepts.
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = const_cast<wchar_t*>(text);
    SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

LRESULT CALLBACK Form::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form)
        return DefDlgProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    if (form->Fails([&] { result = form->OnMessage(message, wParam, lParam); }))
        return DefDlgProcW(window, message, wParam, lParam);
    return result;
}

LRESULT Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    switch (message) {
    case WM_COMMAND:
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return 0;
    case WM_CLOSE:
        Unload();
        return 0;
    case WM_SIZE:
        if (!controls_.empty() && wParam != SIZE_MINIMIZED) {
            FollowEdges();
            OnResize();
        }
        break;
    case WM_GETMINMAXINFO:
        if (spec_.border == FormBorder::Sizable)
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least_.cx, least_.cy};
        break;
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_LBUTTONDOWN:
        if (OnMouseDown(1, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}))
            return 0;
        break;
    case WM_RBUTTONDOWN:
        if (OnMouseDown(2, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}))
            return 0;
        break;
    case WM_CTLCOLORSTATIC:
        if (const HBRUSH brush =
                OnControlColor(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)))
            return reinterpret_cast<LRESULT>(brush);
        break;
    case WM_PAINT:
        Paint();
        return 0;
    case WM_DESTROY:
        Fails([&] { OnUnload(); });
        for (const auto& control : controls_)
            control->Detach();
        ClearWindowName(window);
        toolTips_ = nullptr;
        break;
    case WM_NCDESTROY:
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        window_ = nullptr;
        break;
    default:
        break;
    }
    return DefDlgProcW(window, message, wParam, lParam);
}

void Form::OnCommand(int id, int notification) {
    // Escape comes as this command, whether or not there is a control with this identifier.
    if (id == IDCANCEL) {
        if (const Control* cancel = CancelButton(); cancel && cancel->Enabled())
            Fire(cancel->onClick);
        return;
    }
    const size_t index = static_cast<size_t>(id) - kFirstControlId;
    if (id < kFirstControlId || index >= controls_.size())
        return;
    const Control& control = *controls_[index];
    switch (control.Kind()) {
    case ControlKind::TextBoxW:
        if (notification == EN_CHANGE)
            Fire(control.onChange);
        break;
    case ControlKind::ComboBoxW:
        if (notification == CBN_SELCHANGE)
            Fire(control.onClick);
        else if (notification == CBN_EDITCHANGE)
            Fire(control.onChange);
        break;
    case ControlKind::ListBoxW:
        if (notification == LBN_SELCHANGE)
            Fire(control.onClick);
        else if (notification == LBN_DBLCLK)
            Fire(control.onDoubleClick);
        else if (notification == LBN_SETFOCUS)
            Fire(control.onGotFocus);
        else if (notification == LBN_KILLFOCUS)
            Fire(control.onLostFocus);
        break;
    default:
        // Enter sends the default button's command even while the button is disabled.
        if (notification == BN_CLICKED && control.Enabled())
            Fire(control.onClick);
        break;
    }
}

LRESULT Form::OnNotify(NMHDR& notification) {
    LRESULT result = 0;
    if (const Control* control = FromWindow(notification.hwndFrom); control && control->onNotify)
        Fails([&] { result = control->onNotify(notification); });
    return result;
}

// Each control keeps its distance to the edges that it follows.
void Form::FollowEdges() {
    RECT client;
    if (spec_.border != FormBorder::Sizable || !GetClientRect(window_, &client))
        return;
    const double wider = ToTwips(client.right, dpi_) - spec_.client.width;
    const double higher = ToTwips(client.bottom, dpi_) - spec_.client.height;
    for (size_t i = 0; i < controls_.size(); ++i) {
        const unsigned flags = controls_[i]->Flags();
        TwipsRect rect = spec_.controls[i].rect;
        rect.left += flags & kMoveRight ? wider : 0;
        rect.top += flags & kMoveDown ? higher : 0;
        rect.width += flags & kGrowRight ? wider : 0;
        rect.height += flags & kGrowDown ? higher : 0;
        if (flags & (kMoveRight | kMoveDown | kGrowRight | kGrowDown))
            controls_[i]->Move(rect);
    }
}

bool Form::OnMouseDown(int button, POINT point) {
    Control* control = FromPoint(point);
    if (!control || !control->onMouseDown)
        return false;
    Fire([&] { control->onMouseDown(button); });
    return true;
}

HBRUSH Form::OnControlColor(HDC dc, HWND window) {
    const Control* control = FromWindow(window);
    if (!control || !control->BackBrush())
        return nullptr;
    SetBkColor(dc, control->BackColor());
    SetTextColor(dc, control->ForeColor());
    return control->BackBrush();
}

void Form::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    Fails([&] { OnPaint(dc); });
    EndPaint(window_, &paint);
}

// The control that a window is, or is a part of.
Control* Form::FromWindow(HWND window) {
    for (; window && window != window_; window = GetParent(window))
        for (const auto& control : controls_)
            if (control->Window() == window)
                return control.get();
    return nullptr;
}

// Labels and images let the mouse through to the form; the first in the table lies on top.
Control* Form::FromPoint(POINT point) {
    for (const auto& control : controls_) {
        RECT box;
        if (!control->Visible() || !control->Window() || !GetWindowRect(control->Window(), &box))
            continue;
        MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&box), 2);
        if (PtInRect(&box, point))
            return control.get();
    }
    return nullptr;
}

Control* Form::CancelButton() {
    for (const auto& control : controls_)
        if (control->isCancel && control->Visible())
            return control.get();
    return nullptr;
}

// An error in a handler ends the handler, never the form.
void Form::Fire(const std::function<void()>& handler) const {
    if (handler)
        Fails(handler);
}

} // namespace vndesk
