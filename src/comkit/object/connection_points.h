// SPDX-License-Identifier: MIT
// Events: one class of sinks per outgoing interface, and the base of the classes that fire events.
#pragma once

#include <windows.h>
#include <ocidl.h>
#include <comutil.h>

#include <initializer_list>
#include <vector>

#include "comkit/object/dispatch.h"

namespace vndesk {

// The sinks of one outgoing interface. It lives inside its owner and shares the owner's reference
// count, but is an object of its own to COM.
class ConnectionPoint final : public IConnectionPoint {
public:
    // Sinks of an event interface may be plain IDispatch; others must have the interface itself.
    enum class Kind { Events, Interface };

    ConnectionPoint(IConnectionPointContainer& owner, REFIID iid, Kind kind)
        : owner_(owner), iid_(iid), kind_(kind) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    REFIID Interface() const { return iid_; }

    // Calls each sink that is connected now. Sinks may come and go meanwhile, and the owner may
    // lose its last other reference.
    template <class Sink, class Call> void ForEach(Call&& call) {
        const ComPtr<IConnectionPointContainer> keepAlive(&owner_);
        for (const ComPtr<IUnknown>& sink : Sinks())
            call(static_cast<Sink*>(sink.Get()));
    }

    // Fires an event. Arguments stand in the order of their declaration. Sinks' return values are
    // ignored.
    void Fire(DISPID event, std::initializer_list<_variant_t> arguments = {});

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }
    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

private:
    struct Connection {
        DWORD cookie;
        ComPtr<IUnknown> sink; // holds the outgoing interface itself, or IDispatch
    };

    std::vector<ComPtr<IUnknown>> Sinks() const;

    IConnectionPointContainer& owner_;
    const IID iid_;
    const Kind kind_;
    DWORD lastCookie_ = 0;
    std::vector<Connection> connections_;
};

// An event argument that a handler may change.
inline _variant_t ByReference(short& value) {
    _variant_t argument;
    V_VT(&argument) = VT_BYREF | VT_I2;
    V_I2REF(&argument) = &value;
    return argument;
}

HRESULT FindConnectionPoint(const std::vector<ConnectionPoint*>& points, REFIID iid,
                            IConnectionPoint** point) noexcept;
HRESULT EnumConnectionPoints(const std::vector<ConnectionPoint*>& points,
                             IEnumConnectionPoints** enumerator) noexcept;

// A dual interface whose class fires the events of one dispinterface. `Class` is the coclass.
template <class Derived, class Class, class Dual, class Events, class... Others>
class EventObject : public DescribedObject<Derived, Class, Dual, IProvideClassInfo2,
                                           IConnectionPointContainer, Others...> {
public:
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** enumerator) override {
        return vndesk::EnumConnectionPoints(ConnectionPoints(), enumerator);
    }

    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        return vndesk::FindConnectionPoint(ConnectionPoints(), iid, point);
    }

    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override {
        if (!guid)
            return E_POINTER;
        const bool known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID;
        *guid = known ? __uuidof(Events) : GUID_NULL;
        return known ? S_OK : E_INVALIDARG;
    }

protected:
    void Fire(DISPID event, std::initializer_list<_variant_t> arguments = {}) {
        events_.Fire(event, arguments);
    }

    // Classes with further outgoing interfaces add theirs after the events.
    virtual std::vector<ConnectionPoint*> ConnectionPoints() { return {&events_}; }

private:
    ConnectionPoint events_{*this, __uuidof(Events), ConnectionPoint::Kind::Events};
};

} // namespace vndesk
