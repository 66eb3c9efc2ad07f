// SPDX-License-Identifier: MIT
// The Fields collection of a record set.
#pragma once

#include <memory>

#include "ado/objects/cursor.h"
#include "ado/objects/fields_refused.h"

namespace vndesk::ado {

// The column that a host names by number or by name, in any case. Throws ADO's error 3265.
std::size_t FindColumn(const RowSet& rows, const VARIANT& index);

class FieldsObject final : public FieldsRefused<FieldsObject> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Fields";

    explicit FieldsObject(std::shared_ptr<const Cursor> cursor) : cursor_(std::move(cursor)) {}

    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) override;
    STDMETHODIMP Refresh() override { return S_OK; }
    STDMETHODIMP get_Item(VARIANT index, Field** field) override;

private:
    const std::shared_ptr<const Cursor> cursor_;
};

} // namespace vndesk::ado
