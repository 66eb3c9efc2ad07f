// SPDX-License-Identifier: MIT
#include "text/encodings/vni.h"

#include "text/encodings/vni_tables.h"

namespace vndesk {

std::wstring DecodeVni(std::wstring_view text, Origins* origins) {
    using vni::kTables;
    std::wstring result(text.size(), L'\0');
    std::size_t end = 0;
    for (std::size_t i = 0; i < text.size(); ++i, ++end) {
        const auto unit = static_cast<char32_t>(text[i]);
        if (origins)
            origins->push_back(i);
        if (unit >= 256) {
            result[end] = text[i];
            continue;
        }
        const auto next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : 0;
        const char16_t both =
            next < 256 ? kTables.both[kTables.bases[unit]][kTables.accents[next]] : char16_t{0};
        result[end] = static_cast<wchar_t>(both != 0 ? both : kTables.letters[unit]);
        i += both != 0 ? 1 : 0;
    }
    result.resize(end);
    return result;
}

std::wstring EncodeVni(std::wstring_view text, Losses& losses) {
    std::wstring result(text.size() * 2, L'\0');
    std::size_t end = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<char32_t>(text[i]);
        const vni::Bytes bytes = vni::kEncodeTable[BasePlace(unit)];
        if (bytes.first != 0) {
            result[end++] = bytes.first;
            if (bytes.second != 0)
                result[end++] = bytes.second;
        } else if (unit == 0 || (unit >= 0x80 && unit < kFirstLatin)) {
            result[end++] = text[i];
        } else {
            result[end++] = kReplacement;
            losses.push_back(i);
        }
    }
    result.resize(end);
    return result;
}

} // namespace vndesk
