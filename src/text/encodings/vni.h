// SPDX-License-Identifier: MIT
// VNI for Windows: a vowel and its accents are two bytes, aâ is â and aá is ấ.
#pragma once

#include "text/encodings/encoding.h"

#include <string>
#include <string_view>

namespace vndesk {

std::wstring DecodeVni(std::wstring_view text, Origins* origins = nullptr);

// Takes NFC.
std::wstring EncodeVni(std::wstring_view text, Losses& losses);

} // namespace vndesk
