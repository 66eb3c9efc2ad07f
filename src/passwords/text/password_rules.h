// SPDX-License-Identifier: MIT
// What a new password must satisfy: long enough, not the user's name, not one of those that are
// tried first. No rules about kinds of characters: they make passwords that are written down.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vndesk {

enum class PasswordVerdict { Fine, TooShort, IsUserName, Common };

// Code points. In Unicode's form C these are what a Vietnamese reader counts as letters.
std::size_t CountCodePoints(std::wstring_view text);

// Both texts are in form C. Letter case is left aside; a least length of 0 or less is none.
PasswordVerdict JudgePassword(std::wstring_view password, std::wstring_view userName,
                              long leastLength);

// What the user is told, in TCVN3; empty for a password that is fine.
std::wstring TextOfVerdict(PasswordVerdict verdict, long leastLength);

} // namespace vndesk
