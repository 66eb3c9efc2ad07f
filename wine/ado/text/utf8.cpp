// SPDX-License-Identifier: MIT
#include "ado/text/utf8.h"

namespace vndesk::ado {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// One character of more than one byte. `position` moves past what was read.
char32_t DecodeOne(std::string_view text, std::size_t& position) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(position);
    const int more = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (more == 0 || lead >= 0xF5) {
        ++position;
        return kReplacement;
    }
    char32_t code = lead & (0x3F >> more);
    std::size_t next = position + 1;
    for (int i = 0; i < more; ++i, ++next) {
        if (next >= text.size() || !IsContinuation(byte(next))) {
            position = next;
            return kReplacement;
        }
        code = code << 6 | (byte(next) & 0x3F);
    }
    position = next;
    constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return code < kSmallest[more] || code > 0x10FFFF || surrogate ? kReplacement : code;
}

void AppendUtf8(std::string& out, char32_t code) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | code >> 12);
        tail(6), tail(0);
    } else {
        out += static_cast<char>(0xF0 | code >> 18);
        tail(12), tail(6), tail(0);
    }
}

} // namespace

std::size_t DecodeUtf8(std::string_view text, wchar_t* out) {
    wchar_t* next = out;
    for (std::size_t position = 0; position < text.size();) {
        const auto byte = static_cast<unsigned char>(text[position]);
        if (byte < 0x80) {
            *next++ = byte;
            ++position;
            continue;
        }
        char32_t code = DecodeOne(text, position);
        if (sizeof(wchar_t) == 2 && code >= 0x10000) {
            code -= 0x10000;
            *next++ = static_cast<wchar_t>(0xD800 + (code >> 10));
            code = 0xDC00 + (code & 0x3FF);
        }
        *next++ = static_cast<wchar_t>(code);
    }
    return static_cast<std::size_t>(next - out);
}

std::wstring FromUtf8(std::string_view text) {
    std::wstring wide(text.size(), L'\0');
    wide.resize(DecodeUtf8(text, wide.data()));
    return wide;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 2); // as much as Vietnamese takes
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = static_cast<char32_t>(text[i]);
        if (sizeof(wchar_t) == 2)
            code &= 0xFFFF;
        const bool high = code >= 0xD800 && code < 0xDC00;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000)
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        else if ((code >= 0xD800 && code < 0xE000) || code > 0x10FFFF)
            code = kReplacement;
        AppendUtf8(bytes, code);
    }
    return bytes;
}

} // namespace vndesk::ado
