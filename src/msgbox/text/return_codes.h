// SPDX-License-Identifier: MIT
// From a button's tag to the number that the message box returns. The two mappings differ on
// purpose; hosts rely on what comes out of them together (No gives 0, Ignore gives 5).
#pragma once

#include <string_view>

namespace vndesk {

// Lenient, for the second and third button: a rule matches by tag or by the caption being contained
// in the text, and a later rule overrides an earlier one.
long GetReturn(std::wstring_view text, std::wstring_view tag);

// Exact, for the first button.
long GetReturn1(std::wstring_view tag);

} // namespace vndesk
