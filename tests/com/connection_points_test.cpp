// SPDX-License-Identifier: MIT
// What the kit gives every class with events, tried on a small source of the test's own.
#include "comkit/object/connection_points.h"

#include <functional>
#include <gtest/gtest.h>
#include <olectl.h>
#include <string>

#include "support/check_hr.h"

namespace {

using namespace vndesk;
using namespace vndesk::test;

// Any event interface serves; the platform's own needs no type library of ours.
using Events = IFontEventsDisp;

class Source final : public EventObject<Source, IFontEventsDisp, IDispatch, Events> {
public:
    static constexpr const wchar_t* kProgId = L"Test.Source";
    explicit Source(bool* gone = nullptr) : gone_(gone) {}
    ~Source() override {
        if (gone_)
            *gone_ = true;
    }
    using EventObject::Fire;

protected:
    std::vector<ConnectionPoint*> ConnectionPoints() override {
        auto points = EventObject::ConnectionPoints();
        points.push_back(&changes_);
        return points;
    }

private:
    bool* gone_;
    ConnectionPoint changes_{*this, __uuidof(IPropertyNotifySink),
                             ConnectionPoint::Kind::Interface};
};

// A sink on the stack, which counts its references and is disconnected at its end.
class Sink final : public IDispatch {
public:
    using Handler = std::function<void(DISPID, DISPPARAMS&)>;
    explicit Sink(Handler handler, bool knowsEvents = false)
        : handler_(std::move(handler)), knowsEvents_(knowsEvents) {}
    ~Sink() {
        for (const auto& [point, cookie] : connections_)
            point->Unadvise(cookie);
    }

    DWORD Advise(IConnectionPoint* point) {
        DWORD cookie = 0;
        EXPECT_HR(S_OK, point->Advise(this, &cookie));
        connections_.emplace_back(point, cookie);
        return cookie;
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        asked.push_back(iid);
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch ||
                           (knowsEvents_ && iid == __uuidof(Events));
        *object = known ? this : nullptr;
        if (known)
            ++references;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO*, UINT*) override {
        EXPECT_EQ(DISPATCH_METHOD, flags);
        handler_(event, *parameters);
        return answer;
    }

    ULONG references = 1;
    HRESULT answer = S_OK;
    std::vector<IID> asked;

private:
    Handler handler_;
    bool knowsEvents_;
    std::vector<std::pair<ComPtr<IConnectionPoint>, DWORD>> connections_;
};

const Sink::Handler kIgnore = [](DISPID, DISPPARAMS&) {};

class ConnectionPointTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_HR(S_OK, source_->FindConnectionPoint(__uuidof(Events), &point_));
        ASSERT_HR(S_OK,
                  source_->FindConnectionPoint(__uuidof(IPropertyNotifySink), &interfacePoint_));
    }
    DWORD Advise(Sink& sink) { return sink.Advise(point_.Get()); }

    ComPtr<Source> source_ = MakeCom<Source>();
    ComPtr<IConnectionPoint> point_, interfacePoint_;
};

TEST_F(ConnectionPointTest, ArgumentsArriveInOrderAndByReferenceOnesComeBack) {
    Sink sink([](DISPID event, DISPPARAMS& given) {
        EXPECT_EQ(7, event);
        ASSERT_EQ(3u, given.cArgs);
        EXPECT_EQ(0u, given.cNamedArgs);
        EXPECT_STREQ(L"đã chọn", V_BSTR(&given.rgvarg[2]));
        EXPECT_EQ(VT_BOOL, V_VT(&given.rgvarg[1]));
        EXPECT_EQ(VARIANT_TRUE, V_BOOL(&given.rgvarg[1]));
        ASSERT_EQ(VT_BYREF | VT_I2, V_VT(&given.rgvarg[0]));
        EXPECT_EQ(46, *V_I2REF(&given.rgvarg[0]));
        *V_I2REF(&given.rgvarg[0]) = 0;
    });
    Advise(sink);
    short key = 46;
    source_->Fire(7, {L"đã chọn", true, ByReference(key)});
    EXPECT_EQ(0, key);
}

TEST_F(ConnectionPointTest, EverySinkHearsWhateverTheOthersAnswer) {
    int heard = 0;
    Sink first([&](DISPID, DISPPARAMS& given) {
        ++heard;
        VariantClear(&given.rgvarg[0]); // what it is given is its own
    });
    first.answer = E_FAIL;
    Sink second([&](DISPID, DISPPARAMS& given) {
        ++heard;
        EXPECT_STREQ(L"x", V_BSTR(&given.rgvarg[0]));
    });
    Advise(first);
    Advise(second);
    source_->Fire(1, {L"x"});
    EXPECT_EQ(2, heard);
}

TEST_F(ConnectionPointTest, AsksForTheEventInterfaceFirst) {
    Sink knowing(kIgnore, true), plain(kIgnore);
    Advise(knowing);
    Advise(plain);
    ASSERT_EQ(1u, knowing.asked.size());
    EXPECT_TRUE(knowing.asked[0] == __uuidof(Events));
    ASSERT_EQ(2u, plain.asked.size());
    EXPECT_TRUE(plain.asked[1] == IID_IDispatch);
}

TEST_F(ConnectionPointTest, InterfaceSinksMustHaveTheInterface) {
    Sink sink(kIgnore);
    DWORD cookie = 5;
    EXPECT_HR(CONNECT_E_CANNOTCONNECT, interfacePoint_->Advise(&sink, &cookie));
    EXPECT_EQ(0u, cookie);
    EXPECT_EQ(1u, sink.references);
    EXPECT_HR(E_POINTER, point_->Advise(nullptr, &cookie));
    EXPECT_HR(E_POINTER, point_->Advise(&sink, nullptr));
}

TEST_F(ConnectionPointTest, SinkMayLeaveAndAnotherComeDuringAnEvent) {
    int first = 0, second = 0, late = 0;
    DWORD firstCookie = 0, secondCookie = 0;
    Sink lateSink([&](DISPID, DISPPARAMS&) { ++late; });
    Sink secondSink([&](DISPID, DISPPARAMS&) { ++second; });
    Sink firstSink([&](DISPID, DISPPARAMS&) {
        if (++first > 1)
            return;
        EXPECT_HR(S_OK, point_->Unadvise(firstCookie));
        EXPECT_HR(S_OK, point_->Unadvise(secondCookie));
        Advise(lateSink);
        EXPECT_LT(1u, secondSink.references) << "held while the event goes round";
    });
    firstCookie = Advise(firstSink);
    secondCookie = Advise(secondSink);
    source_->Fire(1);
    EXPECT_EQ(1, first);
    EXPECT_EQ(1, second) << "it was connected when the event was fired";
    EXPECT_EQ(0, late);
    EXPECT_EQ(1u, secondSink.references);
    source_->Fire(1);
    EXPECT_EQ(1, first);
    EXPECT_EQ(1, late);
}

TEST_F(ConnectionPointTest, UnadviseReleasesAndKnowsItsOwnCookiesOnly) {
    Sink sink(kIgnore);
    const DWORD cookie = Advise(sink), again = Advise(sink);
    EXPECT_NE(cookie, again);
    EXPECT_HR(S_OK, point_->Unadvise(cookie));
    EXPECT_HR(CONNECT_E_NOCONNECTION, point_->Unadvise(cookie));
    EXPECT_HR(CONNECT_E_NOCONNECTION, point_->Unadvise(0));
    EXPECT_HR(S_OK, point_->Unadvise(again));
    EXPECT_EQ(1u, sink.references);
}

TEST_F(ConnectionPointTest, PointKeepsItsSourceAliveAndLeadsBackToIt) {
    IID iid = {};
    EXPECT_HR(S_OK, point_->GetConnectionInterface(&iid));
    EXPECT_TRUE(iid == __uuidof(Events));
    ComPtr<IConnectionPointContainer> container;
    EXPECT_HR(S_OK, point_->GetConnectionPointContainer(&container));
    EXPECT_EQ(static_cast<IConnectionPointContainer*>(source_.Get()), container.Get());
    ComPtr<IDispatch> none;
    EXPECT_HR(E_NOINTERFACE, point_.As(&none)) << "an object of its own";

    bool gone = false;
    ComPtr<Source> source = MakeCom<Source>(&gone);
    ComPtr<IConnectionPoint> point;
    EXPECT_HR(S_OK, source->FindConnectionPoint(__uuidof(Events), &point));
    source.Reset();
    EXPECT_FALSE(gone);
    EXPECT_EQ(0u, point.Reset());
    EXPECT_TRUE(gone);
}

TEST_F(ConnectionPointTest, SourceMayLoseItsLastReferenceDuringAnEvent) {
    bool gone = false;
    Source* source = MakeCom<Source>(&gone).Detach();
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    Sink sink([&](DISPID, DISPPARAMS&) {
        source->Release();
        EXPECT_FALSE(gone);
    });
    EXPECT_HR(S_OK, source->FindConnectionPoint(__uuidof(Events), &point));
    EXPECT_HR(S_OK, point->Advise(&sink, &cookie));
    point.Reset();
    source->Fire(1);
    EXPECT_TRUE(gone);
    EXPECT_EQ(1u, sink.references);
}

TEST_F(ConnectionPointTest, EnumeratesPointsAndConnections) {
    ComPtr<IEnumConnectionPoints> points, copy;
    ASSERT_HR(S_OK, source_->EnumConnectionPoints(&points));
    IConnectionPoint* found[3] = {};
    ULONG count = 0;
    EXPECT_HR(S_FALSE, points->Next(3, found, &count));
    ASSERT_EQ(2u, count);
    EXPECT_EQ(point_.Get(), found[0]);
    EXPECT_EQ(interfacePoint_.Get(), found[1]);
    found[0]->Release();
    found[1]->Release();
    EXPECT_HR(S_OK, points->Reset());
    EXPECT_HR(S_OK, points->Skip(1));
    EXPECT_HR(S_OK, points->Clone(&copy));
    ComPtr<IConnectionPoint> second;
    EXPECT_HR(S_OK, copy->Next(1, &second, nullptr));
    EXPECT_EQ(interfacePoint_.Get(), second.Get());
    EXPECT_HR(S_FALSE, copy->Skip(1));

    Sink sink(kIgnore);
    const DWORD cookie = Advise(sink);
    ComPtr<IEnumConnections> connections;
    CONNECTDATA data = {};
    ASSERT_HR(S_OK, point_->EnumConnections(&connections));
    EXPECT_HR(S_OK, connections->Next(1, &data, &count));
    EXPECT_EQ(cookie, data.dwCookie);
    EXPECT_EQ(static_cast<IUnknown*>(&sink), data.pUnk);
    data.pUnk->Release();
    EXPECT_HR(S_FALSE, connections->Next(1, &data, &count));
    connections.Reset();
    EXPECT_HR(S_OK, point_->Unadvise(cookie));
    EXPECT_EQ(1u, sink.references);
}

TEST_F(ConnectionPointTest, UnknownInterfacesAndNullPointersAreRefused) {
    ComPtr<IConnectionPoint> none;
    EXPECT_HR(CONNECT_E_NOCONNECTION, source_->FindConnectionPoint(IID_IDispatch, &none));
    EXPECT_EQ(nullptr, none.Get());
    EXPECT_HR(E_POINTER, source_->FindConnectionPoint(__uuidof(Events), nullptr));
    EXPECT_HR(E_POINTER, source_->EnumConnectionPoints(nullptr));
    EXPECT_HR(E_POINTER, source_->GetClassInfo(nullptr));
    EXPECT_HR(E_POINTER, point_->GetConnectionInterface(nullptr));
    EXPECT_HR(E_POINTER, point_->GetConnectionPointContainer(nullptr));
    EXPECT_HR(E_POINTER, point_->EnumConnections(nullptr));
}

TEST_F(ConnectionPointTest, NamesItsEventInterface) {
    ComPtr<IProvideClassInfo2> info;
    ComPtr<IProvideClassInfo> older;
    ASSERT_HR(S_OK, source_.As(&info));
    EXPECT_HR(S_OK, source_.As(&older));
    GUID guid = {};
    EXPECT_HR(S_OK, info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid));
    EXPECT_TRUE(guid == __uuidof(Events));
    EXPECT_HR(E_INVALIDARG, info->GetGUID(99, &guid));
    EXPECT_TRUE(guid == GUID_NULL);
    EXPECT_HR(E_POINTER, info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr));
}

} // namespace
