// SPDX-License-Identifier: MIT
#include "ado/engine/row_set.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace vndesk::ado {

wchar_t* Arena::Text(std::size_t count) {
    constexpr std::size_t kBlock = 32 * 1024;
    if (blocks_.empty() || size_ - used_ < count) {
        size_ = std::max(kBlock, count);
        blocks_.push_back(std::unique_ptr<wchar_t[]>(new wchar_t[size_]));
        used_ = 0;
    }
    wchar_t* piece = blocks_.back().get() + used_;
    used_ += count;
    return piece;
}

Cell* RowSet::AddRow() {
    const std::size_t row = rowCount_ % kBlockRows;
    if (row == 0)
        blocks_.push_back(std::make_unique<Cell[]>(kBlockRows * columns_.size()));
    ++rowCount_;
    return blocks_.back().get() + row * columns_.size();
}

void CellToVariant(const Cell& cell, VARIANT& value) {
    switch (cell.kind) {
    case CellKind::Null:
        V_VT(&value) = VT_NULL;
        break;
    case CellKind::Integer:
        V_VT(&value) = VT_I4;
        V_I4(&value) = cell.integer;
        break;
    case CellKind::Double:
        V_VT(&value) = VT_R8;
        V_R8(&value) = cell.number;
        break;
    case CellKind::Boolean:
        V_VT(&value) = VT_BOOL;
        V_BOOL(&value) = cell.truth ? VARIANT_TRUE : VARIANT_FALSE;
        break;
    case CellKind::Date:
        V_VT(&value) = VT_DATE;
        V_DATE(&value) = cell.number;
        break;
    case CellKind::Text:
        V_BSTR(&value) = SysAllocStringLen(cell.text, cell.length);
        if (!V_BSTR(&value))
            throw std::bad_alloc();
        V_VT(&value) = VT_BSTR;
        break;
    case CellKind::Binary:
        SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, cell.length);
        if (!array)
            throw std::bad_alloc();
        std::memcpy(array->pvData, cell.bytes, cell.length);
        V_ARRAY(&value) = array;
        V_VT(&value) = VT_ARRAY | VT_UI1;
        break;
    }
}

} // namespace vndesk::ado
