// SPDX-License-Identifier: MIT
#include "event_sink.h"

#include <olectl.h>

namespace vndesk {
namespace {

using Microsoft::WRL::ComPtr;

class Sink final : public IDispatch {
public:
    Sink(const GUID& iid, ITypeInfo* events, IDispatch* script, std::wstring prefix)
        : iid_(iid), events_(events), script_(script), prefix_(std::move(prefix)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == iid_;
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return InterlockedIncrement(&references_); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = InterlockedDecrement(&references_);
        if (!left)
            delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
        BSTR event = nullptr;
        UINT count = 0;
        if (FAILED(events_->GetNames(id, &event, 1, &count)) || !count)
            return S_OK;
        std::wstring procedure = prefix_ + event;
        SysFreeString(event);
        wchar_t* name = procedure.data();
        DISPID target = DISPID_UNKNOWN;
        if (FAILED(script_->GetIDsOfNames(IID_NULL, &name, 1, locale, &target)))
            return S_OK;

        // Engines write back to by-ref arguments of type Variant only: hand over a Variant in
        // place of each typed reference and copy the outcome to where the source wants it.
        std::vector<VARIANT> values(arguments->cArgs), passed(arguments->cArgs);
        for (UINT i = 0; i < arguments->cArgs; ++i) {
            VARIANT& given = arguments->rgvarg[i];
            VariantInit(&values[i]);
            passed[i] = given;
            if ((given.vt & VT_BYREF) && given.vt != (VT_BYREF | VT_VARIANT) &&
                SUCCEEDED(VariantCopyInd(&values[i], &given))) {
                passed[i].vt = VT_BYREF | VT_VARIANT;
                passed[i].pvarVal = &values[i];
            }
        }
        DISPPARAMS parameters = {passed.data(), nullptr, arguments->cArgs, 0};
        const HRESULT hr = script_->Invoke(target, IID_NULL, locale, DISPATCH_METHOD, &parameters,
                                           result, exception, wrong);
        for (UINT i = 0; i < arguments->cArgs; ++i) {
            const VARIANT& given = arguments->rgvarg[i];
            if (passed[i].vt != given.vt)
                WriteBack(given, values[i]);
            VariantClear(&values[i]);
        }
        return hr;
    }

private:
    ~Sink() = default;

    static void WriteBack(const VARIANT& target, VARIANT& value) {
        if (FAILED(VariantChangeType(&value, &value, 0, target.vt & ~VT_BYREF)))
            return;
        switch (target.vt & ~VT_BYREF) {
        case VT_BOOL:
            *target.pboolVal = value.boolVal;
            break;
        case VT_I2:
            *target.piVal = value.iVal;
            break;
        case VT_I4:
            *target.plVal = value.lVal;
            break;
        case VT_R8:
            *target.pdblVal = value.dblVal;
            break;
        case VT_BSTR:
            SysFreeString(*target.pbstrVal);
            *target.pbstrVal = value.bstrVal;
            value.vt = VT_EMPTY;
            break;
        }
    }

    LONG references_ = 1;
    const GUID iid_;
    ComPtr<ITypeInfo> events_;
    ComPtr<IDispatch> script_;
    const std::wstring prefix_;
};

// Type information of the source interface, from the type library that describes the object.
HRESULT EventInfo(IUnknown* source, const GUID& iid, ComPtr<ITypeInfo>& info) {
    ComPtr<IDispatch> object;
    ComPtr<ITypeInfo> own;
    ComPtr<ITypeLib> library;
    UINT index = 0;
    HRESULT hr = source->QueryInterface(IID_PPV_ARGS(&object));
    if (SUCCEEDED(hr))
        hr = object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &own);
    if (SUCCEEDED(hr))
        hr = own->GetContainingTypeLib(&library, &index);
    return SUCCEEDED(hr) ? library->GetTypeInfoOfGuid(iid, &info) : hr;
}

HRESULT DefaultSource(IUnknown* source, IConnectionPointContainer* container, GUID& iid) {
    ComPtr<IProvideClassInfo2> info;
    if (SUCCEEDED(source->QueryInterface(IID_PPV_ARGS(&info))) &&
        SUCCEEDED(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &iid)))
        return S_OK;
    ComPtr<IEnumConnectionPoints> points;
    ComPtr<IConnectionPoint> first;
    ULONG fetched = 0;
    HRESULT hr = container->EnumConnectionPoints(&points);
    if (SUCCEEDED(hr))
        hr = points->Next(1, &first, &fetched);
    return hr == S_OK ? first->GetConnectionInterface(&iid) : CONNECT_E_NOCONNECTION;
}

} // namespace

HRESULT EventConnection::Connect(IUnknown* source, IDispatch* script, const std::wstring& prefix,
                                 EventConnection& connection) {
    if (!source || !script)
        return E_POINTER;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<ITypeInfo> info;
    GUID iid = {};
    HRESULT hr = source->QueryInterface(IID_PPV_ARGS(&container));
    if (SUCCEEDED(hr))
        hr = DefaultSource(source, container.Get(), iid);
    if (SUCCEEDED(hr))
        hr = EventInfo(source, iid, info);
    if (SUCCEEDED(hr))
        hr = container->FindConnectionPoint(iid, &connection.point_);
    if (FAILED(hr))
        return hr;
    ComPtr<Sink> sink;
    // Not by Attach: mingw-w64's adds a reference of its own.
    *sink.GetAddressOf() = new Sink(iid, info.Get(), script, prefix);
    hr = connection.point_->Advise(sink.Get(), &connection.cookie_);
    if (FAILED(hr))
        connection.point_.Reset();
    return hr;
}

void EventConnection::Disconnect() {
    if (point_)
        point_->Unadvise(cookie_);
    point_.Reset();
}

} // namespace vndesk
