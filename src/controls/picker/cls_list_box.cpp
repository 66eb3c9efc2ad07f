// SPDX-License-Identifier: MIT
#include "controls/picker/cls_list_box.h"

#include <stdexcept>

#include "comkit/base/com_error.h"
#include "comkit/base/upper_case.h"

namespace vndesk {

long clsListBox::FindString(const std::vector<std::wstring>& collection, std::wstring_view text) {
    const std::wstring wanted = UpperCase(std::wstring(text));
    for (size_t i = 0; i < collection.size(); ++i)
        // Upper-casing keeps the length.
        if (collection[i].size() == wanted.size() && UpperCase(collection[i]) == wanted)
            return static_cast<long>(i);
    return -1;
}

void clsListBox::SetTListBox(Control& control) {
    control_ = &control;
    items_.emplace(control);
    data_.assign(static_cast<size_t>(items_->ListCount()), {});
    control.onGotFocus = [this] { GotFocus(); };
    control.onLostFocus = [this] { LostFocus(); };
}

ItemList& clsListBox::Items() const {
    if (!items_)
        throw ComError(E_UNEXPECTED);
    return *items_;
}

void clsListBox::AddItem(const std::wstring& item, std::optional<long> index) {
    ItemList& items = Items();
    if (index)
        items.InsertItem(item, *index);
    else
        items.AddItem(item);
    if (items.NewIndex() < 0)
        throw std::invalid_argument("the list does not take the item");
    const auto place = static_cast<size_t>(items.NewIndex());
    // Items that the form has added itself have no data: the new one's come last.
    if (place < data_.size())
        data_.emplace(data_.begin() + items.NewIndex());
    else
        data_.emplace_back();
}

void clsListBox::RemoveItem(long index) {
    if (index < 0)
        return;
    static_cast<void>(data_.at(static_cast<size_t>(index))); // throws beyond the list
    Items().RemoveItem(index);
    data_.erase(data_.begin() + index);
}

void clsListBox::Clear() {
    Items().Clear();
    data_.clear();
}

ItemList::Filling clsListBox::Filling() {
    return ItemList::Filling(Items());
}

long clsListBox::NewIndex() const {
    return Items().NewIndex();
}

long clsListBox::ListCount() const {
    return Items().ListCount();
}

long clsListBox::ListIndex() const {
    return Items().ListIndex();
}

void clsListBox::SetListIndex(long index) {
    Items().SetListIndex(index);
    if (control_->onClick)
        control_->onClick();
}

std::wstring clsListBox::Text() const {
    const long index = ListIndex();
    return index < 0 ? std::wstring() : List(index);
}

void clsListBox::SetText(const std::wstring& text) {
    Trap([&] {
        if (const long index = Items().FindText(text); index >= 0)
            SetListIndex(index);
    });
}

std::wstring clsListBox::Value() const {
    const long index = ListIndex();
    return index < 0 ? std::wstring() : ItemData(index);
}

void clsListBox::SetValue(std::wstring_view value) {
    Trap([&] { SetListIndex(FindString(data_, value)); });
}

std::wstring clsListBox::List(long index) const {
    return Items().Text(index);
}

void clsListBox::SetList(long index, const std::wstring& text) {
    Items().SetText(index, text);
}

const std::wstring& clsListBox::ItemData(long index) const {
    return data_.at(static_cast<size_t>(index));
}

void clsListBox::SetItemData(long index, const std::wstring& data) {
    data_.at(static_cast<size_t>(index)) = data;
}

void clsListBox::GotFocus() {
    remembered_ = Text();
}

void clsListBox::LostFocus() {
    if (UpperCase(Text()) != UpperCase(remembered_) && Change)
        Change();
}

} // namespace vndesk
