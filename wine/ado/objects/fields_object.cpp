// SPDX-License-Identifier: MIT
#include "ado/objects/fields_object.h"

#include "ado/objects/collection_index.h"
#include "ado/objects/enum_variant.h"
#include "ado/objects/field_object.h"

namespace vndesk::ado {

std::size_t FindColumn(const RowSet& rows, const VARIANT& index) {
    const std::vector<ColumnInfo>& columns = rows.Columns();
    return FindItem(index, columns.size(), [&](std::size_t i) { return columns[i].name; });
}

STDMETHODIMP FieldsObject::get_Count(LONG* count) {
    return Get(count, [&](LONG& out) {
        out = cursor_->IsOpen() ? static_cast<LONG>(cursor_->rows->Columns().size()) : 0;
    });
}

STDMETHODIMP FieldsObject::_NewEnum(IUnknown** enumerator) {
    return Get(enumerator, [&](IUnknown*& out) {
        std::vector<ComPtr<IDispatch>> fields;
        if (cursor_->IsOpen())
            for (std::size_t i = 0; i < cursor_->rows->Columns().size(); ++i)
                fields.push_back(MakeCom<FieldObject>(cursor_, i));
        out = EnumerateObjects(std::move(fields)).Detach();
    });
}

STDMETHODIMP FieldsObject::get_Item(VARIANT index, Field** field) {
    return Get(field, [&](Field*& out) {
        if (!cursor_->IsOpen())
            ThrowMisuse(AdoMisuse::ItemNotFound);
        out = MakeCom<FieldObject>(cursor_, FindColumn(*cursor_->rows, index)).Detach();
    });
}

} // namespace vndesk::ado
