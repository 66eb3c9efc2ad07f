// SPDX-License-Identifier: MIT
// Helpers over any list with the members AddItem, NewIndex, ItemData, List, ListIndex, ListCount,
// Selected and RemoveItem: the library's own lists by their C++ type, a host's through
// LateBoundList.
#pragma once

#include <optional>
#include <string>

namespace vndesk {

template <class List> void AddListItem(List& list, const std::wstring& text, long itemData) {
    list.AddItem(text);
    list.SetItemData(list.NewIndex(), itemData);
}

// Replaces the text of the selected item, or of the one that is named.
template <class List>
void SetListText(List& list, const std::wstring& text, std::optional<long> index = std::nullopt) {
    list.SetText(index ? *index : list.ListIndex(), text);
}

// Nothing when no item is selected.
template <class List> std::optional<long> SelectedItemData(List& list) {
    const long index = list.ListIndex();
    if (index < 0)
        return std::nullopt;
    return list.ItemData(index);
}

// The first item with this data, or -1.
template <class List> long FindItemByData(List& list, long itemData) {
    for (long i = 0; i < list.ListCount(); ++i)
        if (list.ItemData(i) == itemData)
            return i;
    return -1;
}

// Removes the selected items and returns their data, separated by commas.
template <class List> std::wstring TakeSelectedItems(List& list) {
    std::wstring taken;
    for (long i = 0; i < list.ListCount();) {
        if (!list.Selected(i)) {
            ++i;
            continue;
        }
        if (!taken.empty())
            taken += L',';
        taken += std::to_wstring(list.ItemData(i));
        // The next item moves into this place.
        list.RemoveItem(i);
    }
    return taken;
}

} // namespace vndesk
