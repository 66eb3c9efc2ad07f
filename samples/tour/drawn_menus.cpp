// SPDX-License-Identifier: MIT
#include "drawn_menus.h"

#include <comutil.h>

#include <utility>

#include "create.h"
#include "host_error.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr DISPID kMenuHelp = 1;
constexpr long kPoints = 9;

// Takes the event MenuHelp(MenuText, MenuHelp, Enabled).
class HelpSink final : public IDispatch {
public:
    explicit HelpSink(DrawnMenus::ShowHelp showHelp) : showHelp_(std::move(showHelp)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        const bool mine =
            iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(DHelpCallBackEvents);
        *object = mine ? static_cast<IDispatch*>(this) : nullptr;
        if (!mine)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    // DISPPARAMS has the last argument first.
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO*, UINT*) override {
        if (event != kMenuHelp || parameters->cArgs != 3 || parameters->rgvarg[1].vt != VT_BSTR)
            return S_OK;
        const BSTR help = parameters->rgvarg[1].bstrVal;
        try {
            showHelp_({help ? help : L"", SysStringLen(help)});
        } catch (...) {
            return E_FAIL;
        }
        return S_OK;
    }

private:
    DrawnMenus::ShowHelp showHelp_;
    ULONG references_ = 1;
};

} // namespace

void DrawnMenus::Install(HWND window, ShowHelp showHelp) {
    const auto help = Create<IHelpCallBack>(L"VnDesk.HelpCallBack");
    ComPtr<IConnectionPointContainer> container;
    Check(help.As(&container));
    Check(container->FindConnectionPoint(__uuidof(DHelpCallBackEvents), &events_));
    ComPtr<IDispatch> sink;
    *sink.GetAddressOf() = new HelpSink(std::move(showHelp));
    Check(events_->Advise(sink.Get(), &connection_));

    menu_ = Create<ICoolMenu>(L"VnDesk.clsCoolMenu");
    window_ = static_cast<long>(reinterpret_cast<LONG_PTR>(window));
    const _variant_t noImages(DISP_E_PARAMNOTFOUND, VT_ERROR);
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(menu_->Install(window_, _variant_t(help.Get()), noImages, &done));
    long points = 0;
    Check(menu_->FontSize(window_, _variant_t(kPoints), &points));
}

void DrawnMenus::Uninstall() {
    VARIANT_BOOL done = VARIANT_FALSE;
    if (menu_)
        menu_->Uninstall(window_, &done);
    if (connection_)
        events_->Unadvise(connection_);
    connection_ = 0;
    events_.Reset();
    menu_.Reset();
}
