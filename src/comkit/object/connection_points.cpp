// SPDX-License-Identifier: MIT
#include "comkit/object/connection_points.h"

#include <windows.h>
#include <olectl.h>

#include <algorithm>
#include <utility>

namespace vndesk {

namespace {

// Copies for the caller of an enumerator, which owns the references in them.
void Give(const ComPtr<IConnectionPoint>& from, IConnectionPoint** to) {
    from.CopyTo(to);
}
void Give(const std::pair<DWORD, ComPtr<IUnknown>>& from, CONNECTDATA* to) {
    *to = {from.second.Get(), from.first};
    to->pUnk->AddRef();
}

// COM's pattern of an enumerator over what was there when it was made.
template <class Enum, class Item, class Out> class Enumerator final : public ComObject<Enum> {
public:
    explicit Enumerator(std::vector<Item> items, size_t next = 0)
        : items_(std::move(items)), next_(next) {}

    STDMETHODIMP Next(ULONG count, Out* out, ULONG* fetched) override {
        if (fetched)
            *fetched = 0;
        if (!out || (!fetched && count != 1))
            return E_POINTER;
        ULONG given = 0;
        for (; given < count && next_ < items_.size(); ++given)
            Give(items_[next_++], &out[given]);
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        const size_t left = items_.size() - next_;
        next_ += std::min<size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override {
        next_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(Enum** copy) override {
        if (!copy)
            return E_POINTER;
        *copy = nullptr;
        return ToHresult([&] { *copy = MakeCom<Enumerator>(items_, next_).Detach(); });
    }

private:
    const std::vector<Item> items_;
    size_t next_;
};

using PointEnumerator =
    Enumerator<IEnumConnectionPoints, ComPtr<IConnectionPoint>, IConnectionPoint*>;
using ConnectionEnumerator =
    Enumerator<IEnumConnections, std::pair<DWORD, ComPtr<IUnknown>>, CONNECTDATA>;

} // namespace

void ConnectionPoint::Fire(DISPID event, std::initializer_list<_variant_t> arguments) {
    // DISPPARAMS has the last argument first.
    std::vector<_variant_t> reversed(arguments);
    std::reverse(reversed.begin(), reversed.end());
    ForEach<IDispatch>([&](IDispatch* sink) {
        // A sink may change its arguments: each gets its own copy.
        std::vector<_variant_t> given(reversed);
        DISPPARAMS parameters = {given.data(), nullptr, static_cast<UINT>(given.size()), 0};
        sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                     nullptr, nullptr);
    });
}

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const {
    std::vector<ComPtr<IUnknown>> sinks;
    for (const Connection& connection : connections_)
        sinks.push_back(connection.sink);
    return sinks;
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IConnectionPoint);
    *object = known ? this : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid)
        return E_POINTER;
    *iid = iid_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container)
        return E_POINTER;
    *container = &owner_;
    owner_.AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie)
        *cookie = 0;
    if (!sink || !cookie)
        return E_POINTER;
    return ToHresult([&] {
        void* found = nullptr;
        HRESULT asked = sink->QueryInterface(iid_, &found);
        if (FAILED(asked) && kind_ == Kind::Events)
            asked = sink->QueryInterface(__uuidof(IDispatch), &found);
        if (FAILED(asked))
            throw ComError(CONNECT_E_CANNOTCONNECT);
        Connection connection = {++lastCookie_, {}};
        *connection.sink.GetAddressOf() = static_cast<IUnknown*>(found);
        connections_.push_back(std::move(connection));
        *cookie = lastCookie_;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::find_if(connections_.begin(), connections_.end(),
                                    [&](const Connection& c) { return c.cookie == cookie; });
    if (found == connections_.end())
        return CONNECT_E_NOCONNECTION;
    // Releasing the sink may call Unadvise again: it is out of the list by then.
    const Connection removed = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return ToHresult([&] {
        std::vector<std::pair<DWORD, ComPtr<IUnknown>>> items;
        for (const Connection& connection : connections_)
            items.emplace_back(connection.cookie, connection.sink);
        *connections = MakeCom<ConnectionEnumerator>(std::move(items)).Detach();
    });
}

HRESULT FindConnectionPoint(const std::vector<ConnectionPoint*>& points, REFIID iid,
                            IConnectionPoint** point) noexcept {
    if (!point)
        return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* candidate : points)
        if (candidate->Interface() == iid) {
            candidate->AddRef();
            *point = candidate;
            return S_OK;
        }
    return CONNECT_E_NOCONNECTION;
}

HRESULT EnumConnectionPoints(const std::vector<ConnectionPoint*>& points,
                             IEnumConnectionPoints** enumerator) noexcept {
    if (!enumerator)
        return E_POINTER;
    *enumerator = nullptr;
    return ToHresult([&] {
        std::vector<ComPtr<IConnectionPoint>> items(points.begin(), points.end());
        *enumerator = MakeCom<PointEnumerator>(std::move(items)).Detach();
    });
}

} // namespace vndesk
