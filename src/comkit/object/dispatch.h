// SPDX-License-Identifier: MIT
// IDispatch for the module's dual interfaces, answered by the module's own type library, with one
// coercing layer in front.
#pragma once

#include <windows.h>
#include <oaidl.h>
#include <ocidl.h>
#include <wrl/client.h>

#include "comkit/base/bstr.h"
#include "comkit/base/com_error.h"
#include "comkit/object/com_object.h"
#include "comkit/object/member_table.h"

namespace vndesk {

// The description of one of the module's interfaces or classes. Loaded once from the module's own
// resource, so that it works before registration; valid while the caller's object lives.
struct TypeDescription {
    GUID guid;
    Microsoft::WRL::ComPtr<ITypeInfo> info;
    MemberTable members;
};

const TypeDescription& TypeOf(REFGUID guid);

// Drops what TypeOf keeps when COM asks whether the DLL may go. False while it is in use.
bool ReleaseTypes() noexcept;

// Calls through ITypeInfo::Invoke after converting by-reference arguments to the declared type.
// Scripts pass a variable as VARIANT* and numbers where text is expected; Invoke alone refuses
// both. What the method sets goes back to the caller's variable; the others stay untouched.
HRESULT InvokeCoerced(const TypeDescription& type, void* instance, DISPID id, WORD flags,
                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                      UINT* badArgument) noexcept;

// A dual interface with error information. `Derived` supplies kProgId, the error source that hosts
// see.
template <class Derived, class Dual, class... Others>
class DualObject : public ComObject<Dual, ISupportErrorInfo, Others...> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** type) override {
        if (!type)
            return E_POINTER;
        *type = nullptr;
        if (index != 0)
            return DISP_E_BADINDEX;
        return Guard([&] { CheckHr(TypeOf(__uuidof(Dual)).info.CopyTo(type)); });
    }

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) override {
        if (iid != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        if (!names || !ids || count == 0)
            return E_INVALIDARG;
        HRESULT found = S_OK;
        const HRESULT loaded = Guard([&] {
            found = DispGetIDsOfNames(TypeOf(__uuidof(Dual)).info.Get(), names, count, ids);
        });
        return FAILED(loaded) ? loaded : found;
    }

    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
        if (iid != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        if (!parameters)
            return E_POINTER;
        // The host may let the object go inside the call, and the type goes with the last object.
        const ComPtr<IUnknown> keepAlive(static_cast<Dual*>(this));
        const TypeDescription* type = nullptr;
        const HRESULT loaded = Guard([&] { type = &TypeOf(__uuidof(Dual)); });
        if (FAILED(loaded))
            return loaded;
        return InvokeCoerced(*type, static_cast<Dual*>(this), member, flags, parameters, result,
                             exception, badArgument);
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return this->Find(iid) && iid != __uuidof(ISupportErrorInfo) ? S_OK : S_FALSE;
    }

    // What error information names as the interface that failed.
    static REFIID ErrorInterface() { return __uuidof(Dual); }

protected:
    void* Find(REFIID iid) override {
        if (iid == __uuidof(IDispatch))
            return static_cast<IDispatch*>(static_cast<Dual*>(this));
        return ComObject<Dual, ISupportErrorInfo, Others...>::Find(iid);
    }

    // The one way out of a method: no exception passes, every error gets a description. A method
    // may run the host's code, which may let the object go: it stays until the method returns.
    template <class Body> HRESULT Guard(Body&& body) noexcept {
        const ComPtr<IUnknown> keepAlive(static_cast<Dual*>(this));
        try {
            body();
            return S_OK;
        } catch (...) {
            return ReportCurrentError(Derived::ErrorInterface(), Derived::kProgId);
        }
    }

    // Guard for members that only have a result: what the work gives. The place for it is looked at
    // before the work is done.
    template <class T, class Work> HRESULT Get(T* out, Work&& work) noexcept {
        return Guard([&] {
            T& place = ClearedOut(out);
            place = work();
        });
    }
};

// A class of the type library that tells its name: TypeName in Basic would otherwise give that of
// the interface. `Info` is IProvideClassInfo, or its successor for classes with events.
template <class Derived, class Class, class Dual, class Info, class... Others>
class DescribedObject : public DualObject<Derived, Dual, Info, Others...> {
    using Base = DualObject<Derived, Dual, Info, Others...>;

public:
    STDMETHODIMP GetClassInfo(ITypeInfo** type) override {
        return this->Guard([&] {
            ITypeInfo*& result = ClearedOut(type);
            CheckHr(TypeOf(__uuidof(Class)).info.CopyTo(&result));
        });
    }

protected:
    void* Find(REFIID iid) override {
        if (iid == __uuidof(IProvideClassInfo))
            return static_cast<IProvideClassInfo*>(static_cast<Info*>(this));
        return Base::Find(iid);
    }
};

// The base of classes without events.
template <class Derived, class Class, class Dual>
using ClassObject = DescribedObject<Derived, Class, Dual, IProvideClassInfo>;

} // namespace vndesk
