// SPDX-License-Identifier: MIT
#include "text/letters/folded_text.h"

#include "text/letters/normal_form.h"

namespace vndesk {

namespace {

constexpr LetterKey kFoldedBlank = L' ';

LetterKey KeyOf(wchar_t ch) {
    const auto unit = static_cast<char32_t>(ch);
    if (unit < 0x80)
        return kLetterKeys[unit];
    if (const std::size_t place = LatinPlace(unit); place < kLatinPlaces)
        return kLetterKeys[0x80 + place];
    const auto lower = static_cast<LetterKey>(static_cast<char32_t>(ToLowerLetter(ch)));
    return (lower & kBaseBits) | (IsWordUnit(ch) ? kWordBit : 0);
}

LetterKey KeyOf(const Cluster& letter) {
    // Marks alone are letters of their own.
    LetterKey key = letter.hasBase ? KeyOf(letter.base) : kWordBit;
    for (const wchar_t mark : letter.marks)
        key = WithMark(key, static_cast<char32_t>(mark));
    return key;
}

// oa, oe, uy without shapes: the vowels of which either may carry the tone.
constexpr bool IsPair(LetterKey first, LetterKey second) {
    const LetterKey vowel = second & (kBaseBits | kShapeBits);
    switch (first & (kBaseBits | kShapeBits)) {
    case L'o':
        return vowel == L'a' || vowel == L'e';
    case L'u':
        return vowel == L'y';
    default:
        return false;
    }
}

// The tone to the second vowel, where closed syllables have it anyway: what a user has typed of
// hoàng then begins like it.
void JoinPair(FoldedText& text, std::size_t begin, std::size_t at) {
    LetterKey& first = text[at];
    LetterKey& second = text[at + 1];
    const bool onFirst = ToneOf(first) != Tone::Level;
    if (onFirst == (ToneOf(second) != Tone::Level))
        return;
    const bool open = at + 2 == text.size() || !(text[at + 2] & kWordBit);
    const bool afterQ = at > begin && (text[at - 1] & kBaseBits) == L'q';
    if (onFirst) {
        second = WithTone(second, ToneOf(first));
        first = WithTone(first, Tone::Level);
    }
    if (onFirst || (open && !afterQ)) {
        first |= kPairFirst;
        second |= kPairSecond;
    }
}

} // namespace

bool IsBlank(wchar_t ch) {
    return ch == L' ' || (ch >= L'\t' && ch <= L'\r') || ch == 0x00A0 ||
           (ch >= 0x2000 && ch <= 0x200A) || ch == 0x202F || ch == 0x3000;
}

void AppendFolded(FoldedText& to, std::wstring_view text) {
    const std::size_t begin = to.size();
    to.resize(begin + text.size());
    LetterKey* out = to.data() + begin;
    const LetterKey* const first = out;
    bool pairs = false;
    for (std::size_t at = 0; at < text.size();) {
        const wchar_t ch = text[at];
        if (at + 1 < text.size() && IsMark(static_cast<char32_t>(text[at + 1]))) {
            const Cluster letter = ReadCluster(text, at);
            *out = KeyOf(letter);
            at += letter.length;
        } else if (IsBlank(ch)) {
            ++at;
            if (out != first && out[-1] == kFoldedBlank)
                continue;
            *out = kFoldedBlank;
        } else if (IsMark(static_cast<char32_t>(ch)) || ch == 0x212A || ch == 0x212B) {
            const Cluster letter = ReadCluster(text, at);
            *out = KeyOf(letter);
            at += letter.length;
        } else {
            *out = KeyOf(ch);
            ++at;
        }
        pairs = pairs || (out != first && IsPair(out[-1], *out));
        ++out;
    }
    to.resize(begin + static_cast<std::size_t>(out - first));
    for (std::size_t at = begin; pairs && at + 1 < to.size(); ++at)
        if (IsPair(to[at], to[at + 1]))
            JoinPair(to, begin, at);
}

FoldedText Fold(std::wstring_view text) {
    FoldedText folded;
    AppendFolded(folded, text);
    return folded;
}

} // namespace vndesk
