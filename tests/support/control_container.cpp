// SPDX-License-Identifier: MIT
#include "support/control_container.h"

#include <algorithm>

#include "support/text.h"

namespace vndesk::test {

void ControlContainer::Take(IUnknown* control) {
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&object_))))
        Fail(L"not a control");
    if (FAILED(object_->SetClientSite(this)))
        Fail(L"the control refuses its site");
}

HRESULT ControlContainer::DoVerb(LONG verb) {
    return object_->DoVerb(verb, nullptr, this, 0, window_, &rect);
}

void ControlContainer::Move(RECT newRect) {
    rect = newRect;
    Microsoft::WRL::ComPtr<IOleInPlaceObject> inPlace;
    if (SUCCEEDED(object_.As(&inPlace)))
        inPlace->SetObjectRects(&rect, &rect);
}

void ControlContainer::Close() {
    if (!object_)
        return;
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
    object_.Reset();
}

bool ControlContainer::Has(const std::wstring& call) const {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

STDMETHODIMP ControlContainer::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite)
        *object = static_cast<IOleClientSite*>(this);
    else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow)
        *object = static_cast<IOleInPlaceSite*>(this);
    else if (iid == IID_IOleControlSite)
        *object = static_cast<IOleControlSite*>(this);
    else if (iid == IID_IDispatch)
        *object = static_cast<IDispatch*>(this);
    if (!*object)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP ControlContainer::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP ControlContainer::GetWindow(HWND* window) {
    *window = window_;
    return S_OK;
}

STDMETHODIMP ControlContainer::GetWindowContext(IOleInPlaceFrame** frame,
                                                IOleInPlaceUIWindow** document, LPRECT position,
                                                LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    *frame = this;
    AddRef();
    *document = nullptr;
    *position = rect;
    *clip = rect;
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP ControlContainer::OnPosRectChange(LPCRECT wanted) {
    Note(L"OnPosRectChange");
    if (obeys)
        Move(*wanted);
    return S_OK;
}

STDMETHODIMP ControlContainer::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    return Note(object ? L"SetActiveObject" : L"SetActiveObject nothing");
}

STDMETHODIMP ControlContainer::GetExtendedControl(IDispatch** control) {
    *control = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlContainer::TranslateAccelerator(MSG*, DWORD) {
    Note(L"TranslateAccelerator");
    return S_FALSE;
}

STDMETHODIMP ControlContainer::OnFocus(BOOL has) {
    return Note(has ? L"OnFocus" : L"OnFocus lost");
}

STDMETHODIMP ControlContainer::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlContainer::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                      VARIANT* result, EXCEPINFO*, UINT*) {
    const auto found = ambients.find(id);
    if (!(flags & DISPATCH_PROPERTYGET) || found == ambients.end())
        return DISP_E_MEMBERNOTFOUND;
    return VariantCopy(result, &found->second);
}

} // namespace vndesk::test
