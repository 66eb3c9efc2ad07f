// SPDX-License-Identifier: MIT
// The control as an embedded object: its site, verbs, extents, ambient properties, property pages.
#include <windows.h>
#include <olectl.h>

#include <algorithm>

#include "comkit/base/bstr.h"
#include "controls/combo/data_combo1.h"
#include "controls/combo/himetric.h"

namespace vndesk {

namespace {

constexpr double kDefaultPoints = 9;
constexpr int kCyPerUnit = 10000;

} // namespace

// --- the container ---

STDMETHODIMP DataCombo1::SetClientSite(IOleClientSite* site) {
    return ToHresult([&] {
        if (!site)
            Deactivate();
        site_ = site;
        if (site)
            UseAmbients();
    });
}

STDMETHODIMP DataCombo1::GetClientSite(IOleClientSite** site) {
    return site ? site_.CopyTo(site) : E_POINTER;
}

_variant_t DataCombo1::Ambient(DISPID property) const {
    ComPtr<IDispatch> container;
    _variant_t value;
    DISPPARAMS none = {};
    if (site_ && SUCCEEDED(site_.As(&container)) &&
        FAILED(container->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                 &none, &value, nullptr, nullptr)))
        value.Clear();
    return value;
}

// A copy: when the host changes the control's font, the container's stays.
ComPtr<IFont> DataCombo1::AmbientFont() const {
    const _variant_t value = Ambient(DISPID_AMBIENT_FONT);
    ComPtr<IFont> font;
    const bool object = V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN;
    if (object && V_UNKNOWN(&value) &&
        SUCCEEDED(V_UNKNOWN(&value)->QueryInterface(IID_PPV_ARGS(&font))))
        return CopyOf(font.Get());
    FONTDESC description = {};
    wchar_t name[] = L"Arial";
    description.lpstrName = name;
    description.cySize.int64 = static_cast<LONGLONG>(kDefaultPoints * kCyPerUnit);
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    return MakeFont(description);
}

void DataCombo1::UseAmbients() {
    const _variant_t userMode = Ambient(DISPID_AMBIENT_USERMODE);
    userMode_ = V_VT(&userMode) != VT_BOOL || V_BOOL(&userMode) != VARIANT_FALSE;
    if (ownFont_)
        return;
    font_.Set(AmbientFont().Get());
    ApplyFont();
}

IFont* DataCombo1::CurrentFont() {
    if (!font_.Get())
        font_.Set(AmbientFont().Get());
    return font_.Get();
}

void DataCombo1::ApplyFont() {
    if (core_)
        core_->SetFont(font_.Handle());
    FollowHeight();
    ViewChanged();
}

void DataCombo1::OnFontChanged() {
    ownFont_ = true;
    ApplyFont();
    Changed(DISPID_FONT);
}

STDMETHODIMP DataCombo1::OnAmbientPropertyChange(DISPID property) {
    if (property != DISPID_UNKNOWN && property != DISPID_AMBIENT_FONT &&
        property != DISPID_AMBIENT_USERMODE)
        return S_OK;
    return ToHresult([&] { UseAmbients(); });
}

STDMETHODIMP DataCombo1::FreezeEvents(BOOL freeze) {
    frozen_ = freeze ? frozen_ + 1 : std::max(frozen_ - 1, 0);
    return S_OK;
}

STDMETHODIMP DataCombo1::GetControlInfo(CONTROLINFO* info) {
    if (!info)
        return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

// --- life ---

STDMETHODIMP DataCombo1::Close(DWORD saveOption) {
    return ToHresult([&] {
        const ComPtr<IOleObject> keepAlive(this);
        Deactivate();
        const ComPtr<IOleClientSite> site = site_;
        if (saveOption != OLECLOSE_NOSAVE && dirty_ && site)
            site->SaveObject();
        if (advise_)
            advise_->SendOnClose();
    });
}

STDMETHODIMP DataCombo1::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (!moniker)
        return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP DataCombo1::GetClipboardData(DWORD, IDataObject** data) {
    if (!data)
        return E_POINTER;
    *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP DataCombo1::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT) {
    const ComPtr<IOleObject> keepAlive(this);
    switch (verb) {
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
        return ToHresult([&] { ActivateInPlace(); });
    case OLEIVERB_PRIMARY:
    case OLEIVERB_OPEN:
    case OLEIVERB_UIACTIVATE:
        return ToHresult([&] { UIActivate(true); });
    case OLEIVERB_HIDE:
        return InPlaceDeactivate();
    case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
    case OLEIVERB_PROPERTIES:
        return ShowProperties(parent);
    default:
        return verb < 0 ? E_NOTIMPL : OLEOBJ_S_INVALIDVERB;
    }
}

STDMETHODIMP DataCombo1::EnumVerbs(IEnumOLEVERB** verbs) {
    if (!verbs)
        return E_POINTER;
    *verbs = nullptr;
    return OLE_S_USEREG;
}

STDMETHODIMP DataCombo1::GetUserType(DWORD form, LPOLESTR* type) {
    if (!type)
        return E_POINTER;
    return OleRegGetUserType(__uuidof(::DataCombo1), form, type);
}

STDMETHODIMP DataCombo1::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
    return S_OK;
}

STDMETHODIMP DataCombo1::Advise(IAdviseSink* sink, DWORD* connection) {
    if (!connection)
        return E_POINTER;
    *connection = 0;
    if (!sink)
        return E_INVALIDARG;
    if (!advise_)
        if (const HRESULT created = CreateOleAdviseHolder(&advise_); FAILED(created))
            return created;
    return advise_->Advise(sink, connection);
}

STDMETHODIMP DataCombo1::Unadvise(DWORD connection) {
    return advise_ ? advise_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP DataCombo1::EnumAdvise(IEnumSTATDATA** connections) {
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return advise_ ? advise_->EnumAdvise(connections) : S_OK;
}

// --- extents ---

// The width is the container's choice, the height the list's.
SIZEL DataCombo1::Extent() {
    return {width_, ToHimetric(Core().Height())};
}

STDMETHODIMP DataCombo1::SetExtent(DWORD aspect, SIZEL* size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (size->cx < 0)
        return E_INVALIDARG;
    return ToHresult([&] {
        width_ = size->cx;
        dirty_ = true;
        // In place, the container gives the rectangle itself.
        if (!inPlace_)
            SetWindowPos(Core().Window(), nullptr, 0, 0, FromHimetric(width_), Core().Height(),
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        ViewChanged();
    });
}

STDMETHODIMP DataCombo1::GetExtent(DWORD aspect, SIZEL* size) {
    if (!size)
        return E_POINTER;
    *size = {};
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    return ToHresult([&] { *size = Extent(); });
}

// --- property pages ---

STDMETHODIMP DataCombo1::GetPages(CAUUID* pages) {
    if (!pages)
        return E_POINTER;
    constexpr ULONG kPages = 2;
    *pages = {0, static_cast<GUID*>(CoTaskMemAlloc(kPages * sizeof(GUID)))};
    if (!pages->pElems)
        return E_OUTOFMEMORY;
    pages->cElems = kPages;
    pages->pElems[0] = CLSID_CColorPropPage;
    pages->pElems[1] = CLSID_CFontPropPage;
    return S_OK;
}

HRESULT DataCombo1::ShowProperties(HWND parent) {
    // The container's own frame is preferred.
    ComPtr<IOleControlSite> control;
    if (site_ && SUCCEEDED(site_.As(&control)) && SUCCEEDED(control->ShowPropertyFrame()))
        return S_OK;
    CAUUID pages = {};
    if (const HRESULT got = GetPages(&pages); FAILED(got))
        return got;
    IUnknown* object = static_cast<IDataCombo1*>(this);
    const HRESULT shown =
        OleCreatePropertyFrame(parent, 0, 0, L"DataCombo1", 1, &object, pages.cElems, pages.pElems,
                               GetUserDefaultLCID(), 0, nullptr);
    CoTaskMemFree(pages.pElems);
    return shown;
}

// --- safety ---

STDMETHODIMP DataCombo1::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
    if (!supported || !enabled)
        return E_POINTER;
    *supported = *enabled = 0;
    if (!Find(iid))
        return E_NOINTERFACE;
    *supported = *enabled = kSafety;
    return S_OK;
}

// Always safe: it touches only its own list.
STDMETHODIMP DataCombo1::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
    if (!Find(iid))
        return E_NOINTERFACE;
    return mask & enabled & ~kSafety ? E_FAIL : S_OK;
}

} // namespace vndesk
