// SPDX-License-Identifier: MIT
// How containers store the control: property bag, stream, storage.
#include <windows.h>
#include <olectl.h>

#include "comkit/base/com_error.h"
#include "controls/combo/data_combo1.h"

namespace vndesk {

namespace {

constexpr wchar_t kContents[] = L"Contents";

ComPtr<IStream> OpenContents(IStorage* storage) {
    ComPtr<IStream> stream;
    CheckHr(storage->OpenStream(kContents, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream));
    return stream;
}

} // namespace

DataComboState DataCombo1::State() {
    DataComboState state;
    state.backColor = Core().BackColor();
    state.foreColor = Core().ForeColor();
    state.enabled = Core().Enabled();
    if (ownFont_)
        state.font = font_.Get();
    state.backStyle = backStyle_;
    state.borderStyle = borderStyle_;
    return state;
}

void DataCombo1::Apply(const DataComboState& state) {
    DataCombo& core = Core();
    font_.Set(state.font ? state.font.Get() : AmbientFont().Get());
    ownFont_ = state.font != nullptr;
    core.SetBackColor(state.backColor);
    core.SetForeColor(state.foreColor);
    core.SetEnabled(state.enabled);
    backStyle_ = state.backStyle;
    borderStyle_ = state.borderStyle;
    ApplyFont();
    dirty_ = false;
}

STDMETHODIMP DataCombo1::GetClassID(CLSID* clsid) {
    if (!clsid)
        return E_POINTER;
    *clsid = __uuidof(::DataCombo1);
    return S_OK;
}

STDMETHODIMP DataCombo1::InitNew() {
    return ToHresult([&] { Apply({}); });
}

// --- property bag ---

STDMETHODIMP DataCombo1::Load(IPropertyBag* bag, IErrorLog* errors) {
    if (!bag)
        return E_POINTER;
    return ToHresult([&] { Apply(ReadState(bag, errors)); });
}

STDMETHODIMP DataCombo1::Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) {
    if (!bag)
        return E_POINTER;
    return ToHresult([&] {
        WriteState(bag, State(), CurrentFont(), {Core().Text(), Core().HiddenText()}, all != FALSE);
        if (clearDirty)
            dirty_ = false;
    });
}

// --- stream ---

STDMETHODIMP DataCombo1::Load(IStream* stream) {
    if (!stream)
        return E_POINTER;
    return ToHresult([&] { Apply(ReadState(stream)); });
}

STDMETHODIMP DataCombo1::Save(IStream* stream, BOOL clearDirty) {
    if (!stream)
        return E_POINTER;
    return ToHresult([&] {
        WriteState(stream, State());
        if (clearDirty)
            dirty_ = false;
    });
}

STDMETHODIMP DataCombo1::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size)
        return E_POINTER;
    size->QuadPart = kLargestState;
    return S_OK;
}

// --- storage ---

STDMETHODIMP DataCombo1::InitNew(IStorage* storage) {
    return storage ? InitNew() : E_POINTER;
}

STDMETHODIMP DataCombo1::Load(IStorage* storage) {
    if (!storage)
        return E_POINTER;
    return ToHresult([&] { Apply(ReadState(OpenContents(storage).Get())); });
}

STDMETHODIMP DataCombo1::Save(IStorage* storage, BOOL) {
    if (!storage)
        return E_POINTER;
    return ToHresult([&] {
        ComPtr<IStream> stream;
        CheckHr(storage->CreateStream(kContents, STGM_WRITE | STGM_SHARE_EXCLUSIVE | STGM_CREATE, 0,
                                      0, &stream));
        WriteState(stream.Get(), State());
        dirty_ = false;
    });
}

} // namespace vndesk
