// SPDX-License-Identifier: MIT
// Unicode's normal forms for Latin letters: with their marks in one character (NFC), or in
// characters of their own (NFD). Other scripts pass as they are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vndesk {

// A letter taken apart: what stands without marks, and the marks in Unicode's order.
struct Cluster {
    wchar_t base = 0; // 0: marks without a letter before them
    bool hasBase = false;
    std::wstring marks;
    std::size_t length = 0; // units of the text
};

// The letter that begins at the position, with the marks behind it.
Cluster ReadCluster(std::wstring_view text, std::size_t at);

// The fewest characters for a letter.
void AppendComposed(std::wstring& to, const Cluster& letter);
void AppendDecomposed(std::wstring& to, const Cluster& letter);

std::wstring ToNfc(std::wstring_view text);
std::wstring ToNfd(std::wstring_view text);

// False where ToNfc could change something; quick.
bool IsSurelyNfc(std::wstring_view text);

} // namespace vndesk
