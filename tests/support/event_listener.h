// SPDX-License-Identifier: MIT
// A C++ host's sink of one object's events, on the stack.
#pragma once

#include <ocidl.h>
#include <wrl/client.h>

#include <functional>

#include "support/check_hr.h"

namespace vndesk::test {

class EventListener final : public IDispatch {
public:
    using Handler = std::function<void(DISPID, DISPPARAMS&)>;

    EventListener(IUnknown* source, REFIID events, Handler handler)
        : events_(events), handler_(std::move(handler)) {
        Microsoft::WRL::ComPtr<IConnectionPointContainer> container;
        EXPECT_SUCCEEDED(source->QueryInterface(IID_PPV_ARGS(&container)));
        EXPECT_SUCCEEDED(container->FindConnectionPoint(events, &point_));
        EXPECT_SUCCEEDED(point_->Advise(this, &cookie_));
    }
    ~EventListener() { EXPECT_SUCCEEDED(point_->Unadvise(cookie_)); }
    EventListener(const EventListener&) = delete;
    EventListener& operator=(const EventListener&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == events_;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // Lives in the test.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                        EXCEPINFO*, UINT*) override {
        handler_(event, *arguments);
        return S_OK;
    }

private:
    const IID events_;
    const Handler handler_;
    Microsoft::WRL::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace vndesk::test
