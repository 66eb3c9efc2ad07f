// SPDX-License-Identifier: MIT
// Conversion between TCVN3 (each byte held as one character) and Unicode, in both directions.
#pragma once

#include "text/tcvn3_tables.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vndesk {

// Any mode other than kToTcvn3 converts to Unicode.
inline constexpr long kToUnicode = 0;
inline constexpr long kToTcvn3 = 1;

// Hosts count these texts with a 16-bit signed number.
inline constexpr std::size_t kMaxConvertLength = 32767;

constexpr wchar_t ToUncChar(wchar_t ch, long mode) {
    const auto unit = static_cast<char32_t>(ch);
    if (mode == kToTcvn3) {
        const auto code = tcvn3::kEncode[tcvn3::EncodeIndex(unit)];
        return code != 0 ? static_cast<wchar_t>(code) : ch;
    }
    return unit < tcvn3::kDecode.size() ? static_cast<wchar_t>(tcvn3::kDecode[unit]) : ch;
}

// Writes `length` converted characters to `out`, which may be the same buffer as `in`.
// Throws std::overflow_error for more than kMaxConvertLength characters, before writing any.
constexpr void ConvertText(wchar_t* out, const wchar_t* in, std::size_t length, long mode) {
    if (length > kMaxConvertLength)
        throw std::overflow_error("text is too long to convert");
    for (std::size_t i = 0; i < length; ++i)
        out[i] = ToUncChar(in[i], mode);
}

std::wstring ToUncText(std::wstring_view text, long mode);

} // namespace vndesk
