// SPDX-License-Identifier: MIT
// The bytes of a registry value as the text that hosts read.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

// REG_SZ and REG_DWORD, for code without windows.h.
inline constexpr unsigned long kRegistryText = 1;
inline constexpr unsigned long kRegistryNumber = 4;

// Texts are stored with or without a final zero: one is dropped.
std::string_view WithoutFinalZero(std::string_view data);

// A 32-bit number, least significant byte first, as signed decimal text; empty when the bytes are
// no such number.
std::wstring NumberText(std::string_view data);

} // namespace vndesk
