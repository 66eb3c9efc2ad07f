// SPDX-License-Identifier: MIT
// The encodings of Vietnamese text, and one of a text's letters that an encoding lacks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

// Those of bytes are held as TCVN3 always was: each byte as one character.
enum class Encoding { Unicode, Tcvn3, Tcvn3Capitals, VniWindows, Cp1258, UnicodeNfd };

constexpr bool IsOfBytes(Encoding encoding) {
    return encoding != Encoding::Unicode && encoding != Encoding::UnicodeNfd;
}

// What an encoding lacks is written so, where its bytes mean something else.
inline constexpr wchar_t kReplacement = L'?';

// Positions of letters that were lost, in the text that was encoded.
using Losses = std::vector<std::size_t>;

// Where each character of a result came from; null where nobody asks.
using Origins = std::vector<std::size_t>;

} // namespace vndesk
