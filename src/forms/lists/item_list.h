// SPDX-License-Identifier: MIT
// The items of a list box or combo box, with the members that lists have for the hosts: AddItem,
// NewIndex, ItemData and so on. Indexes count from 0; -1 is none.
#pragma once

#include <string>

#include "forms/window/control.h"

namespace vndesk {

class ItemList {
public:
    explicit ItemList(Control& control);

    void AddItem(const std::wstring& text);
    // In front of the item at an index; an index beyond the end is refused, and NewIndex is -1.
    void InsertItem(const std::wstring& text, long index);
    void RemoveItem(long index);
    void Clear();
    long NewIndex() const { return newIndex_; }
    long ListCount() const;
    long ListIndex() const;
    // -1 leaves none selected.
    void SetListIndex(long index);
    long ItemData(long index) const;
    void SetItemData(long index, long data);
    bool Selected(long index) const;
    std::wstring Text(long index) const;
    // Nothing where there is no such item.
    void SetText(long index, const std::wstring& text);
    // The first item with a text, letter case aside.
    long FindText(const std::wstring& text) const;

    // Fills without repainting after each item.
    class Filling {
    public:
        explicit Filling(ItemList& list);
        ~Filling();
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

    private:
        HWND window_;
    };

private:
    struct Messages;

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    Control& control_;
    const Messages& messages_;
    long newIndex_ = -1;
};

} // namespace vndesk
