// SPDX-License-Identifier: MIT
// Which answers each button set offers, and where its buttons stand.
#pragma once

#include <array>

namespace vndesk {

struct Answer {
    const wchar_t* caption = nullptr; // TCVN3; null for a hidden button
    const wchar_t* tag = nullptr;
};

// The answers of Cmd1, Cmd2 and Cmd3; Cmd3 stands rightmost.
using ButtonSet = std::array<Answer, 3>;

// Null for a number that names no set.
const ButtonSet* FindButtonSet(long buttons);

// Left edges in twips of the first `count` buttons on a form of this width.
std::array<double, 3> ButtonLefts(int count, double formWidth, const std::array<double, 3>& widths);

} // namespace vndesk
