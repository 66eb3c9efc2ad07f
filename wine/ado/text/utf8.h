// SPDX-License-Identifier: MIT
// UTF-8 to and from wide text, for wide characters of 16 and of 32 bits.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vndesk::ado {

// Writes at most text.size() characters and returns their number; broken sequences become U+FFFD.
std::size_t DecodeUtf8(std::string_view text, wchar_t* out);

std::wstring FromUtf8(std::string_view text);
std::string ToUtf8(std::wstring_view text);

} // namespace vndesk::ado
