// SPDX-License-Identifier: MIT
// Bytes. Whatever they are, text made of them can be written as proper UTF-8; proper UTF-8 comes
// back byte for byte.
#include "support/input.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "ado/text/utf8.h"

namespace vndesk::fuzz {

namespace {

// By the table of well-formed sequences, not by decoding.
bool IsUtf8(std::string_view text) {
    std::size_t i = 0;
    const auto between = [&](unsigned low, unsigned high) {
        const bool fits = i < text.size() && static_cast<unsigned char>(text[i]) >= low &&
                          static_cast<unsigned char>(text[i]) <= high;
        i += fits;
        return fits;
    };
    while (i < text.size()) {
        if (between(0x00, 0x7F))
            continue;
        if (between(0xC2, 0xDF)) {
            if (!between(0x80, 0xBF))
                return false;
            continue;
        }
        const unsigned char lead = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        if (lead < 0xE0 || lead > 0xF4)
            return false;
        ++i;
        const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        if (!between(low, high) || !between(0x80, 0xBF) || (lead >= 0xF0 && !between(0x80, 0xBF)))
            return false;
    }
    return true;
}

} // namespace

void RunOne(Input& input) {
    const std::string bytes(input.Bytes());
    // Memory of exactly the promised size: one character too many would be seen.
    std::vector<wchar_t> exact(bytes.size());
    const std::size_t length = ado::DecodeUtf8(bytes, exact.data());
    MUST(length <= bytes.size());
    const std::wstring text = ado::FromUtf8(bytes);
    MUST(std::equal(text.begin(), text.end(), exact.begin(), exact.begin() + length));
    const std::string written = ado::ToUtf8(text);
    MUST(IsUtf8(written) && ado::FromUtf8(written) == text);
    if (IsUtf8(bytes))
        MUST(written == bytes);
    else
        MUST(text.find(L'\xFFFD') != std::wstring::npos);

    std::wstring units(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * sizeof(wchar_t));
    MUST(IsUtf8(ado::ToUtf8(units)));
}

} // namespace vndesk::fuzz
