// SPDX-License-Identifier: MIT
// Whether a text has what a user has typed of it, with as many accents as the user cared to type.
#pragma once

#include "text/letters/folded_text.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace vndesk {

enum class Sensitivity {
    Sensitive,   // shapes and tones must agree
    Smart,       // those that the pattern has must agree
    Insensitive, // bases alone count
};

// Better ones are greater.
enum class Match { None, Anywhere, AtWord, AtStart, AtStartExactly };

class SearchPattern {
public:
    SearchPattern(std::wstring_view text, Sensitivity sensitivity);

    // The best place of the pattern in the text. The empty pattern begins every text.
    Match In(std::span<const LetterKey> text) const;

private:
    bool StandsAt(const LetterKey* text, std::size_t at, std::size_t length,
                  const LetterKey* masks) const;
    bool EdgeFits(const LetterKey* text, std::size_t at, std::size_t length, const LetterKey* masks,
                  std::size_t i) const;

    FoldedText letters_;
    FoldedText masks_; // which bits of each letter must agree
    FoldedText exact_;
};

Match Matches(std::wstring_view text, std::wstring_view pattern, Sensitivity sensitivity);

} // namespace vndesk
