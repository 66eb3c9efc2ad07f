// SPDX-License-Identifier: MIT
#include "ado/objects/get_rows.h"

#include <algorithm>
#include <new>
#include <vector>

#include "ado/objects/ado_object.h"
#include "ado/objects/fields_object.h"

namespace vndesk::ado {

namespace {

constexpr long kBookmarkFirst = 1;
constexpr long kBookmarkLast = 2;

void MoveToStart(Cursor& cursor, const VARIANT& start) {
    const Argument bookmark(start);
    if (bookmark.IsMissing())
        return;
    switch (bookmark.Number()) {
    case 0: // the current row
        return;
    case kBookmarkFirst:
        cursor.position = 0;
        return;
    case kBookmarkLast:
        cursor.position = cursor.Count() - 1;
        return;
    default:
        ThrowMisuse(AdoMisuse::InvalidArgument);
    }
}

std::vector<std::size_t> WantedColumns(const RowSet& rows, const VARIANT& fields) {
    std::vector<std::size_t> columns;
    const Argument wanted(fields);
    if (wanted.IsMissing()) {
        for (std::size_t i = 0; i < rows.Columns().size(); ++i)
            columns.push_back(i);
    } else if (V_VT(&wanted.Value()) == (VT_ARRAY | VT_VARIANT)) {
        SAFEARRAY* array = V_ARRAY(&wanted.Value());
        LONG first = 0, last = -1;
        if (SafeArrayGetDim(array) != 1)
            ThrowMisuse(AdoMisuse::InvalidArgument);
        CheckHr(SafeArrayGetLBound(array, 1, &first));
        CheckHr(SafeArrayGetUBound(array, 1, &last));
        for (LONG i = first; i <= last; ++i) {
            VARIANT* element = nullptr;
            CheckHr(SafeArrayPtrOfIndex(array, &i, reinterpret_cast<void**>(&element)));
            columns.push_back(FindColumn(rows, *element));
        }
    } else {
        columns.push_back(FindColumn(rows, wanted.Value()));
    }
    return columns;
}

} // namespace

void GetRows(Cursor& cursor, long count, const VARIANT& start, const VARIANT& fields,
             VARIANT& values) {
    cursor.RequireOpen();
    if (count < -1)
        ThrowMisuse(AdoMisuse::InvalidArgument);
    const std::vector<std::size_t> columns = WantedColumns(*cursor.rows, fields);
    MoveToStart(cursor, start);
    const std::size_t first = cursor.RequireRow();
    const std::size_t left = cursor.rows->RowCount() - first;
    const std::size_t taken = count == -1 ? left : std::min<std::size_t>(left, count);

    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(columns.size()), 0},
                               {static_cast<ULONG>(taken), 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    if (!array)
        throw std::bad_alloc();
    V_VT(&values) = VT_ARRAY | VT_VARIANT; // owns the array from here on
    V_ARRAY(&values) = array;
    // The first dimension changes fastest: a row's cells stand together.
    auto* cells = static_cast<VARIANT*>(array->pvData);
    for (std::size_t row = 0; row < taken; ++row)
        for (const std::size_t column : columns)
            CellToVariant(cursor.rows->At(first + row, column), *cells++);
    cursor.position = static_cast<std::ptrdiff_t>(first + taken);
}

} // namespace vndesk::ado
