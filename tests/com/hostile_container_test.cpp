// SPDX-License-Identifier: MIT
// Containers of the control DataCombo1 that misbehave: calls without the places for their answers,
// streams that fail, sites that fail or end the embedding from inside any of the control's calls.
#include <gtest/gtest.h>
#include <objsafe.h>
#include <olectl.h>

#include <functional>
#include <utility>
#include <vector>

#include "com/new_data_combo.h"
#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/reliability.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

// --- null pointers ---

struct NullCall {
    const char* name;
    std::function<HRESULT(const ComPtr<IDataCombo1>&)> call;
};

#define NULL_CALL(Interface, Member, ...)                                                          \
    NullCall(#Interface "::" #Member, [](const ComPtr<IDataCombo1>& combo) {                       \
        return As<Interface>(combo)->Member(__VA_ARGS__);                                          \
    })

TEST(HostileContainer, PlacesForAnswersThatAreNotThereAreRefused) {
    const NullCall calls[] = {
        NULL_CALL(IOleObject, GetClientSite, nullptr),
        NULL_CALL(IOleObject, GetMoniker, 0, 0, nullptr),
        NULL_CALL(IOleObject, GetClipboardData, 0, nullptr),
        NULL_CALL(IOleObject, EnumVerbs, nullptr),
        NULL_CALL(IOleObject, GetUserClassID, nullptr),
        NULL_CALL(IOleObject, GetUserType, USERCLASSTYPE_FULL, nullptr),
        NULL_CALL(IOleObject, SetExtent, DVASPECT_CONTENT, nullptr),
        NULL_CALL(IOleObject, GetExtent, DVASPECT_CONTENT, nullptr),
        NULL_CALL(IOleObject, Advise, nullptr, nullptr),
        NULL_CALL(IOleObject, EnumAdvise, nullptr),
        NULL_CALL(IOleObject, GetMiscStatus, DVASPECT_CONTENT, nullptr),
        NULL_CALL(IOleControl, GetControlInfo, nullptr),
        NULL_CALL(IOleInPlaceObject, GetWindow, nullptr),
        NULL_CALL(IOleInPlaceObject, SetObjectRects, nullptr, nullptr),
        NULL_CALL(IOleInPlaceActiveObject, GetWindow, nullptr),
        NULL_CALL(IOleInPlaceActiveObject, TranslateAccelerator, nullptr),
        NULL_CALL(IViewObject2, GetColorSet, 0, 0, nullptr, nullptr, nullptr, nullptr),
        NULL_CALL(IViewObject2, GetExtent, DVASPECT_CONTENT, -1, nullptr, nullptr),
        NULL_CALL(IPersistStreamInit, GetClassID, nullptr),
        NULL_CALL(IPersistStreamInit, Load, nullptr),
        NULL_CALL(IPersistStreamInit, Save, nullptr, TRUE),
        NULL_CALL(IPersistStreamInit, GetSizeMax, nullptr),
        NULL_CALL(IPersistPropertyBag, GetClassID, nullptr),
        NULL_CALL(IPersistPropertyBag, Load, nullptr, nullptr),
        NULL_CALL(IPersistPropertyBag, Save, nullptr, TRUE, TRUE),
        NULL_CALL(IPersistStorage, GetClassID, nullptr),
        NULL_CALL(IPersistStorage, InitNew, nullptr),
        NULL_CALL(IPersistStorage, Load, nullptr),
        NULL_CALL(IPersistStorage, Save, nullptr, TRUE),
        NULL_CALL(ISpecifyPropertyPages, GetPages, nullptr),
        {"IObjectSafety::GetInterfaceSafetyOptions",
         [](const ComPtr<IDataCombo1>& combo) {
             ComPtr<IObjectSafety> safety; // has no __uuidof here
             EXPECT_SUCCEEDED(combo->QueryInterface(
                 IID_IObjectSafety, reinterpret_cast<void**>(safety.GetAddressOf())));
             return safety->GetInterfaceSafetyOptions(IID_IDispatch, nullptr, nullptr);
         }},
        NULL_CALL(IProvideClassInfo2, GetClassInfo, nullptr),
        NULL_CALL(IProvideClassInfo2, GetGUID, GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr),
        NULL_CALL(IConnectionPointContainer, EnumConnectionPoints, nullptr),
        NULL_CALL(IConnectionPointContainer, FindConnectionPoint, IID_IPropertyNotifySink, nullptr),
        NULL_CALL(IUnknown, QueryInterface, IID_IUnknown, nullptr),
    };
    const auto combo = Create();
    for (const NullCall& each : calls)
        EXPECT_HR(E_POINTER, each.call(combo)) << each.name;
}

// What may be left out, and what is of the wrong kind: an answer or an error, never a crash.
TEST(HostileContainer, SenselessParametersAreAnswered) {
    const auto combo = Create();
    const auto object = As<IOleObject>(combo);
    const auto view = As<IViewObject2>(combo);
    DWORD connection = 1;
    EXPECT_FAILED(object->Advise(nullptr, &connection));
    EXPECT_EQ(0u, connection);
    EXPECT_FAILED(object->Unadvise(77));
    EXPECT_FAILED(object->DoVerb(-99, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_HR(OLEOBJ_S_INVALIDVERB, object->DoVerb(99, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_FAILED(object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_FAILED(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_SUCCEEDED(object->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_SUCCEEDED(object->SetHostNames(nullptr, nullptr));
    EXPECT_SUCCEEDED(object->Close(OLECLOSE_PROMPTSAVE));
    SIZEL size = {LONG_MAX, LONG_MAX};
    EXPECT_SUCCEEDED(object->SetExtent(DVASPECT_CONTENT, &size));
    EXPECT_FAILED(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr,
                             nullptr, nullptr, 0));
    const RECTL inverted = {10, 10, -10, -10};
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    EXPECT_SUCCEEDED(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &inverted,
                                nullptr, nullptr, 0));
    EXPECT_FAILED(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, memory, &inverted,
                             nullptr, nullptr, 0));
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    EXPECT_SUCCEEDED(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, nullptr));
    EXPECT_SUCCEEDED(view->GetAdvise(nullptr, nullptr, nullptr));
    RECT rect = {LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX};
    EXPECT_SUCCEEDED(As<IOleInPlaceObject>(combo)->SetObjectRects(&rect, &rect));
    ComPtr<IDataObject> data;
    EXPECT_HR(E_NOINTERFACE, combo.As(&data));
}

// --- streams ---

// A stream in memory whose call of a number fails in one of several ways. On the stack.
class FailingStream final : public IStream {
public:
    enum class Way { Error, Nothing, Half };

    FailingStream(IStream* stream, int failing, Way way)
        : stream_(stream), failing_(failing), way_(way) {}
    bool HasFailed() const { return calls_ >= failing_; }

    STDMETHODIMP QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(void* to, ULONG size, ULONG* got) override {
        return Fails(size, got) ? Failure() : stream_->Read(to, size, got);
    }
    STDMETHODIMP Write(const void* from, ULONG size, ULONG* written) override {
        return Fails(size, written) ? Failure() : stream_->Write(from, size, written);
    }
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Revert() override { return E_NOTIMPL; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IStream**) override { return E_NOTIMPL; }

private:
    bool Fails(ULONG size, ULONG* done) {
        if (++calls_ != failing_)
            return false;
        if (done)
            *done = way_ == Way::Half ? size / 2 : 0;
        return true;
    }
    HRESULT Failure() const { return way_ == Way::Error ? STG_E_ACCESSDENIED : S_OK; }

    IStream* const stream_;
    const int failing_;
    const Way way_;
    int calls_ = 0;
};

using Way = FailingStream::Way;
constexpr Way kWays[] = {Way::Error, Way::Nothing, Way::Half};
constexpr long kBlue = 0xFF0000;
constexpr long kRed = 0x0000FF;

ComPtr<IStream> MemoryStream(const void* bytes = nullptr, size_t size = 0) {
    ComPtr<IStream> stream;
    EXPECT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    EXPECT_SUCCEEDED(stream->Write(bytes, static_cast<ULONG>(size), nullptr));
    EXPECT_SUCCEEDED(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    return stream;
}

ComPtr<IStream> StreamOf(const ComPtr<IDataCombo1>& combo) {
    const ComPtr<IStream> stream = MemoryStream();
    EXPECT_SUCCEEDED(As<IPersistStreamInit>(combo)->Save(stream.Get(), FALSE));
    EXPECT_SUCCEEDED(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    return stream;
}

ComPtr<IDataCombo1> WithFont(long color) {
    const auto combo = Create();
    ComPtr<IFontDisp> font;
    FONTDESC description = {};
    wchar_t name[] = L"Arial";
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = 120000;
    EXPECT_SUCCEEDED(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    EXPECT_SUCCEEDED(combo->putref_Font(font.Get()));
    EXPECT_SUCCEEDED(combo->put_BackColor(color));
    return combo;
}

long ColorOf(const ComPtr<IDataCombo1>& combo) {
    OLE_COLOR color = 0;
    EXPECT_SUCCEEDED(combo->get_BackColor(&color));
    return color;
}

TEST(HostileContainer, StreamThatFailsAtAnyCallChangesNothing) {
    const auto blue = WithFont(kBlue);
    const auto red = WithFont(kRed);
    for (const Way way : kWays) {
        int failing = 1;
        for (;; ++failing) {
            const ComPtr<IStream> stream = StreamOf(blue);
            FailingStream reading(stream.Get(), failing, way);
            const HRESULT hr = As<IPersistStreamInit>(red)->Load(&reading);
            if (!reading.HasFailed())
                break;
            EXPECT_FAILED(hr) << failing;
            EXPECT_EQ(kRed, ColorOf(red)) << failing;
        }
        EXPECT_LT(3, failing) << "head, font and its name are read";
        EXPECT_EQ(kBlue, ColorOf(red));
        EXPECT_SUCCEEDED(red->put_BackColor(kRed));
    }
}

TEST(HostileContainer, StreamThatTakesNotEverythingIsAnErrorAndLeavesTheControlUnsaved) {
    const auto combo = WithFont(kBlue);
    const auto persist = As<IPersistStreamInit>(combo);
    for (const Way way : kWays)
        for (int failing = 1;; ++failing) {
            const ComPtr<IStream> stream = MemoryStream();
            FailingStream writing(stream.Get(), failing, way);
            const HRESULT hr = persist->Save(&writing, FALSE);
            if (!writing.HasFailed())
                break;
            EXPECT_FAILED(hr) << failing;
            EXPECT_HR(S_OK, persist->IsDirty());
        }
}

// Bytes of a good stream in turn: what comes of it is a control that works.
TEST(HostileContainer, StreamWithAWrongByteIsRefusedOrMakesAControlThatWorks) {
    const ComPtr<IStream> good = StreamOf(WithFont(kBlue));
    STATSTG state = {};
    ASSERT_SUCCEEDED(good->Stat(&state, STATFLAG_NONAME));
    std::vector<unsigned char> bytes(static_cast<size_t>(state.cbSize.QuadPart));
    ASSERT_SUCCEEDED(good->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr));
    const auto combo = Create();
    int refused = 0;
    const size_t step = FullRun() ? 1 : 3;
    for (size_t i = 0; i < bytes.size(); i += step)
        for (const unsigned char value : {0x00, 0xFF}) {
            unsigned char& byte = bytes[i];
            const unsigned char kept = std::exchange(byte, value);
            // More than the control asks for follows.
            std::vector<unsigned char> endless = bytes;
            endless.resize(bytes.size() + 1000, value);
            const ComPtr<IStream> stream = MemoryStream(endless.data(), endless.size());
            refused += FAILED(As<IPersistStreamInit>(combo)->Load(stream.Get()));
            byte = kept;
            SIZEL size = {};
            EXPECT_SUCCEEDED(As<IOleObject>(combo)->GetExtent(DVASPECT_CONTENT, &size));
            EXPECT_SUCCEEDED(As<IPersistStreamInit>(combo)->Save(MemoryStream().Get(), FALSE));
        }
    EXPECT_LT(0, refused);
}

// --- sites ---

// A container that does something from inside the control's call of a number. On the stack.
class HostileSite final : public IOleClientSite, public IOleInPlaceSite, public IOleControlSite {
public:
    using Action = std::function<HRESULT(HostileSite&)>;

    HostileSite(int number, Action action) : number_(number), action_(std::move(action)) {}
    ~HostileSite() {
        EXPECT_EQ(1u, references_) << "held by the control that is gone";
        if (IsWindow(window))
            DestroyWindow(window);
    }
    HostileSite(const HostileSite&) = delete;
    HostileSite& operator=(const HostileSite&) = delete;

    bool HasActed() const { return calls_ >= number_; }
    HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 100, nullptr,
                                  nullptr, nullptr, nullptr);
    ComPtr<IOleObject> control;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IOleClientSite)
            *object = static_cast<IOleClientSite*>(this);
        else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite)
            *object = static_cast<IOleInPlaceSite*>(this);
        else if (iid == IID_IOleControlSite)
            *object = static_cast<IOleControlSite*>(this);
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }

    STDMETHODIMP SaveObject() override { return Call(); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP ShowObject() override { return Call(); }
    STDMETHODIMP OnShowWindow(BOOL) override { return Call(); }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* result) override {
        *result = nullptr;
        const HRESULT hr = Call();
        // A place that stays empty is one of the actions.
        if (hr == S_OK)
            *result = window;
        return hr == S_FALSE ? S_OK : hr;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return Call(); }
    STDMETHODIMP OnInPlaceActivate() override { return Call(); }
    STDMETHODIMP OnUIActivate() override { return Call(); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT rect, LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
        *frame = nullptr;
        *document = nullptr;
        const HRESULT hr = Call();
        if (hr == S_OK)
            *rect = *clip = {0, 0, 120, 77};
        return hr;
    }
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Call(); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Call(); }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return Call(); }

    STDMETHODIMP OnControlInfoChanged() override { return Call(); }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return Call(); }
    STDMETHODIMP OnFocus(BOOL) override { return Call(); }
    STDMETHODIMP ShowPropertyFrame() override { return Call(); }

private:
    HRESULT Call() { return ++calls_ == number_ ? action_(*this) : S_OK; }

    const int number_;
    const Action action_;
    int calls_ = 0;
    ULONG references_ = 1;
};

struct SiteAction {
    const char* name;
    HostileSite::Action act;
};

const SiteAction kSiteActions[] = {
    {"fails", [](HostileSite&) { return E_FAIL; }},
    {"answers nothing", [](HostileSite&) { return S_FALSE; }},
    {"closes the control",
     [](HostileSite& site) { return site.control->Close(OLECLOSE_NOSAVE), S_OK; }},
    {"takes its site back",
     [](HostileSite& site) { return site.control->SetClientSite(nullptr), S_OK; }},
    {"destroys its window", [](HostileSite& site) { return DestroyWindow(site.window), S_OK; }},
    {"activates once more",
     [](HostileSite& site) {
         site.control->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site, 0, site.window, nullptr);
         return S_OK;
     }},
    {"hides the control",
     [](HostileSite& site) {
         site.control->DoVerb(OLEIVERB_HIDE, nullptr, &site, 0, site.window, nullptr);
         return S_OK;
     }},
};

// The life of an embedded control.
void Embed(HostileSite& site) {
    const auto combo = Create();
    EXPECT_SUCCEEDED(combo.As(&site.control));
    site.control->SetClientSite(&site);
    site.control->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site, 0, site.window, nullptr);
    site.control->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site, 0, site.window, nullptr);
    const RECT rect = {5, 5, 90, 90};
    As<IOleInPlaceObject>(combo)->SetObjectRects(&rect, &rect);
    combo->put_BackColor(kBlue);
    As<IOleInPlaceObject>(combo)->UIDeactivate();
    site.control->DoVerb(OLEIVERB_SHOW, nullptr, &site, 0, site.window, nullptr);
    HWND window = nullptr;
    As<IOleInPlaceObject>(combo)->GetWindow(&window);
    EXPECT_TRUE(!window || GetAncestor(window, GA_PARENT) != GetDesktopWindow());
    site.control->Close(OLECLOSE_SAVEIFDIRTY);
    site.control->SetClientSite(nullptr);
    // It works on by itself.
    short count = -1;
    VARIANT missing = {};
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    EXPECT_SUCCEEDED(combo->AddItem(nullptr, missing));
    EXPECT_SUCCEEDED(combo->get_ListCount(&count));
    EXPECT_EQ(1, count);
    site.control.Reset();
}

TEST(HostileContainer, SiteMayDoAnythingInsideAnyCallOfTheControl) {
    // The short form leaves out calls, other ones for each action.
    const int step = FullRun() ? 1 : 6;
    int start = 0;
    for (const SiteAction& action : kSiteActions) {
        SCOPED_TRACE(action.name);
        int number = 1 + start++ % step;
        for (bool acted = true; acted; number += step) {
            SCOPED_TRACE(number);
            HostileSite site(number, action.act);
            Embed(site);
            acted = site.HasActed();
        }
        EXPECT_LT(8, number) << "the calls of a container";
    }
    EXPECT_HR(S_OK, CanUnloadNow());
}

} // namespace
