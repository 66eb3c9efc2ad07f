// SPDX-License-Identifier: MIT
#include "forms/lists/check_list.h"

#include <commctrl.h>

#include <utility>

namespace vndesk {

CheckList::CheckList(Control& control, std::function<void()> onChecked)
    : control_(control), onChecked_(std::move(onChecked)) {
    ListView_SetExtendedListViewStyle(control_.Window(), LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    LVCOLUMNW column = {};
    SendMessageW(control_.Window(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    control_.onNotify = [this](NMHDR& notification) { return OnNotify(notification); };
}

void CheckList::Clear() {
    ListView_DeleteAllItems(control_.Window());
}

void CheckList::AddItem(const std::wstring& text, long data) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = static_cast<int>(Count());
    item.pszText = const_cast<wchar_t*>(text.c_str());
    item.lParam = data;
    filling_ = true;
    SendMessageW(control_.Window(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    filling_ = false;
    FitColumn();
}

long CheckList::Count() const {
    return ListView_GetItemCount(control_.Window());
}

bool CheckList::Checked(long index) const {
    return ListView_GetCheckState(control_.Window(), static_cast<UINT>(index)) != 0;
}

void CheckList::SetChecked(long index, bool checked) {
    filling_ = true;
    ListView_SetCheckState(control_.Window(), index, checked);
    filling_ = false;
}

void CheckList::SelectFirst() {
    ListView_SetItemState(control_.Window(), 0, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
}

LRESULT CheckList::OnNotify(NMHDR& notification) {
    if (notification.code != LVN_ITEMCHANGED || filling_)
        return 0;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notification);
    const bool ticked = (change.uChanged & LVIF_STATE) &&
                        ((change.uNewState ^ change.uOldState) & LVIS_STATEIMAGEMASK);
    if (ticked && onChecked_)
        onChecked_();
    return 0;
}

// The one column is as wide as the list, or as its longest text.
void CheckList::FitColumn() {
    ListView_SetColumnWidth(control_.Window(), 0, LVSCW_AUTOSIZE_USEHEADER);
}

} // namespace vndesk
