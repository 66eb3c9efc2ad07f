// SPDX-License-Identifier: MIT
// One column of an open record set; its value is that of the current row.
#pragma once

#include <memory>

#include "ado/objects/ado_object.h"
#include "ado/objects/cursor.h"

namespace vndesk::ado {

class FieldObject final : public AdoObject<FieldObject, Field, InterfaceList<Field20, _ADO>> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Field";

    FieldObject(std::shared_ptr<const Cursor> cursor, std::size_t column)
        : cursor_(std::move(cursor)), rows_(cursor_->rows), column_(column) {}

    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP get_Type(DataTypeEnum* type) override;
    STDMETHODIMP get_DefinedSize(ADO_LONGPTR* size) override;
    STDMETHODIMP get_Value(VARIANT* value) override;

    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(get_ActualSize, ADO_LONGPTR*)
    ADO_REFUSED(get_Attributes, LONG*)
    ADO_REFUSED(put_Attributes, LONG)
    ADO_REFUSED(put_DefinedSize, ADO_LONGPTR)
    ADO_REFUSED(put_Type, DataTypeEnum)
    ADO_REFUSED(put_Value, VARIANT)
    ADO_REFUSED(get_Precision, unsigned char*)
    ADO_REFUSED(put_Precision, unsigned char)
    ADO_REFUSED(get_NumericScale, unsigned char*)
    ADO_REFUSED(put_NumericScale, unsigned char)
    ADO_REFUSED(AppendChunk, VARIANT)
    ADO_REFUSED(GetChunk, LONG, VARIANT*)
    ADO_REFUSED(get_OriginalValue, VARIANT*)
    ADO_REFUSED(get_UnderlyingValue, VARIANT*)
    ADO_REFUSED(get_DataFormat, IUnknown**)
    ADO_REFUSED(putref_DataFormat, IUnknown*)
    ADO_REFUSED(get_Status, LONG*)

private:
    // Throws when the record set has been closed or opened anew.
    const ColumnInfo& Column() const;

    const std::shared_ptr<const Cursor> cursor_;
    const std::shared_ptr<const RowSet> rows_;
    const std::size_t column_;
};

} // namespace vndesk::ado
