// SPDX-License-Identifier: MIT
// MessageBox with an OK button, for errors of the database.
#pragma once

#include <string>

namespace vndesk {

inline constexpr wchar_t kPlainTitle[] = L"VnDesk";

void PlainMessage(const std::wstring& text, const wchar_t* title = kPlainTitle);

} // namespace vndesk
