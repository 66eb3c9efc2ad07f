// SPDX-License-Identifier: MIT
// What a host writes into the caption of a menu item:
//
//     &Mở…<tab>Ctrl+O|Mở một hồ sơ có sẵn|12
//
// text, shortcut, help text, marks. The marks are the number of the item's image, counted from 1,
// "+" for a check item and "*" for a radio item. A caption that begins with a hyphen is a
// separator, with the rest as its caption.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

constexpr int kNoImage = -1;

struct MenuCaption {
    // Text and shortcut as the menu shows them, the "&" and the tab included.
    std::wstring text;
    std::wstring help;
    int image = kNoImage; // counted from 0
    bool check = false;
    bool radio = false;
    bool separator = false;
};

MenuCaption ParseCaption(std::wstring_view caption);

// The two columns of a text.
std::wstring_view TextPart(std::wstring_view text);
std::wstring_view ShortcutPart(std::wstring_view text);

// The text without its "&" signs, as it reads where mnemonics are hidden.
std::wstring WithoutMnemonics(std::wstring_view text);

// The letter after the first single "&"; 0 when there is none.
wchar_t Mnemonic(std::wstring_view text);

} // namespace vndesk
