// SPDX-License-Identifier: MIT
// The control DataCombo1: what hosts and designers see of the data combo. The window, with all
// items, is made when it is first needed and waits hidden until a container gives it a place.
// data_combo1.cpp has the members, data_combo1_ole.cpp the embedded object,
// data_combo1_in_place.cpp the window in its container, data_combo1_view.cpp drawing,
// data_combo1_persist.cpp storing.
#pragma once

#include <windows.h>
#include <ocidl.h>

#include "comkit/object/connection_points.h"
#include "controls/combo/data_combo_state.h"
#include "controls/combo/font_link.h"
#include "controls/combo/safe_object.h"
#include "controls/combo/window/data_combo.h"
#include "vndesk_idl.h"

namespace vndesk {

class DataCombo1 final
    : public EventObject<DataCombo1, ::DataCombo1, IDataCombo2, DDataCombo1Events, IOleObject,
                         IOleControl, IOleInPlaceObject, IOleInPlaceActiveObject, IViewObject2,
                         IPersistStreamInit, IPersistPropertyBag, IPersistStorage,
                         ISpecifyPropertyPages, SafeObject> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.DataCombo1";
    // What containers need to know before they make one; also written into the registry.
    static constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                         OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                         OLEMISC_SETCLIENTSITEFIRST;

    DataCombo1() = default;
    ~DataCombo1() override;

    // As hosts of 1.0 know it.
    static REFIID ErrorInterface() { return __uuidof(IDataCombo1); }

    // IDataCombo1
    STDMETHODIMP get_BackColor(OLE_COLOR* value) override;
    STDMETHODIMP put_BackColor(OLE_COLOR value) override;
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) override;
    STDMETHODIMP put_ForeColor(OLE_COLOR value) override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_Font(IFontDisp** value) override;
    STDMETHODIMP putref_Font(IFontDisp* value) override;
    STDMETHODIMP put_Font(IFontDisp* value) override;
    STDMETHODIMP get_BackStyle(short* value) override;
    STDMETHODIMP put_BackStyle(short value) override;
    STDMETHODIMP get_BorderStyle(short* value) override;
    STDMETHODIMP put_BorderStyle(short value) override;
    STDMETHODIMP Refresh() override;
    STDMETHODIMP get_ListIndex(short* value) override;
    STDMETHODIMP put_ListIndex(short value) override;
    STDMETHODIMP get_ListIndex1(short* value) override;
    STDMETHODIMP put_ListIndex1(short value) override;
    STDMETHODIMP AddItem(BSTR item, VARIANT index) override;
    STDMETHODIMP get_Text(BSTR* value) override;
    STDMETHODIMP put_Text(BSTR value) override;
    STDMETHODIMP get_Value(BSTR* value) override;
    STDMETHODIMP put_Value(BSTR value) override;
    STDMETHODIMP get_ItemData(long index, BSTR* value) override;
    STDMETHODIMP put_ItemData(long index, BSTR value) override;
    STDMETHODIMP Clear() override;
    STDMETHODIMP get_NewIndex(short* value) override;
    STDMETHODIMP get_ListCount(short* value) override;
    STDMETHODIMP RemoveItem(short index) override;
    STDMETHODIMP get_List(short index, BSTR* value) override;
    STDMETHODIMP put_List(short index, BSTR value) override;

    // IDataCombo2
    STDMETHODIMP get_AccentSensitivity(AccentSensitivity* value) override;
    STDMETHODIMP put_AccentSensitivity(AccentSensitivity value) override;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject** data) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT rect) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* clsid) override { return GetClassID(clsid); }
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
    STDMETHODIMP Unadvise(DWORD connection) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG*) override { return S_OK; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

    // IOleInPlaceObject, IOleInPlaceActiveObject
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT rect, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

    // IViewObject2
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectData, DVTARGETDEVICE* device,
                      HDC deviceDc, HDC dc, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR), ULONG_PTR) override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                             LOGPALETTE** colors) override;
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) override;

    // IPersistStreamInit, IPersistPropertyBag, IPersistStorage
    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP IsDirty() override { return dirty_ ? S_OK : S_FALSE; }
    STDMETHODIMP InitNew() override;
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* errors) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) override;
    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL same) override;
    STDMETHODIMP SaveCompleted(IStorage*) override { return S_OK; }
    STDMETHODIMP HandsOffStorage() override { return S_OK; }

    // ISpecifyPropertyPages, IObjectSafety
    STDMETHODIMP GetPages(CAUUID* pages) override;
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

protected:
    void* Find(REFIID iid) override;
    std::vector<ConnectionPoint*> ConnectionPoints() override;

private:
    static constexpr DWORD kSafety =
        INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

    DataCombo& Core();
    void HookEvents();
    void Fire(DISPID event, std::initializer_list<_variant_t> arguments = {});
    void OnFocus(bool has);
    void OnCoreDestroyed();

    // What a property's put does before and after its work: asks the container, then notifies it.
    template <class Work> HRESULT Let(DISPID property, Work&& work) {
        return Guard([&] {
            RequestEdit(property);
            work();
            Changed(property);
        });
    }
    void RequestEdit(DISPID property);
    void Changed(DISPID property);
    void ViewChanged();

    _variant_t Ambient(DISPID property) const;
    ComPtr<IFont> AmbientFont() const;
    IFont* CurrentFont();
    void ApplyFont();
    void OnFontChanged();
    void UseAmbients();
    DataComboState State();
    void Apply(const DataComboState& state);

    void ActivateInPlace();
    void UIActivate(bool takeFocus);
    void Deactivate();
    void Place(const RECT& rect, const RECT* clip);
    void FollowHeight();
    HRESULT ShowProperties(HWND parent);
    SIZEL Extent();

    const DataComboClass windowClass_;
    DataCombo* core_ = nullptr;
    FontLink font_{[this] { OnFontChanged(); }};
    // The font was set or loaded, and does not follow the container's.
    bool ownFont_ = false;
    short backStyle_ = 0;
    short borderStyle_ = 0;

    ComPtr<IOleClientSite> site_;
    ComPtr<IOleInPlaceSite> inPlaceSite_;
    ComPtr<IOleAdviseHolder> advise_;
    ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    ConnectionPoint changes_{*this, __uuidof(IPropertyNotifySink),
                             ConnectionPoint::Kind::Interface};
    // In hundredths of a millimetre.
    long width_ = 3200;
    bool inPlace_ = false;
    bool uiActive_ = false;
    bool placing_ = false;
    bool userMode_ = true;
    bool dirty_ = false;
    int frozen_ = 0;
};

} // namespace vndesk
