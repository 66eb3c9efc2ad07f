// SPDX-License-Identifier: MIT
// Texts as bytes. Those of Unicode are UTF-16 as Windows has it, low byte first; UTF-8 is read too.
#pragma once

#include "text/encodings/encoding.h"

#include <optional>
#include <string>
#include <string_view>

namespace vndesk {

using ByteView = std::basic_string_view<unsigned char>;
using ByteText = std::basic_string<unsigned char>;

// The text that bytes hold; marks of the byte order are dropped. Nothing where UTF-16 is cut off.
std::optional<std::wstring> TextOfBytes(ByteView bytes, Encoding encoding);

// What is no byte becomes a question mark.
ByteText BytesOfText(std::wstring_view text, Encoding encoding);

// The text, where the bytes are surely Unicode: by their mark, by zero bytes, or as UTF-8 beyond
// ASCII.
std::optional<std::wstring> UnicodeOfBytes(ByteView bytes);

} // namespace vndesk
