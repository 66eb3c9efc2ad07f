// SPDX-License-Identifier: MIT
// Which encoding a text is in, judged by how many of its words are Vietnamese as it stands and
// after a trial decoding.
#pragma once

#include "text/encodings/encoding.h"

#include <optional>
#include <string_view>

namespace vndesk {

// Below, a text is not Vietnamese.
inline constexpr int kLeastConfidence = 60;

struct Detection {
    std::optional<Encoding> encoding; // nothing: not Vietnamese
    int confidence = 0;               // of a hundred
};

Detection Detect(std::wstring_view text);

// Bytes that are no Unicode, each as one character.
Detection DetectBytes(std::wstring_view bytes);

// Whether a text that is to be converted from an encoding of bytes is Vietnamese in Unicode.
bool IsUnicodeAlready(std::wstring_view text, Encoding from);

} // namespace vndesk
