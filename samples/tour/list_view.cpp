// SPDX-License-Identifier: MIT
#include "list_view.h"

#include <commctrl.h>

namespace {

// 1234567,5 as 1.234.567,5 whatever the machine's own settings are.
std::wstring NumberText(const _variant_t& value) {
    if (value.vt == VT_NULL || value.vt == VT_EMPTY)
        return L"";
    const double number = value;
    wchar_t plain[64], grouped[96];
    swprintf(plain, 64, L"%.2f", number);
    const bool whole = std::wstring(plain).ends_with(L".00");
    wchar_t comma[] = L",", point[] = L".";
    NUMBERFMTW format = {whole ? 0u : 2u, 1, 3, comma, point, 1};
    GetNumberFormatW(LOCALE_INVARIANT, 0, plain, &format, grouped, 96);
    return grouped;
}

} // namespace

HWND CreateListView(HWND parent) {
    const HWND view =
        CreateWindowExW(0, WC_LISTVIEWW, L"",
                        WS_CHILD | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS, 0,
                        0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    ListView_SetExtendedListViewStyle(view, LVS_EX_FULLROWSELECT);
    return view;
}

void FillListView(HWND view, const List& list, const std::vector<Row>& rows, int dpi) {
    SendMessageW(view, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(view);
    while (ListView_DeleteColumn(view, 0)) {
    }
    int place = 0;
    for (const Column& column : list.columns) {
        LVCOLUMNW header = {};
        header.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        header.fmt = column.number ? LVCFMT_RIGHT : LVCFMT_LEFT;
        header.cx = MulDiv(column.width, dpi, 96);
        header.pszText = const_cast<wchar_t*>(column.caption);
        SendMessageW(view, LVM_INSERTCOLUMNW, static_cast<WPARAM>(place++),
                     reinterpret_cast<LPARAM>(&header));
    }
    for (size_t row = 0; row < rows.size(); ++row)
        for (size_t column = 0; column < rows[row].size(); ++column) {
            const _variant_t& value = rows[row][column];
            std::wstring text = list.columns[column].number ? NumberText(value) : TextOf(value);
            LVITEMW item = {};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(row);
            item.iSubItem = static_cast<int>(column);
            item.pszText = text.data();
            SendMessageW(view, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                         reinterpret_cast<LPARAM>(&item));
        }
    ListView_SetItemState(view, 0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    SendMessageW(view, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(view, nullptr, TRUE);
}
