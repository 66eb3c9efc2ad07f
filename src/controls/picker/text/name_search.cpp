// SPDX-License-Identifier: MIT
#include "controls/picker/text/name_search.h"

#include <algorithm>
#include <numeric>

namespace vndesk {

void NameSearch::Clear() {
    letters_.clear();
    ends_.clear();
    sorted_.clear();
}

void NameSearch::Add(std::wstring_view name) {
    letters_.append(name);
    ends_.push_back(letters_.size());
    sorted_.clear();
}

std::wstring_view NameSearch::Name(std::size_t position) const {
    const std::size_t start = position == 0 ? 0 : ends_[position - 1];
    return std::wstring_view(letters_).substr(start, ends_[position] - start);
}

void NameSearch::Index() {
    const std::size_t count = Count();
    sorted_.resize(2 * count);
    const auto leaves = sorted_.begin() + static_cast<std::ptrdiff_t>(count);
    std::iota(leaves, sorted_.end(), 0u);
    const auto byName = [this](std::uint32_t left, std::uint32_t right) {
        return Name(left) < Name(right);
    };
    // Most statements already order their rows.
    if (!std::is_sorted(leaves, sorted_.end(), byName))
        std::sort(leaves, sorted_.end(), byName);
    for (std::size_t node = count; node-- > 1;)
        sorted_[node] = std::min(sorted_[2 * node], sorted_[2 * node + 1]);
}

long NameSearch::Find(std::wstring_view beginning) const {
    if (sorted_.empty()) {
        for (std::size_t i = 0; i < Count(); ++i)
            if (Name(i).starts_with(beginning))
                return static_cast<long>(i);
        return -1;
    }
    const auto leaves = sorted_.begin() + static_cast<std::ptrdiff_t>(Count());
    const auto start = [&](std::uint32_t position) {
        return Name(position).substr(0, beginning.size());
    };
    const auto begin = std::partition_point(
        leaves, sorted_.end(), [&](std::uint32_t position) { return start(position) < beginning; });
    const auto end = std::partition_point(
        begin, sorted_.end(), [&](std::uint32_t position) { return start(position) == beginning; });
    return FirstOf(static_cast<std::size_t>(begin - sorted_.begin()),
                   static_cast<std::size_t>(end - sorted_.begin()));
}

// The least position among the leaves from `begin` up to `end`, or -1: from both ends towards the
// root.
long NameSearch::FirstOf(std::size_t begin, std::size_t end) const {
    if (begin == end)
        return -1;
    std::uint32_t first = UINT32_MAX;
    for (; begin < end; begin /= 2, end /= 2) {
        if (begin % 2 != 0)
            first = std::min(first, sorted_[begin++]);
        if (end % 2 != 0)
            first = std::min(first, sorted_[--end]);
    }
    return static_cast<long>(first);
}

} // namespace vndesk
