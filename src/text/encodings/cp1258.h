// SPDX-License-Identifier: MIT
// Windows' code page 1258: vowels with their shapes are one byte, most tones a byte behind them.
#pragma once

#include "text/encodings/encoding.h"

#include <string>
#include <string_view>

namespace vndesk {

std::wstring DecodeCp1258(std::wstring_view text, Origins* origins = nullptr);

// Takes NFC. A tone that stands alone is a byte of its own.
std::wstring EncodeCp1258(std::wstring_view text, Losses& losses);

} // namespace vndesk
