// SPDX-License-Identifier: MIT
// A message as a text of several lines: what Ctrl+C copies.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

// Title, heading, text, details and buttons, with lines between them as in Windows' own boxes.
std::wstring NoticeText(std::wstring_view title, const std::vector<std::wstring>& parts,
                        const std::vector<std::wstring>& captions);

// Every end of a line as edit controls want it.
std::wstring WithLineBreaks(std::wstring_view text);

} // namespace vndesk
