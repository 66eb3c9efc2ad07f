// SPDX-License-Identifier: MIT
// A list view in report style whose rows live in memory: as many as there may be, it shows at once.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "forms/window/control.h"

namespace vndesk {

struct ReportColumn {
    const wchar_t* key;
    std::wstring caption;
    double share; // of the list's width
};

struct ReportRow {
    std::wstring key;
    std::vector<std::wstring> cells;
};

class ReportList {
public:
    ReportList(Control& control, std::vector<ReportColumn> columns);

    std::function<void()> onDoubleClick;

    // Rows first, then Refresh: the view only counts them.
    std::vector<ReportRow>& Rows() { return rows_; }
    void Refresh();
    // -1 when no row is selected.
    long SelectedIndex() const;
    void Select(long index);
    // After the control's size has changed.
    void FitColumns();

private:
    LRESULT OnNotify(NMHDR& notification);
    LRESULT FindRow(const NMLVFINDITEMW& search) const;

    Control& control_;
    std::vector<ReportColumn> columns_;
    std::vector<ReportRow> rows_;
};

} // namespace vndesk
