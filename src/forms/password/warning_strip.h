// SPDX-License-Identifier: MIT
// A line below the controls of a form, by which the form is higher as long as it says something. It
// covers nothing and leaves the keyboard where it is.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

class WarningStrip {
public:
    // The font stays the form's.
    WarningStrip(HWND form, HFONT font, int dpi);
    ~WarningStrip();
    WarningStrip(const WarningStrip&) = delete;
    WarningStrip& operator=(const WarningStrip&) = delete;

    // Unicode; an empty text takes the line away.
    void Say(const std::wstring& text);

private:
    static LRESULT CALLBACK Procedure(HWND strip, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);
    int HeightOf(const std::wstring& text) const;
    void Grow(int pixels) const;
    void Paint() const;

    const HWND form_;
    const HFONT font_;
    const int margin_;
    HWND strip_;
    std::wstring text_;
    int height_ = 0; // of the form, on its account
};

} // namespace vndesk
