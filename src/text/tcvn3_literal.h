// SPDX-License-Identifier: MIT
// Fixed texts are written as Vietnamese, L"Đồng ý"_tcvn3, and stored in TCVN3: the compiler
// converts them. A text with a letter that TCVN3 lacks, such as a toned capital, does not compile.
#pragma once

#include "text/tcvn3_tables.h"

#include <cstddef>
#include <type_traits>

namespace vndesk::tcvn3 {

// No code: these are single bytes.
inline constexpr wchar_t kNoCode = 0xFFFF;

constexpr wchar_t CodeOf(wchar_t letter) {
    if (static_cast<char32_t>(letter) > kLastLetter)
        return kNoCode;
    const char16_t code = kEncode[static_cast<std::size_t>(letter)];
    return code < kDecode.size() && kDecode[code] == letter ? static_cast<wchar_t>(code) : kNoCode;
}

template <std::size_t Size> struct EncodedText {
    consteval EncodedText(const wchar_t (&letters)[Size]) {
        for (std::size_t i = 0; i < Size; ++i)
            units[i] = CodeOf(letters[i]);
    }
    wchar_t units[Size]{};
};

template <EncodedText Text> constexpr bool HasAllCodes() {
    for (const wchar_t unit : Text.units)
        if (unit == kNoCode)
            return false;
    return true;
}

} // namespace vndesk::tcvn3

namespace vndesk {

template <tcvn3::EncodedText Text>
constexpr auto operator""_tcvn3() -> std::enable_if_t<tcvn3::HasAllCodes<Text>(), const wchar_t*> {
    return Text.units;
}

} // namespace vndesk
