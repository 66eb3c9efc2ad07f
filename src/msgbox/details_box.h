// SPDX-License-Identifier: MIT
// A message of an error with what it rests on, which is shown when the user asks for it.
#pragma once

#include <string>

namespace vndesk {

// Shows the box and waits. Both texts are Unicode; without details there is no button for them.
void ShowDetailsBox(const std::wstring& message, const std::wstring& details);

} // namespace vndesk
