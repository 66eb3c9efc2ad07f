// SPDX-License-Identifier: MIT
// What a list needs to shrink to what the user types: a line above it, and a text in its place
// where nothing is found.
#pragma once

#include <array>
#include <string_view>

#include "forms/window/control.h"

namespace vndesk {

constexpr ControlSpec NothingFound(const wchar_t* text, const ControlSpec& list) {
    return Label(L"lblNone", text, list.rect, kHidden | kEdged | (list.flags & kGrow));
}

struct SearchLineTexts {
    const wchar_t* caption; // of the line
    const wchar_t* nothing;
};

// A table with a search line in the upper part of a list's place. Its rows stand in front of the
// named one: where Tab comes from.
template <size_t kCount>
consteval std::array<ControlSpec, kCount + 3>
WithSearchLine(std::array<ControlSpec, kCount> table, std::wstring_view listName,
               std::wstring_view before, SearchLineTexts texts) {
    constexpr double kLine = 450, kCaption = 660, kBox = 330;
    for (ControlSpec& list : table) {
        if (list.name != listName)
            continue;
        const TwipsRect place = list.rect;
        list.rect.top += kLine;
        list.rect.height -= kLine;
        const std::array<ControlSpec, 3> line = {
            Label(L"lblFind", texts.caption, {place.left, place.top + 45, kCaption, 240},
                  kMnemonic),
            TextBox(L"TxtFind", {place.left + kCaption, place.top, place.width - kCaption, kBox},
                    list.flags & kGrowRight),
            NothingFound(texts.nothing, list)};
        return WithRow(table, before, 0, line);
    }
    throw "the table has no control of this name";
}

// The list, or the text in its place.
void ShowFound(Control& list, Control& nothing, bool any);

// Whether the search line leaves the key to its list, which moves while the focus stays in the
// line.
bool MovesTheList(WPARAM key, const Control& list);

} // namespace vndesk
