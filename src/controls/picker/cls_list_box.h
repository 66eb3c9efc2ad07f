// SPDX-License-Identifier: MIT
// A list control lent by its form, with a text of its own for each item (the item data) and the
// look-up of an item by that text. Indexes count from 0; -1 is none.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/lists/item_list.h"

namespace vndesk {

class clsListBox {
public:
    // The entry that equals the text, letter case aside; -1 when there is none.
    static long FindString(const std::vector<std::wstring>& collection, std::wstring_view text);

    clsListBox() = default;
    clsListBox(const clsListBox&) = delete;
    clsListBox& operator=(const clsListBox&) = delete;

    // The members below need it: an unbound wrapper refuses them. The control belongs to the form,
    // which keeps the wrapper as long as it lets the control be used.
    void SetTListBox(Control& control);

    // In front of the item at `index` where one is given. Throws for an index that the control
    // refuses, and changes nothing.
    void AddItem(const std::wstring& item, std::optional<long> index = std::nullopt);
    // A negative index does nothing.
    void RemoveItem(long index);
    void Clear();
    // Fills without repainting after each item, as long as the result lives.
    ItemList::Filling Filling();
    long NewIndex() const;
    long ListCount() const;

    long ListIndex() const;
    // Tells the control's click handler, as a click of the user would.
    void SetListIndex(long index);

    // The text of the selected item. Setting it selects the item with that text, if there is one.
    std::wstring Text() const;
    void SetText(const std::wstring& text);
    // The data of the selected item. Setting it selects the item with that data, or none.
    std::wstring Value() const;
    void SetValue(std::wstring_view value);

    std::wstring List(long index) const;
    void SetList(long index, const std::wstring& text);
    const std::wstring& ItemData(long index) const;
    void SetItemData(long index, const std::wstring& data);

    // Whether the text has changed since the control got the focus, apart from letter case.
    std::function<void()> Change;

private:
    ItemList& Items() const;
    void GotFocus();
    void LostFocus();

    Control* control_ = nullptr;
    mutable std::optional<ItemList> items_;
    std::vector<std::wstring> data_;
    std::wstring remembered_;
};

} // namespace vndesk
