// SPDX-License-Identifier: MIT
// Texts in the system's code page, for Windows functions that are called in their A form.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

// Letters that the code page does not have become its replacement character.
std::string ToAnsi(std::wstring_view text);
std::wstring FromAnsi(std::string_view text);

// The text with an apostrophe for each letter that the code page turns into one.
std::wstring WithAnsiApostrophes(std::wstring_view text);

} // namespace vndesk
