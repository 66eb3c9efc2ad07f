// SPDX-License-Identifier: MIT
// Texts from one encoding to another, by way of Unicode (NFC), and what gets lost.
#pragma once

#include "text/encodings/encoding.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

struct Converted {
    std::wstring text;
    std::wstring lost;                  // the letters, one after the other
    std::vector<std::size_t> positions; // of each of them in the text that was given, from 0
};

Converted ConvertEncoding(std::wstring_view text, Encoding from, Encoding to);

// The same without looking at what it means: the pivot.
std::wstring ToUnicode(std::wstring_view text, Encoding from, Origins* origins = nullptr);

} // namespace vndesk
