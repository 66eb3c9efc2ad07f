// SPDX-License-Identifier: MIT
#include "host_database.h"

#include "host_error.h"

HostDatabase::HostDatabase(const std::wstring& connect) : connection_(L"ADODB.Connection") {
    connection_.Call(L"Open", {connect.c_str()});
}

std::vector<Row> HostDatabase::Read(const std::wstring& statement) {
    return RowsOf(LateBound(connection_.Call(L"Execute", {statement.c_str()})));
}

std::vector<Row> RowsOf(LateBound records) {
    std::vector<Row> rows;
    if (static_cast<bool>(records.Get(L"EOF")))
        return rows; // GetRows refuses to give nothing
    // A table of VARIANTs: its first dimension is the columns, its second the rows.
    const _variant_t table = records.Call(L"GetRows");
    if (table.vt != (VT_ARRAY | VT_VARIANT))
        throw HostError{DISP_E_TYPEMISMATCH, L"A table was expected."};
    long lastColumn = -1, lastRow = -1;
    Check(SafeArrayGetUBound(table.parray, 1, &lastColumn));
    Check(SafeArrayGetUBound(table.parray, 2, &lastRow));
    rows.resize(static_cast<size_t>(lastRow + 1), Row(static_cast<size_t>(lastColumn + 1)));
    for (long row = 0; row <= lastRow; ++row)
        for (long column = 0; column <= lastColumn; ++column) {
            long place[] = {column, row};
            Check(SafeArrayGetElement(
                table.parray, place, &rows[static_cast<size_t>(row)][static_cast<size_t>(column)]));
        }
    return rows;
}

long NumberOf(const _variant_t& value) {
    return value.vt == VT_NULL || value.vt == VT_EMPTY ? 0 : static_cast<long>(value);
}

std::wstring TextOf(const _variant_t& value) {
    if (value.vt == VT_NULL || value.vt == VT_EMPTY)
        return L"";
    const _bstr_t text(value);
    return text.length() ? static_cast<const wchar_t*>(text) : L"";
}
