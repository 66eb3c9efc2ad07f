// SPDX-License-Identifier: MIT
// The number that is stored and compared in place of a password.
#pragma once

#include <string_view>

namespace vndesk {

// Code of a character in the system's ANSI code page.
using AnsiCodeOf = int (*)(wchar_t);

// `upperCased` is the password in capitals: letter case does not count in passwords. A password
// with a character outside codes 32 to 127 has code 0, like the empty one.
// Throws std::overflow_error when the password is too long for a double.
double PasswordCode(std::wstring_view upperCased, AnsiCodeOf ansiCodeOf);

} // namespace vndesk
