// SPDX-License-Identifier: MIT
// cSelItem: a name box and a code box of a host's form, tied to one entry of a catalogue.
#pragma once

#include <memory>

#include "api/classes/governed.h"
#include "comkit/object/connection_points.h"
#include "controls/picker/selection_boxes.h"
#include "vndesk_idl.h"

namespace vndesk {

class SelItem final
    : public Governed<EventObject<SelItem, cSelItem, ISelItem2, DSelItemEvents>, ISelItem> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.cSelItem";

    SelItem();
    ~SelItem() override;

    STDMETHODIMP SetTextSel(long window) override;
    STDMETHODIMP SetTextSelID(long window) override;
    STDMETHODIMP Clear() override;
    STDMETHODIMP get_SelName(BSTR* name) override;
    STDMETHODIMP get_SelID(BSTR* code) override;
    STDMETHODIMP get_SqlName(BSTR* statement) override;
    STDMETHODIMP put_SqlName(BSTR statement) override;
    STDMETHODIMP get_SqlID(BSTR* statement) override;
    STDMETHODIMP put_SqlID(BSTR statement) override;
    STDMETHODIMP get_SearchText(BSTR* text) override;
    STDMETHODIMP put_SearchText(BSTR text) override;
    STDMETHODIMP get_ActiveConnection(VARIANT* connection) override;
    STDMETHODIMP put_ActiveConnection(VARIANT connection) override;

    STDMETHODIMP get_LookUpKeys(VARIANT_BOOL* value) override;
    STDMETHODIMP put_LookUpKeys(VARIANT_BOOL value) override;
    STDMETHODIMP get_TabCommits(VARIANT_BOOL* value) override;
    STDMETHODIMP put_TabCommits(VARIANT_BOOL value) override;
    STDMETHODIMP ShowPicker(VARIANT_BOOL* chosen) override;

private:
    const std::shared_ptr<SelectionBoxes> boxes_;
};

} // namespace vndesk
