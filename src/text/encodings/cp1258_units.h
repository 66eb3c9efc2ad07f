// SPDX-License-Identifier: MIT
// The loops of code page 1258, for 16-bit characters as hosts pass them and for wider ones.
#pragma once

#include "text/encodings/cp1258_tables.h"

#include <cstddef>

namespace vndesk::cp1258 {

struct Decoded {
    std::size_t length = 0;
    bool composed = true; // no mark was left without a letter
};

// `out` has room for `length` units. Calls `placed` with the place of each unit that it writes.
template <class Unit, class Placed>
Decoded Decode(Unit* out, const Unit* in, std::size_t length, Placed placed) {
    const DecodeTables& tables = kDecodeTables;
    Decoded result;
    std::size_t end = 0;
    std::size_t before = 0; // the number of the last letter as one that can carry a mark
    for (std::size_t i = 0; i < length; ++i) {
        const auto unit = static_cast<char32_t>(in[i]);
        if (unit < 0x80) {
            before = tables.bases[unit];
            placed(i);
            out[end++] = in[i];
            continue;
        }
        if (unit >= 256) { // no byte, but perhaps a mark that somebody has converted
            result.composed = result.composed && !IsMark(unit);
            before = 0;
            placed(i);
            out[end++] = in[i];
            continue;
        }
        const std::size_t mark = tables.marks[unit];
        const char16_t both = kComposed[mark][before];
        const bool joins = both != 0;
        end -= joins ? 1 : 0;
        if (!joins)
            placed(i);
        out[end++] = static_cast<Unit>(joins ? both : tables.letters[unit]);
        result.composed = result.composed && (mark == 0 || joins);
        before = mark != 0 ? 0 : tables.bases[unit];
    }
    result.length = end;
    return result;
}

// The bytes of a character above ASCII; none where the page lacks it.
constexpr Bytes BytesOf(char32_t unit) {
    if (const std::size_t place = LatinPlace(unit); place < kLatinPlaces)
        return kLetterBytes[place];
    if (unit < 0x10000)
        return {CodeOf(static_cast<char16_t>(unit)), 0};
    return {};
}

// `out` has room for twice the length. Takes NFC; calls `lost` with the place of each character
// that the page lacks.
template <class Unit, class Lost>
std::size_t Encode(Unit* out, const Unit* in, std::size_t length, Lost lost) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const auto unit = static_cast<char32_t>(in[i]);
        if (unit < 0x80) {
            out[end++] = in[i];
            continue;
        }
        Bytes bytes = BytesOf(unit);
        if (bytes.first == 0) {
            bytes.first = '?';
            lost(i);
        }
        out[end] = bytes.first;
        out[end + 1] = bytes.second;
        end += bytes.second != 0 ? 2 : 1;
    }
    return end;
}

} // namespace vndesk::cp1258
