// SPDX-License-Identifier: MIT
#include "text/letters/accents.h"

#include "text/letters/accents_units.h"

namespace vndesk {

namespace {

// Signs for K and Å, which Unicode takes for these letters.
constexpr wchar_t PlainSign(wchar_t ch) {
    return ch == 0x212A ? L'K' : ch == 0x212B ? L'A' : ch;
}

} // namespace

std::wstring RemoveAccents(std::wstring_view text) {
    std::wstring result(text.size(), L'\0');
    DropAccents(result.data(), text.data(), text.size());
    if (!HasInRange<kFirstMark, kEndMark>(text.data(), text.size()) &&
        !HasInRange<0x212A, 0x212C>(text.data(), text.size()))
        return result;
    // Marks go with their letters; those of other scripts stay.
    std::size_t end = 0;
    bool latin = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<char32_t>(text[i]);
        if (IsMark(unit)) {
            if (!latin)
                result[end++] = text[i];
            continue;
        }
        result[end++] = PlainSign(result[i]);
        latin = unit < 0x80 || BasePlace(unit) != 0x80 + kLatinPlaces || unit == 0x212A ||
                unit == 0x212B;
    }
    result.resize(end);
    return result;
}

} // namespace vndesk
