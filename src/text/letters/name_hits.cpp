// SPDX-License-Identifier: MIT
#include "text/letters/name_hits.h"

#include <algorithm>
#include <array>
#include <string>

#include "text/letters/collation.h"

namespace vndesk {

namespace {

// The first units of a sort key as one number, of as many bits as ASCII has. A unit above ends it,
// because what stands behind would be compared before it.
std::uint64_t BeginningOf(std::wstring_view key) {
    constexpr std::uint64_t kLast = 0x7F;
    std::uint64_t number = 0;
    bool ended = false;
    for (std::size_t i = 0; i < 9; ++i) {
        std::uint64_t unit = 0;
        if (i < key.size() && !ended) {
            unit = std::min<std::uint64_t>(static_cast<char32_t>(key[i]), kLast);
            ended = unit == kLast;
        }
        number = number << 7 | unit;
    }
    return number;
}

} // namespace

void NameHits::Add(std::wstring_view name) {
    const std::size_t begin = letters_.size();
    AppendFolded(letters_, name);
    spans_.push_back({begin, letters_.size(), static_cast<std::uint32_t>(spans_.size())});
    sorted_ = false;
}

bool NameHits::AddIfFound(std::wstring_view name, const SearchPattern& pattern) {
    Add(name);
    if (rules_.Take(pattern.In(Letters(spans_.back()))))
        return true;
    letters_.resize(spans_.back().begin);
    spans_.pop_back();
    return false;
}

// The letters move, too: a pass over the names then goes straight through memory.
void NameHits::Sort() {
    struct Place {
        std::uint64_t beginning;
        std::size_t key, keyEnd;
        std::size_t span;
    };
    std::wstring keys;
    std::vector<Place> order;
    order.reserve(spans_.size());
    for (std::size_t i = 0; i < spans_.size(); ++i) {
        const std::size_t key = keys.size();
        AppendSortKey(keys, Letters(spans_[i]));
        order.push_back({BeginningOf(std::wstring_view(keys).substr(key)), key, keys.size(), i});
    }
    const auto keyOf = [&keys](const Place& place) {
        return std::wstring_view(keys).substr(place.key, place.keyEnd - place.key);
    };
    std::sort(order.begin(), order.end(), [&](const Place& left, const Place& right) {
        if (left.beginning != right.beginning)
            return left.beginning < right.beginning;
        if (const int compared = keyOf(left).compare(keyOf(right)); compared != 0)
            return compared < 0;
        return spans_[left.span].position < spans_[right.span].position;
    });
    FoldedText letters;
    std::vector<Span> spans;
    letters.reserve(letters_.size());
    spans.reserve(spans_.size());
    for (const Place& place : order) {
        const auto name = Letters(spans_[place.span]);
        const std::size_t begin = letters.size();
        letters.insert(letters.end(), name.begin(), name.end());
        spans.push_back({begin, letters.size(), spans_[place.span].position});
    }
    letters_.swap(letters);
    spans_.swap(spans);
    sorted_ = true;
}

std::vector<std::uint32_t> NameHits::Find(std::wstring_view typed) {
    if (!sorted_)
        Sort();
    const SearchPattern pattern(typed, rules_.accents);
    std::array<std::vector<std::uint32_t>, static_cast<std::size_t>(Match::AtStartExactly) + 1>
        found;
    for (const Span& span : spans_)
        if (const Match match = pattern.In(Letters(span)); rules_.Take(match))
            found[static_cast<std::size_t>(match)].push_back(span.position);
    std::vector<std::uint32_t> hits = std::move(found.back());
    for (std::size_t match = found.size() - 1; match-- > 0;)
        hits.insert(hits.end(), found[match].begin(), found[match].end());
    return hits;
}

} // namespace vndesk
