// SPDX-License-Identifier: MIT
#include "text/encodings/cp1258.h"

#include "text/encodings/cp1258_units.h"

namespace vndesk {

std::wstring DecodeCp1258(std::wstring_view text, Origins* origins) {
    std::wstring result(text.size(), L'\0');
    const cp1258::Decoded decoded =
        origins ? cp1258::Decode(result.data(), text.data(), text.size(),
                                 [origins](std::size_t i) { origins->push_back(i); })
                : cp1258::Decode(result.data(), text.data(), text.size(), [](std::size_t) {});
    result.resize(decoded.length);
    return result;
}

std::wstring EncodeCp1258(std::wstring_view text, Losses& losses) {
    std::wstring result(text.size() * 2 + 1, L'\0');
    const std::size_t end = cp1258::Encode(result.data(), text.data(), text.size(),
                                           [&losses](std::size_t i) { losses.push_back(i); });
    result.resize(end);
    return result;
}

} // namespace vndesk
