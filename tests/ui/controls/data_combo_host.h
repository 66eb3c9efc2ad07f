// SPDX-License-Identifier: MIT
// A window of a host with a text box, a place for the control DataCombo1 and another text box, and
// the message loop of such a host.
#pragma once
#include <comutil.h>
#include <gtest/gtest.h>
#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <atomic>
#include <functional>
#include <string>

#include "support/check_hr.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/new_object.h"
#include "support/ui_windows.h"
#include "vndesk_idl.h"

namespace vndesk::test {

inline constexpr wchar_t kComboProgId[] = L"VnDesk.DataCombo1";

inline Microsoft::WRL::ComPtr<IDataCombo1> CreateCombo() {
    return NewObject<IDataCombo1>(kComboProgId);
}

// What a user finds in the combo: its visible list.
inline HWND ListIn(HWND parent) {
    HWND found = nullptr;
    WaitUntil([&] { return (found = FindControl(parent, L"Cmb1")) != nullptr; });
    return found;
}

// As the dialog itself moves the focus.
inline void GiveFocus(HWND dialog, HWND control) {
    for (int i = 0; i < 3 && FocusWindow(dialog) != control; ++i) {
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        WaitUntil([=] { return FocusWindow(dialog) == control; }, 2000);
    }
    ASSERT_EQ(control, FocusWindow(dialog));
}

// Whether Tab leads from one control to the other. A stroke that is lost is given again.
inline bool TabLeads(HWND dialog, HWND from, HWND to, unsigned modifiers = kNoModifier) {
    for (int i = 0; i < 3; ++i) {
        GiveFocus(dialog, from);
        PressKey(VK_TAB, modifiers);
        if (WaitUntil([=] { return FocusWindow(dialog) == to; }, 2000))
            return true;
    }
    return false;
}

// Counts the clicks and who holds it; on the stack.
class ClickSink final : public IDispatch {
public:
    explicit ClickSink(IDataCombo1* combo) {
        Microsoft::WRL::ComPtr<IConnectionPointContainer> container;
        EXPECT_SUCCEEDED(combo->QueryInterface(IID_PPV_ARGS(&container)));
        EXPECT_SUCCEEDED(container->FindConnectionPoint(__uuidof(DDataCombo1Events), &point_));
        EXPECT_SUCCEEDED(point_->Advise(this, &cookie_));
    }
    ~ClickSink() {
        if (point_)
            point_->Unadvise(cookie_);
    }
    // Leaves it to the control to let the sink go.
    void StayConnected() { point_.Reset(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
        *object = known ? this : nullptr;
        references += known;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        clicks += event == DISPID_CLICK;
        return S_OK;
    }
    int clicks = 0;
    ULONG references = 1;

private:
    Microsoft::WRL::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

class HostWindow {
public:
    HostWindow() {
        frame_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"#32770", L"Ứng dụng",
                                 WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 60, 60,
                                 360, 220, nullptr, nullptr, nullptr, nullptr);
        first_ = Child(L"EDIT", L"", WS_TABSTOP | WS_BORDER, 0, {10, 10, 200, 34});
    }
    ~HostWindow() { DestroyWindow(frame_); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Frame() const { return frame_; }
    HWND First() const { return first_; }

    HWND Child(const wchar_t* className, const wchar_t* text, DWORD style, DWORD extended,
               const RECT& rect) {
        return CreateWindowExW(extended, className, text, WS_CHILD | WS_VISIBLE | style, rect.left,
                               rect.top, rect.right - rect.left, rect.bottom - rect.top, frame_,
                               nullptr, nullptr, nullptr);
    }
    void AddLast() { last_ = Child(L"EDIT", L"", WS_TABSTOP | WS_BORDER, 0, {10, 90, 200, 114}); }
    HWND Last() const { return last_; }

    void Show() {
        ShowWindow(frame_, SW_SHOW);
        SetForegroundWindow(frame_);
        SetFocus(first_);
        UpdateWindow(frame_);
    }

    // Runs the host's message loop while a second thread plays the user.
    void Play(const std::function<void()>& script) {
        std::atomic<bool> done{false};
        DialogDriver user([&] {
            struct AtEnd {
                std::atomic<bool>& done;
                DWORD thread;
                ~AtEnd() {
                    done = true;
                    PostThreadMessageW(thread, WM_NULL, 0, 0);
                }
            } const atEnd{done, GetWindowThreadProcessId(frame_, nullptr)};
            script();
        });
        MSG message;
        while (!done && GetMessageW(&message, nullptr, 0, 0) > 0)
            Dispatch(message);
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            Dispatch(message);
        user.Finish();
    }

    // Containers offer keys to the active object before they look at them.
    Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> active;

private:
    void Dispatch(MSG& message) {
        const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
        if (key && active && active->TranslateAccelerator(&message) == S_OK)
            return;
        if (IsDialogMessageW(frame_, &message))
            return;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }

    HWND frame_ = nullptr;
    HWND first_ = nullptr;
    HWND last_ = nullptr;
};

} // namespace vndesk::test
