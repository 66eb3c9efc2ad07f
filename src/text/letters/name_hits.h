// SPDX-License-Identifier: MIT
// The names of a list that a search finds, best first: folded and put in order once, so that each
// key takes a pass over numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "text/letters/match.h"

namespace vndesk {

struct SearchRules {
    Sensitivity accents = Sensitivity::Sensitive;
    bool anywhere = false; // not at the beginning of a name alone

    bool Take(Match match) const { return match >= (anywhere ? Match::Anywhere : Match::AtStart); }
};

class NameHits {
public:
    explicit NameHits(SearchRules rules) : rules_(rules) {}

    void Add(std::wstring_view name);
    // Only where a search for the pattern takes it. Names that are left out have no position.
    bool AddIfFound(std::wstring_view name, const SearchPattern& pattern);
    std::size_t Count() const { return spans_.size(); }

    // Positions in the order of adding: better matches first, equal ones in Vietnamese order.
    std::vector<std::uint32_t> Find(std::wstring_view typed);

private:
    struct Span {
        std::size_t begin, end;
        std::uint32_t position;
    };

    std::span<const LetterKey> Letters(const Span& span) const {
        return {letters_.data() + span.begin, span.end - span.begin};
    }
    void Sort();

    const SearchRules rules_;
    FoldedText letters_;
    std::vector<Span> spans_;
    bool sorted_ = true;
};

} // namespace vndesk
