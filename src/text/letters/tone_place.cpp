// SPDX-License-Identifier: MIT
#include "text/letters/tone_place.h"

#include "text/letters/letter_case.h"
#include "text/letters/letter_keys.h"

namespace vndesk {

namespace {

struct Vowel {
    wchar_t bare = 0;
    char16_t tone = 0;
};

Vowel Split(wchar_t letter) {
    const LetterParts parts = PartsOf(static_cast<char32_t>(letter));
    if (parts.base == 0 || ToneOfMark(parts.mark) == Tone::Level)
        return {letter, 0};
    return {static_cast<wchar_t>(parts.base), parts.mark};
}

wchar_t Joined(wchar_t bare, char16_t tone) {
    return static_cast<wchar_t>(Composed(static_cast<char32_t>(bare), tone));
}

bool IsPair(wchar_t first, wchar_t second) {
    second = ToLowerLetter(second);
    switch (ToLowerLetter(first)) {
    case L'o':
        return second == L'a' || second == L'e';
    case L'u':
        return second == L'y';
    default:
        return false;
    }
}

} // namespace

std::wstring MoveTones(std::wstring_view text, TonePlace place) {
    std::wstring result(text);
    for (std::size_t i = 0; i + 1 < result.size(); ++i) {
        const Vowel first = Split(result[i]), second = Split(result[i + 1]);
        if ((first.tone == 0) == (second.tone == 0) || !IsPair(first.bare, second.bare))
            continue;
        const bool open = i + 2 == result.size() || !IsWordUnit(result[i + 2]);
        const bool afterQ = i > 0 && ToLowerLetter(result[i - 1]) == L'q';
        const bool toFirst = place == TonePlace::Old && open && !afterQ;
        const char16_t tone = first.tone != 0 ? first.tone : second.tone;
        result[i] = toFirst ? Joined(first.bare, tone) : first.bare;
        result[i + 1] = toFirst ? second.bare : Joined(second.bare, tone);
    }
    return result;
}

} // namespace vndesk
