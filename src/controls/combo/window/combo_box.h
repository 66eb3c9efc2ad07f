// SPDX-License-Identifier: MIT
// A drop-down list (CBS_DROPDOWNLIST), reached by its window: items count from 0, -1 is none.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace vndesk {

class ComboBox {
public:
    ComboBox() = default;
    explicit ComboBox(HWND window) : window_(window) {}

    HWND Window() const { return window_; }

    long Count() const;
    // The selected item.
    long Index() const;
    void Select(long index);
    // Empty where there is no such item.
    std::wstring Text(long index) const;
    // The selected item's text.
    std::wstring Text() const { return Text(Index()); }

    // The selection stays with its item in all of these. A negative place is the end.
    long Insert(long index, const std::wstring& text);
    void Replace(long index, const std::wstring& text);
    void Remove(long index);
    void Clear();

    // The first item with this text. Letter case counts only where items differ in nothing else.
    long Find(std::wstring_view text) const;

private:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window_, message, wParam, lParam);
    }

    HWND window_ = nullptr;
};

} // namespace vndesk
