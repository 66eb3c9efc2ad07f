// SPDX-License-Identifier: MIT
// What the logon dialog opens for a user who asks for help.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

// A full path or an address. False where Windows cannot open it.
bool OpenHelpFile(HWND owner, const std::wstring& file);

} // namespace vndesk
