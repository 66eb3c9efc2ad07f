// SPDX-License-Identifier: MIT
#include "forms/lists/item_list.h"

namespace vndesk {

// LB_ and CB_ messages do the same under different numbers.
struct ItemList::Messages {
    UINT add, remove, insert, clear, count, getCurrent, setCurrent, getData, setData, textLength,
        text, find;
};

namespace {

constexpr long kError = LB_ERR;
static_assert(LB_ERR == CB_ERR);

} // namespace

ItemList::ItemList(Control& control)
    : control_(control), messages_([&]() -> const Messages& {
          static constexpr Messages kListBox = {
              LB_ADDSTRING,   LB_DELETESTRING, LB_INSERTSTRING, LB_RESETCONTENT,
              LB_GETCOUNT,    LB_GETCURSEL,    LB_SETCURSEL,    LB_GETITEMDATA,
              LB_SETITEMDATA, LB_GETTEXTLEN,   LB_GETTEXT,      LB_FINDSTRINGEXACT};
          static constexpr Messages kComboBox = {
              CB_ADDSTRING,   CB_DELETESTRING, CB_INSERTSTRING, CB_RESETCONTENT,
              CB_GETCOUNT,    CB_GETCURSEL,    CB_SETCURSEL,    CB_GETITEMDATA,
              CB_SETITEMDATA, CB_GETLBTEXTLEN, CB_GETLBTEXT,    CB_FINDSTRINGEXACT};
          return control.Kind() == ControlKind::ComboBoxW ? kComboBox : kListBox;
      }()) {}

LRESULT ItemList::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(control_.Window(), message, wParam, lParam);
}

void ItemList::AddItem(const std::wstring& text) {
    newIndex_ = static_cast<long>(Send(messages_.add, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

void ItemList::InsertItem(const std::wstring& text, long index) {
    // LB_INSERTSTRING and CB_INSERTSTRING append at -1.
    newIndex_ = index < 0 ? kError
                          : static_cast<long>(Send(messages_.insert, static_cast<WPARAM>(index),
                                                   reinterpret_cast<LPARAM>(text.c_str())));
}

void ItemList::RemoveItem(long index) {
    Send(messages_.remove, static_cast<WPARAM>(index));
}

void ItemList::Clear() {
    Send(messages_.clear);
}

long ItemList::ListCount() const {
    return static_cast<long>(Send(messages_.count));
}

long ItemList::ListIndex() const {
    if (!(control_.Flags() & kMultiSelect))
        return static_cast<long>(Send(messages_.getCurrent));
    // With several items selected, the one with the focus is the current one. LB_GETCARETINDEX is 0
    // for an empty list too.
    return ListCount() > 0 ? static_cast<long>(Send(LB_GETCARETINDEX)) : -1;
}

void ItemList::SetListIndex(long index) {
    if (control_.Flags() & kMultiSelect) {
        Send(LB_SETSEL, FALSE, -1);
        // LB_SETSEL takes -1 for all items.
        if (index < 0)
            return;
        Send(LB_SETSEL, TRUE, index);
        Send(LB_SETCARETINDEX, static_cast<WPARAM>(index));
    } else {
        Send(messages_.setCurrent, static_cast<WPARAM>(index));
    }
}

long ItemList::ItemData(long index) const {
    return static_cast<long>(Send(messages_.getData, static_cast<WPARAM>(index)));
}

void ItemList::SetItemData(long index, long data) {
    Send(messages_.setData, static_cast<WPARAM>(index), data);
}

bool ItemList::Selected(long index) const {
    if (control_.Kind() == ControlKind::ComboBoxW)
        return ListIndex() == index;
    return Send(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
}

std::wstring ItemList::Text(long index) const {
    const LRESULT length = Send(messages_.textLength, static_cast<WPARAM>(index));
    if (length == kError)
        return {};
    std::wstring text(static_cast<size_t>(length), L'\0');
    Send(messages_.text, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

long ItemList::FindText(const std::wstring& text) const {
    return static_cast<long>(
        Send(messages_.find, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str())));
}

// No message changes an item's text: remove and reinsert, with its data and selection.
void ItemList::SetText(long index, const std::wstring& text) {
    // An index of -1 would append the item.
    if (index < 0 || index >= ListCount())
        return;
    const long data = ItemData(index);
    const long current = ListIndex();
    const bool selected = Selected(index);
    const bool combo = control_.Kind() == ControlKind::ComboBoxW;
    const auto top = combo ? 0 : static_cast<WPARAM>(Send(LB_GETTOPINDEX));
    const Filling filling(*this);
    Send(messages_.remove, static_cast<WPARAM>(index));
    Send(messages_.insert, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
    SetItemData(index, data);
    if (control_.Flags() & kMultiSelect) {
        Send(LB_SETSEL, selected, index);
        Send(LB_SETCARETINDEX, static_cast<WPARAM>(current));
    } else if (selected) {
        SetListIndex(current);
    }
    if (!combo)
        Send(LB_SETTOPINDEX, top);
}

ItemList::Filling::Filling(ItemList& list) : window_(list.control_.Window()) {
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
}

ItemList::Filling::~Filling() {
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, TRUE);
}

} // namespace vndesk
