// SPDX-License-Identifier: MIT
// Conversion between TCVN3 (each byte held as one character) and Unicode, in both directions.
#pragma once

#include "text/tcvn3_units.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vndesk {

// Hosts count these texts with a 16-bit signed number.
inline constexpr std::size_t kMaxConvertLength = 32767;

// Writes `length` converted characters to `out`, which may be the same buffer as `in`.
// Throws std::overflow_error for more than kMaxConvertLength characters, before writing any.
void ConvertText(wchar_t* out, const wchar_t* in, std::size_t length, long mode);

std::wstring ToUncText(std::wstring_view text, long mode);

} // namespace vndesk
