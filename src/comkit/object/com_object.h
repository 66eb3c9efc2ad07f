// SPDX-License-Identifier: MIT
// The base of every COM class here: reference count, QueryInterface from the list of bases, one
// hold on the module. Objects live on the heap only and are made by MakeCom.
#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <atomic>
#include <utility>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"

namespace vndesk {

using Microsoft::WRL::ComPtr;

// Interfaces that an object answers to because a listed one inherits them (IDispatch of a dual
// interface).
template <class... Interfaces> struct InterfaceList {};

template <class Primary, class... Others> class ComObject : public Primary, public Others... {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (iid == __uuidof(IUnknown))
            *object = static_cast<Primary*>(this);
        else
            *object = Find(iid);
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            // Destruction may hand out and take back references to this object (a field that
            // releases its parent): they must not destroy it a second time.
            references_ = 1;
            delete this;
        }
        return left;
    }

protected:
    ComObject() = default;
    virtual ~ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    // Classes override this to add inherited interfaces, then ask the base.
    virtual void* Find(REFIID iid) {
        void* found = nullptr;
        ((iid == __uuidof(Primary) && (found = static_cast<Primary*>(this))) || ... ||
         (iid == __uuidof(Others) && (found = static_cast<Others*>(this))));
        return found;
    }

    // Inherited interfaces share the primary's pointer.
    template <class... Inherited> void* FindInherited(REFIID iid, InterfaceList<Inherited...>) {
        void* found = nullptr;
        ((iid == __uuidof(Inherited) &&
          (found = static_cast<Inherited*>(static_cast<Primary*>(this)))) ||
         ...);
        return found;
    }

private:
    ModuleLock lock_;
    std::atomic<ULONG> references_{1};
};

// Makes an object whose one reference the result owns.
template <class T, class... Arguments> ComPtr<T> MakeCom(Arguments&&... arguments) {
    ComPtr<T> object;
    // Not Attach: mingw-w64's adds a reference, the Windows SDK's does not.
    *object.GetAddressOf() = new T(std::forward<Arguments>(arguments)...);
    return object;
}

// The class table's create function for a class with a default constructor.
template <class T> HRESULT CreateInstanceOf(REFIID iid, void** object) {
    return MakeCom<T>()->QueryInterface(iid, object);
}

} // namespace vndesk
