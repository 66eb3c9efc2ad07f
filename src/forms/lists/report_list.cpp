// SPDX-License-Identifier: MIT
#include "forms/lists/report_list.h"

#include <utility>

namespace vndesk {

ReportList::ReportList(Control& control, std::vector<ReportColumn> columns)
    : control_(control), columns_(std::move(columns)) {
    ListView_SetExtendedListViewStyle(control_.Window(),
                                      LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    for (size_t i = 0; i < columns_.size(); ++i) {
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_SUBITEM;
        column.pszText = columns_[i].caption.data();
        column.iSubItem = static_cast<int>(i);
        SendMessageW(control_.Window(), LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    FitColumns();
    control_.onNotify = [this](NMHDR& notification) { return OnNotify(notification); };
}

void ReportList::FitColumns() {
    RECT client;
    GetClientRect(control_.Window(), &client);
    // Room for the scroll bar, whether it is there or not.
    const int width = client.right - GetSystemMetrics(SM_CXVSCROLL);
    for (size_t i = 0; i < columns_.size(); ++i)
        ListView_SetColumnWidth(control_.Window(), static_cast<int>(i),
                                static_cast<int>(width * columns_[i].share));
}

void ReportList::Refresh() {
    SendMessageW(control_.Window(), LVM_SETITEMCOUNT, rows_.size(), LVSICF_NOSCROLL);
    InvalidateRect(control_.Window(), nullptr, FALSE);
}

long ReportList::SelectedIndex() const {
    return ListView_GetNextItem(control_.Window(), -1, LVNI_SELECTED);
}

void ReportList::Select(long index) {
    ListView_SetItemState(control_.Window(), index, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(control_.Window(), index, FALSE);
}

LRESULT ReportList::OnNotify(NMHDR& notification) {
    switch (notification.code) {
    case LVN_GETDISPINFOW: {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(notification).item;
        const auto row = static_cast<size_t>(item.iItem);
        const auto column = static_cast<size_t>(item.iSubItem);
        if ((item.mask & LVIF_TEXT) && row < rows_.size() && column < rows_[row].cells.size())
            item.pszText = rows_[row].cells[column].data();
        return 0;
    }
    case LVN_ODFINDITEMW:
        return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(notification));
    case NM_DBLCLK:
        if (onDoubleClick)
            onDoubleClick();
        return 0;
    default:
        return 0;
    }
}

// Answers LVN_ODFINDITEM, sent when the user types the beginning of a name.
LRESULT ReportList::FindRow(const NMLVFINDITEMW& search) const {
    if (!(search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !search.lvfi.psz)
        return -1;
    const std::wstring wanted = search.lvfi.psz;
    const auto length = static_cast<int>(wanted.size());
    for (size_t i = 0; i < rows_.size(); ++i) {
        const size_t row = (static_cast<size_t>(search.iStart) + i) % rows_.size();
        const std::wstring& text = rows_[row].cells[0];
        if (text.size() >= wanted.size() &&
            CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.c_str(), length,
                           wanted.c_str(), length) == CSTR_EQUAL)
            return static_cast<LRESULT>(row);
    }
    return -1;
}

} // namespace vndesk
