// SPDX-License-Identifier: MIT
#include "forms/lists/found_items.h"

#include <algorithm>
#include <numeric>

namespace vndesk {

void FoundItems::AddItem(const std::wstring& text) {
    items_.AddItem(text);
    if (items_.NewIndex() < 0)
        return;
    shown_.push_back(static_cast<std::uint32_t>(all_.size()));
    all_.push_back({text});
}

void FoundItems::RemoveItem(long index) {
    const std::uint32_t place = shown_.at(static_cast<size_t>(index));
    items_.RemoveItem(index);
    all_.erase(all_.begin() + place);
    shown_.erase(shown_.begin() + index);
    for (std::uint32_t& other : shown_)
        other -= other > place;
}

void FoundItems::Clear() {
    items_.Clear();
    all_.clear();
    shown_.clear();
}

void FoundItems::SetItemData(long index, long data) {
    items_.SetItemData(index, data);
    if (index >= 0 && index < ListCount())
        Shown(index).data = data;
}

void FoundItems::SetText(long index, const std::wstring& text) {
    items_.SetText(index, text);
    if (index >= 0 && index < ListCount())
        Shown(index).text = text;
}

void FoundItems::Rename(long data, const std::wstring& text) {
    const auto found = std::find_if(all_.begin(), all_.end(),
                                    [data](const Item& item) { return item.data == data; });
    if (found == all_.end())
        return;
    const auto shown =
        std::find(shown_.begin(), shown_.end(), static_cast<std::uint32_t>(found - all_.begin()));
    if (shown != shown_.end())
        items_.SetText(static_cast<long>(shown - shown_.begin()), text);
    found->text = text;
}

void FoundItems::Find(std::wstring_view typed, SearchRules rules) {
    if (typed.empty()) {
        shown_.resize(all_.size());
        std::iota(shown_.begin(), shown_.end(), 0u);
    } else {
        NameHits hits(rules);
        for (const Item& item : all_)
            hits.Add(item.text);
        shown_ = hits.Find(typed);
    }
    const ItemList::Filling filling(items_);
    items_.Clear();
    for (const std::uint32_t place : shown_) {
        items_.AddItem(all_[place].text);
        items_.SetItemData(items_.NewIndex(), all_[place].data);
    }
}

} // namespace vndesk
