// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

// Puts a text on the clipboard. Nothing happens while another program has it open.
void CopyToClipboard(HWND owner, const std::wstring& text);

} // namespace vndesk
