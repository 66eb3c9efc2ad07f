// SPDX-License-Identifier: MIT
// A letter alone presses the button that has it underlined, as Alt and the letter do.
#pragma once

namespace vndesk {

// For OnKeyPress of a message: true for every character that is no key of control.
bool PressByLetter(wchar_t character);

} // namespace vndesk
