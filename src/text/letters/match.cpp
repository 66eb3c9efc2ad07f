// SPDX-License-Identifier: MIT
#include "text/letters/match.h"

namespace vndesk {

namespace {

LetterKey MaskOf(LetterKey letter, Sensitivity sensitivity) {
    switch (sensitivity) {
    case Sensitivity::Insensitive:
        return kBaseBits;
    case Sensitivity::Smart:
        return kBaseBits | (letter & kShapeBits ? kShapeBits : 0) |
               (letter & kToneBits ? kToneBits : 0);
    default:
        return kAllBits;
    }
}

} // namespace

SearchPattern::SearchPattern(std::wstring_view text, Sensitivity sensitivity)
    : letters_(Fold(text)) {
    for (LetterKey& letter : letters_) {
        letter &= kAllBits;
        masks_.push_back(MaskOf(letter, sensitivity));
    }
    exact_.assign(letters_.size(), kAllBits);
}

// The letter at an edge of the pattern, where the pattern ends between the two vowels of a pair:
// then it may have the tone that the text would have there in the other place.
bool SearchPattern::EdgeFits(const LetterKey* text, std::size_t at, std::size_t length,
                             const LetterKey* masks, std::size_t i) const {
    const LetterKey letter = text[at + i];
    const auto fits = [&](Tone tone) {
        return ((WithTone(letter, tone) ^ letters_[i]) & masks[i]) == 0;
    };
    if (i == 0 && (letter & kPairSecond) && fits(Tone::Level))
        return true;
    return i + 1 == letters_.size() && (letter & kPairFirst) && at + i + 1 < length &&
           fits(ToneOf(text[at + i + 1]));
}

bool SearchPattern::StandsAt(const LetterKey* text, std::size_t at, std::size_t length,
                             const LetterKey* masks) const {
    for (std::size_t i = 0; i < letters_.size(); ++i)
        if (((text[at + i] ^ letters_[i]) & masks[i]) != 0 && !EdgeFits(text, at, length, masks, i))
            return false;
    return true;
}

Match SearchPattern::In(std::span<const LetterKey> text) const {
    const std::size_t count = letters_.size();
    if (count == 0)
        return Match::AtStartExactly;
    if (count > text.size())
        return Match::None;
    if (StandsAt(text.data(), 0, text.size(), masks_.data()))
        return StandsAt(text.data(), 0, text.size(), exact_.data()) ? Match::AtStartExactly
                                                                    : Match::AtStart;
    Match best = Match::None;
    const LetterKey first = letters_[0] & kBaseBits;
    for (std::size_t at = 1; at + count <= text.size(); ++at) {
        if ((text[at] & kBaseBits) != first ||
            !StandsAt(text.data(), at, text.size(), masks_.data()))
            continue;
        if (!(text[at - 1] & kWordBit))
            return Match::AtWord;
        best = Match::Anywhere;
    }
    return best;
}

Match Matches(std::wstring_view text, std::wstring_view pattern, Sensitivity sensitivity) {
    return SearchPattern(pattern, sensitivity).In(Fold(text));
}

} // namespace vndesk
