// SPDX-License-Identifier: MIT
// A password as it is compared: as typed, in Unicode's form C, so that it does not matter whether
// the keyboard writes a letter with its marks as one code or as several. Blanks and capitals count.
#pragma once

#include <string_view>

#include "passwords/text/password_rules.h"
#include "comkit/base/wiped.h"

namespace vndesk {

// A text that form C does not exist for (half of a surrogate pair, a code that is no character)
// stays as it is.
Wiped<wchar_t> NormalForm(std::wstring_view text);

// In UTF-8. Halves of surrogate pairs become U+FFFD.
Wiped<unsigned char> PasswordBytes(std::wstring_view password);

// The rules for a new password, over both texts as typed.
PasswordVerdict JudgeNewPassword(std::wstring_view password, std::wstring_view userName,
                                 long leastLength);

// However their letters are composed.
bool AreSamePassword(std::wstring_view left, std::wstring_view right);

} // namespace vndesk
