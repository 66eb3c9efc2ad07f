// SPDX-License-Identifier: MIT
// The control as a picture, for containers that show it without a window.
#include <windows.h>
#include <olectl.h>

#include "comkit/base/com_error.h"
#include "controls/combo/data_combo1.h"
#include "controls/combo/window/combo_picture.h"
#include "controls/combo/window/ole_color.h"

namespace vndesk {

STDMETHODIMP DataCombo1::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc,
                              LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                              ULONG_PTR) {
    if (!dc || !bounds)
        return E_INVALIDARG;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    return ToHresult([&] {
        DataCombo& core = Core();
        DrawCombo(dc, {bounds->left, bounds->top, bounds->right, bounds->bottom},
                  {core.Text(), font_.Handle(), Translated(core.BackColor()),
                   Translated(core.ForeColor()), core.Enabled(), core.Themed()});
    });
}

STDMETHODIMP DataCombo1::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                     LOGPALETTE** colors) {
    if (!colors)
        return E_POINTER;
    *colors = nullptr;
    return S_FALSE;
}

STDMETHODIMP DataCombo1::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    viewAspects_ = aspects;
    viewFlags_ = flags;
    viewSink_ = sink;
    if (flags & ADVF_PRIMEFIRST)
        ViewChanged();
    return S_OK;
}

STDMETHODIMP DataCombo1::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    if (aspects)
        *aspects = viewAspects_;
    if (flags)
        *flags = viewFlags_;
    if (sink)
        viewSink_.CopyTo(sink);
    return S_OK;
}

void DataCombo1::ViewChanged() {
    const ComPtr<IAdviseSink> sink = viewSink_;
    if (!sink)
        return;
    if (viewFlags_ & ADVF_ONLYONCE)
        viewSink_.Reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

STDMETHODIMP DataCombo1::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
    return GetExtent(aspect, size);
}

} // namespace vndesk
