// SPDX-License-Identifier: MIT
// The items of a list box of which a search may leave some: an ItemList that keeps those that it
// does not show.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/lists/item_list.h"
#include "text/letters/name_hits.h"

namespace vndesk {

class FoundItems {
public:
    explicit FoundItems(Control& list) : items_(list) {}

    // --- As of an ItemList, over the items that are shown ---

    // At the end, whatever is looked for.
    void AddItem(const std::wstring& text);
    void RemoveItem(long index);
    void Clear();
    long NewIndex() const { return items_.NewIndex(); }
    long ListCount() const { return items_.ListCount(); }
    long ListIndex() const { return items_.ListIndex(); }
    void SetListIndex(long index) { items_.SetListIndex(index); }
    long ItemData(long index) const { return items_.ItemData(index); }
    void SetItemData(long index, long data);
    bool Selected(long index) const { return items_.Selected(index); }
    // Nothing where there is no such item.
    void SetText(long index, const std::wstring& text);
    ItemList::Filling Filling() { return ItemList::Filling(items_); }

    // --- Over all ---

    bool IsEmpty() const { return all_.empty(); }
    // The first item with the data, shown or not.
    void Rename(long data, const std::wstring& text);
    // Shows what is found, best first; all in their own order where nothing is typed. Nothing is
    // selected.
    void Find(std::wstring_view typed, SearchRules rules);

private:
    struct Item {
        std::wstring text;
        long data = 0;
    };

    Item& Shown(long index) { return all_.at(shown_.at(static_cast<size_t>(index))); }

    ItemList items_;
    std::vector<Item> all_;
    std::vector<std::uint32_t> shown_; // places in all_
};

} // namespace vndesk
