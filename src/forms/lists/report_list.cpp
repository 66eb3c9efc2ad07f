// SPDX-License-Identifier: MIT
#include "forms/lists/report_list.h"

#include <algorithm>
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
    SendMessageW(control_.Window(), LVM_SETITEMCOUNT, ShownCount(), LVSICF_NOSCROLL);
    InvalidateRect(control_.Window(), nullptr, FALSE);
}

long ReportList::SelectedPlace() const {
    return ListView_GetNextItem(control_.Window(), -1, LVNI_SELECTED);
}

long ReportList::SelectedIndex() const {
    const long place = SelectedPlace();
    return place < 0 || !only_ ? place : static_cast<long>(RowAt(static_cast<size_t>(place)));
}

void ReportList::SelectPlace(long place) {
    ListView_SetItemState(control_.Window(), place, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(control_.Window(), place, FALSE);
}

void ReportList::Select(long index) {
    if (!only_) {
        SelectPlace(index);
        return;
    }
    const auto found = std::find(only_->begin(), only_->end(), static_cast<std::uint32_t>(index));
    if (found != only_->end())
        SelectPlace(static_cast<long>(found - only_->begin()));
}

LRESULT ReportList::OnNotify(NMHDR& notification) {
    switch (notification.code) {
    case LVN_GETDISPINFOW: {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(notification).item;
        const size_t row = RowAt(static_cast<size_t>(item.iItem));
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
    std::optional<SearchPattern> pattern;
    if (accents)
        pattern.emplace(wanted, *accents);
    const auto begins = [&](const std::wstring& text) {
        if (pattern)
            return pattern->In(Fold(text)) >= Match::AtStart;
        return text.size() >= wanted.size() &&
               CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.c_str(), length,
                              wanted.c_str(), length) == CSTR_EQUAL;
    };
    const auto count = static_cast<size_t>(ShownCount());
    for (size_t i = 0; i < count; ++i) {
        const size_t place = (static_cast<size_t>(search.iStart) + i) % count;
        if (begins(rows_[RowAt(place)].cells[0]))
            return static_cast<LRESULT>(place);
    }
    return -1;
}

} // namespace vndesk
