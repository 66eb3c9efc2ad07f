// SPDX-License-Identifier: MIT
// What a process does before several of its threads draw.
#pragma once

#include <windows.h>

#include <memory>

#include "forms/look/font.h"

namespace vndesk::test {

// Two threads that are at once the first to draw with a font spoil Wine's list of such fonts, and
// wait for ever (docs/wine.md). A box that has measured a text keeps its font in the list.
class FontInUse {
public:
    explicit FontInUse(const FontSpec& design)
        : font_(Font::Get(design, USER_DEFAULT_SCREEN_DPI)),
          box_(CreateWindowExW(0, L"EDIT", L"Tiếng Việt", WS_POPUP, 0, 0, 100, 30, nullptr, nullptr,
                               nullptr, nullptr)) {
        SendMessageW(box_, WM_SETFONT, reinterpret_cast<WPARAM>(font_->Handle()), FALSE);
        SendMessageW(box_, EM_POSFROMCHAR, 1, 0);
    }
    ~FontInUse() { DestroyWindow(box_); }
    FontInUse(const FontInUse&) = delete;
    FontInUse& operator=(const FontInUse&) = delete;

private:
    std::shared_ptr<Font> font_;
    HWND box_;
};

} // namespace vndesk::test
