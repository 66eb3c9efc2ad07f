// SPDX-License-Identifier: MIT
// The control's window in its container: activation, place, focus and keys.
#include <windows.h>
#include <olectl.h>

#include "comkit/base/com_error.h"
#include "controls/combo/data_combo1.h"
#include "controls/combo/himetric.h"

namespace vndesk {

namespace {

// Where a container has the control.
struct WindowContext {
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT rect = {};
    RECT clip = {};

    HRESULT Get(IOleInPlaceSite& site) {
        OLEINPLACEFRAMEINFO info = {};
        info.cb = sizeof info;
        return site.GetWindowContext(&frame, &document, &rect, &clip, &info);
    }
};

} // namespace

void DataCombo1::ActivateInPlace() {
    if (inPlace_)
        return;
    ComPtr<IOleInPlaceSite> site;
    if (!site_ || FAILED(site_.As(&site)) || site->CanInPlaceActivate() != S_OK)
        throw ComError(E_FAIL);
    const HWND window = Core().Window();
    CheckHr(site->OnInPlaceActivate());
    inPlaceSite_ = site;
    inPlace_ = true;
    const ErrorState failed = Trap([&] {
        HWND parent = nullptr;
        WindowContext context;
        CheckHr(site->GetWindow(&parent));
        CheckHr(context.Get(*site.Get()));
        // The container may have ended the activation from inside these calls. Without a parent
        // the window would come to stand on the desktop.
        if (!inPlace_ || !parent || !SetParent(window, parent))
            throw ComError(E_FAIL);
        Place(context.rect, &context.clip);
        if (inPlace_)
            ShowWindow(window, SW_SHOWNA);
    });
    if (failed) {
        Deactivate();
        throw ComError(failed.code, failed.description);
    }
    // The container may have taken its site back meanwhile.
    if (const ComPtr<IOleClientSite> container = site_)
        container->ShowObject();
}

void DataCombo1::UIActivate(bool takeFocus) {
    ActivateInPlace();
    // The container may deactivate the control in any of the calls that tell it.
    if (!inPlace_)
        return;
    const HWND window = core_->Window();
    if (!uiActive_) {
        uiActive_ = true;
        const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
        site->OnUIActivate();
        WindowContext context;
        if (uiActive_ && SUCCEEDED(context.Get(*site.Get()))) {
            for (IOleInPlaceUIWindow* const holder :
                 {static_cast<IOleInPlaceUIWindow*>(context.frame.Get()), context.document.Get()})
                if (holder)
                    holder->SetActiveObject(this, L"DataCombo1");
            if (context.frame)
                context.frame->SetBorderSpace(nullptr);
            if (context.document)
                context.document->SetBorderSpace(nullptr);
        }
    }
    if (takeFocus && inPlace_ && !IsChild(window, GetFocus()))
        SetFocus(window);
}

STDMETHODIMP DataCombo1::UIDeactivate() {
    if (!uiActive_)
        return S_OK;
    uiActive_ = false;
    // The container may deactivate the control altogether in any of these calls.
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    return ToHresult([&] {
        WindowContext context;
        if (SUCCEEDED(context.Get(*site.Get()))) {
            if (context.document)
                context.document->SetActiveObject(nullptr, nullptr);
            if (context.frame)
                context.frame->SetActiveObject(nullptr, nullptr);
        }
        site->OnUIDeactivate(FALSE);
    });
}

// The window keeps its items and waits for the next activation.
void DataCombo1::Deactivate() {
    if (!inPlace_)
        return;
    UIDeactivate();
    if (!inPlace_)
        return;
    inPlace_ = false;
    if (core_) {
        ShowWindow(core_->Window(), SW_HIDE);
        SetWindowRgn(core_->Window(), nullptr, FALSE);
        SetParent(core_->Window(), HWND_MESSAGE);
    }
    const ComPtr<IOleInPlaceSite> site = std::move(inPlaceSite_);
    site->OnInPlaceDeactivate();
}

STDMETHODIMP DataCombo1::InPlaceDeactivate() {
    const ComPtr<IOleObject> keepAlive(this);
    return ToHresult([&] { Deactivate(); });
}

// A host destroyed the window that the control stands in: the list is lost.
void DataCombo1::OnCoreDestroyed() {
    core_ = nullptr;
    inPlace_ = false;
    uiActive_ = false;
    inPlaceSite_.Reset();
}

STDMETHODIMP DataCombo1::GetWindow(HWND* window) {
    if (!window)
        return E_POINTER;
    *window = inPlace_ ? core_->Window() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP DataCombo1::SetObjectRects(LPCRECT rect, LPCRECT clip) {
    if (!rect)
        return E_POINTER;
    if (!inPlace_)
        return S_OK;
    return ToHresult([&] { Place(*rect, clip); });
}

void DataCombo1::Place(const RECT& rect, const RECT* clip) {
    const HWND window = core_->Window();
    width_ = ToHimetric(rect.right - rect.left);
    SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left,
                 rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
    RECT shown;
    const bool cut = clip && !IsRectEmpty(clip) &&
                     (!IntersectRect(&shown, &rect, clip) || !EqualRect(&shown, &rect));
    if (cut)
        OffsetRect(&shown, -rect.left, -rect.top);
    // The window owns the region from here on.
    SetWindowRgn(window, cut ? CreateRectRgnIndirect(&shown) : nullptr, TRUE);
    FollowHeight();
}

// The control is as high as its list. A container that gave it another height is notified, once.
void DataCombo1::FollowHeight() {
    if (!inPlace_ || placing_)
        return;
    RECT now;
    GetWindowRect(core_->Window(), &now);
    MapWindowPoints(nullptr, GetParent(core_->Window()), reinterpret_cast<POINT*>(&now), 2);
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    WindowContext context;
    if (FAILED(context.Get(*site.Get())) ||
        context.rect.bottom - context.rect.top == now.bottom - now.top)
        return;
    placing_ = true;
    site->OnPosRectChange(&now);
    placing_ = false;
}

void DataCombo1::OnFocus(bool has) {
    const ComPtr<IOleObject> keepAlive(this);
    if (!inPlace_)
        return;
    if (has)
        UIActivate(false);
    ComPtr<IOleControlSite> control;
    if (site_ && SUCCEEDED(site_.As(&control)))
        control->OnFocus(has);
}

STDMETHODIMP DataCombo1::TranslateAccelerator(LPMSG message) {
    if (!message)
        return E_POINTER;
    const bool key = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    if (!key || !inPlace_ || !IsChild(core_->Window(), message->hwnd))
        return S_FALSE;
    bool own = false;
    switch (message->wParam) {
    case VK_UP:
    case VK_DOWN:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_DELETE:
    case VK_F4:
        own = true;
        break;
    case VK_RETURN:
    case VK_ESCAPE:
        // They close the open list; otherwise they are the container's.
        own = core_->ListIsOpen();
        break;
    default:
        break;
    }
    if (own && (message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN ||
                message->message == WM_KEYUP || message->message == WM_SYSKEYUP)) {
        DispatchMessageW(message);
        return S_OK;
    }
    ComPtr<IOleControlSite> control;
    if (!site_ || FAILED(site_.As(&control)))
        return S_FALSE;
    const auto held = [](int virtualKey, DWORD bit) {
        return GetKeyState(virtualKey) < 0 ? bit : 0;
    };
    return control->TranslateAccelerator(message, held(VK_SHIFT, 1) | held(VK_CONTROL, 2) |
                                                      held(VK_MENU, 4));
}

} // namespace vndesk
