// SPDX-License-Identifier: MIT
// Bytes as base64 in one line, by Windows' own functions, loaded by the first call.
#pragma once

#include <span>
#include <string>

namespace vndesk {

std::wstring ToBase64(std::span<const unsigned char> bytes);

// Fills the whole span. Throws ComError where the text holds more, fewer or no bytes.
void FromBase64(const std::wstring& text, std::span<unsigned char> bytes);

} // namespace vndesk
