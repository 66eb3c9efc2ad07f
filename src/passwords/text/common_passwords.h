// SPDX-License-Identifier: MIT
// The passwords that are tried first: the most common ones of the world and of Vietnam, as they are
// typed with and without marks, and as Telex and VNI leave them in a box without an input method.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace vndesk {

inline constexpr std::size_t kLongestCommonPassword = 14;
using CommonPassword = wchar_t[kLongestCommonPassword + 1];

std::span<const CommonPassword> CommonPasswords();

// Letter case aside. The password is in Unicode's form C.
bool IsCommonPassword(std::wstring_view password);

} // namespace vndesk
