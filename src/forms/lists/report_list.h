// SPDX-License-Identifier: MIT
// A list view in report style whose rows live in memory: as many as there may be, it shows at once.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/window/control.h"
#include "text/letters/match.h"

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
    // How far accents count in what the user types into the list; letter case alone is free without
    // it.
    std::optional<Sensitivity> accents;

    // Rows first, then Refresh: the view only counts them.
    std::vector<ReportRow>& Rows() { return rows_; }
    void Refresh();
    // Some of the rows, in this order, or all as they stand; then Refresh.
    void ShowOnly(std::optional<std::vector<std::uint32_t>> rows) { only_ = std::move(rows); }
    long ShownCount() const { return static_cast<long>(only_ ? only_->size() : rows_.size()); }
    // -1 when no row is selected.
    long SelectedIndex() const;
    // Nothing where the row is not shown.
    void Select(long index);
    // By its place among those that are shown.
    long SelectedPlace() const;
    void SelectPlace(long place);
    // After the control's size has changed.
    void FitColumns();

private:
    LRESULT OnNotify(NMHDR& notification);
    LRESULT FindRow(const NMLVFINDITEMW& search) const;

    // The row at a place of the view; beyond the rows where there is none.
    size_t RowAt(size_t place) const {
        return !only_ ? place : place < only_->size() ? (*only_)[place] : rows_.size();
    }

    Control& control_;
    std::vector<ReportColumn> columns_;
    std::vector<ReportRow> rows_;
    std::optional<std::vector<std::uint32_t>> only_;
};

} // namespace vndesk
