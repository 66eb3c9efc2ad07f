// SPDX-License-Identifier: MIT
#include "ado/objects/field_object.h"

namespace vndesk::ado {

const ColumnInfo& FieldObject::Column() const {
    if (!cursor_->IsOpen() || cursor_->rows != rows_)
        ThrowMisuse(AdoMisuse::ObjectNotSet);
    return rows_->Columns()[column_];
}

STDMETHODIMP FieldObject::get_Name(BSTR* name) {
    return Get(name, [&](BSTR& out) { out = ToBstr(Column().name); });
}

STDMETHODIMP FieldObject::get_Type(DataTypeEnum* type) {
    return Get(type, [&](DataTypeEnum& out) { out = static_cast<DataTypeEnum>(Column().adoType); });
}

STDMETHODIMP FieldObject::get_DefinedSize(ADO_LONGPTR* size) {
    return Get(size,
               [&](ADO_LONGPTR& out) { out = static_cast<ADO_LONGPTR>(Column().definedSize); });
}

STDMETHODIMP FieldObject::get_Value(VARIANT* value) {
    return Get(value, [&](VARIANT& out) {
        Column();
        CellToVariant(rows_->At(cursor_->RequireRow(), column_), out);
    });
}

} // namespace vndesk::ado
