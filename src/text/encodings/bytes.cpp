// SPDX-License-Identifier: MIT
#include "text/encodings/bytes.h"

#include <algorithm>

namespace vndesk {

namespace {

constexpr unsigned char kUtf8Mark[] = {0xEF, 0xBB, 0xBF}, kUtf16Mark[] = {0xFF, 0xFE};

bool Begins(ByteView bytes, ByteView mark) {
    return bytes.substr(0, mark.size()) == mark;
}

constexpr ByteView kUtf8(kUtf8Mark, sizeof kUtf8Mark), kUtf16(kUtf16Mark, sizeof kUtf16Mark);

void Append(std::wstring& text, char32_t ch) {
    if (sizeof(wchar_t) > 2 || ch < 0x10000) {
        text.push_back(static_cast<wchar_t>(ch));
        return;
    }
    text.push_back(static_cast<wchar_t>(0xD7C0 + (ch >> 10)));
    text.push_back(static_cast<wchar_t>(0xDC00 + (ch & 0x3FF)));
}

// How many bytes follow the first one of a character, and what is left of it; -1: no first byte.
int Follow(unsigned char first, char32_t& bits) {
    if (first < 0x80) {
        bits = first;
        return 0;
    }
    if (first < 0xC2 || first > 0xF4)
        return -1;
    const int count = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    bits = first & (0x3F >> count);
    return count;
}

// Nothing where it is no UTF-8.
std::optional<std::wstring> FromUtf8(ByteView bytes) {
    constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        char32_t ch = 0;
        const int count = Follow(bytes[i++], ch);
        if (count < 0 || bytes.size() - i < static_cast<std::size_t>(count))
            return std::nullopt;
        for (int left = count; left > 0; --left, ++i) {
            if ((bytes[i] & 0xC0) != 0x80)
                return std::nullopt;
            ch = ch << 6 | (bytes[i] & 0x3F);
        }
        if (ch < kLeast[count] || ch > 0x10FFFF || (ch >= 0xD800 && ch < 0xE000))
            return std::nullopt;
        Append(text, ch);
    }
    return text;
}

std::optional<std::wstring> FromUtf16(ByteView bytes) {
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::wstring text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const char32_t unit = bytes[i] | static_cast<char32_t>(bytes[i + 1]) << 8;
        const char32_t before = text.empty() ? 0 : static_cast<char32_t>(text.back());
        if (sizeof(wchar_t) > 2 && (unit & 0xFC00) == 0xDC00 && (before & ~0x3FFu) == 0xD800)
            text.back() = static_cast<wchar_t>(0x10000 + ((before & 0x3FF) << 10) + (unit & 0x3FF));
        else
            text.push_back(static_cast<wchar_t>(unit));
    }
    return text;
}

void AppendUnit(ByteText& bytes, char32_t unit) {
    bytes.push_back(static_cast<unsigned char>(unit & 0xFF));
    bytes.push_back(static_cast<unsigned char>(unit >> 8));
}

} // namespace

std::optional<std::wstring> UnicodeOfBytes(ByteView bytes) {
    if (Begins(bytes, kUtf8))
        return FromUtf8(bytes.substr(kUtf8.size()));
    if (Begins(bytes, kUtf16))
        return FromUtf16(bytes.substr(kUtf16.size()));
    if (bytes.find(static_cast<unsigned char>(0)) != ByteView::npos)
        return FromUtf16(bytes);
    if (std::all_of(bytes.begin(), bytes.end(), [](unsigned char byte) { return byte < 0x80; }))
        return std::nullopt;
    return FromUtf8(bytes);
}

std::optional<std::wstring> TextOfBytes(ByteView bytes, Encoding encoding) {
    if (IsOfBytes(encoding))
        return std::wstring(bytes.begin(), bytes.end());
    if (auto text = UnicodeOfBytes(bytes))
        return text;
    // ASCII of an even length could be either: letters in pairs are rarer than ASCII.
    if (auto text = FromUtf8(bytes))
        return text;
    return FromUtf16(bytes);
}

ByteText BytesOfText(std::wstring_view text, Encoding encoding) {
    ByteText bytes;
    bytes.reserve(text.size() * 2);
    for (const wchar_t ch : text) {
        const auto unit = static_cast<char32_t>(ch);
        if (IsOfBytes(encoding)) {
            bytes.push_back(static_cast<unsigned char>(unit < 256 ? unit : kReplacement));
        } else if (unit < 0x10000) {
            AppendUnit(bytes, unit);
        } else {
            AppendUnit(bytes, 0xD7C0 + (unit >> 10));
            AppendUnit(bytes, 0xDC00 + (unit & 0x3FF));
        }
    }
    return bytes;
}

} // namespace vndesk
