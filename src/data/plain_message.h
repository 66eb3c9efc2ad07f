// SPDX-License-Identifier: MIT
// The platform's message box with an OK button, for errors that come before any form.
#pragma once

#include <string>

namespace vndesk {

inline constexpr wchar_t kPlainTitle[] = L"VnDesk";

void PlainMessage(const std::wstring& text, const wchar_t* title = kPlainTitle);

} // namespace vndesk
