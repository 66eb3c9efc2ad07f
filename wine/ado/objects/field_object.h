// SPDX-License-Identifier: MIT
// One column of an open record set; its value is that of the current row.
#pragma once

#include <memory>

#include "ado/objects/cursor.h"
#include "ado/objects/field_refused.h"

namespace vndesk::ado {

class FieldObject final : public FieldRefused<FieldObject> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Field";

    FieldObject(std::shared_ptr<const Cursor> cursor, std::size_t column)
        : cursor_(std::move(cursor)), rows_(cursor_->rows), column_(column) {}

    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP get_Type(DataTypeEnum* type) override;
    STDMETHODIMP get_DefinedSize(ADO_LONGPTR* size) override;
    STDMETHODIMP get_Value(VARIANT* value) override;

private:
    // Throws when the record set has been closed or opened anew.
    const ColumnInfo& Column() const;

    const std::shared_ptr<const Cursor> cursor_;
    const std::shared_ptr<const RowSet> rows_;
    const std::size_t column_;
};

} // namespace vndesk::ado
