// SPDX-License-Identifier: MIT
// Names in the order of a list, searched by their beginning: the first one of the list counts.
// Names and beginnings come upper-cased, in one block of memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

class NameSearch {
public:
    void Clear();
    void Add(std::wstring_view name);

    // Sorts the names. Before, Find takes some milliseconds for 100,000 names; afterwards
    // microseconds. Sorting itself takes longer: do it when the list is on the screen.
    void Index();

    // The position of the first name with this beginning, or -1.
    long Find(std::wstring_view beginning) const;

private:
    std::size_t Count() const { return ends_.size(); }
    std::wstring_view Name(std::size_t position) const;
    long FirstOf(std::size_t begin, std::size_t end) const;

    std::wstring letters_;
    std::vector<std::size_t> ends_;
    // Positions in the order of their names, behind the tree of their minimums: node n has the
    // children 2n and 2n + 1, its leaves are the second half. Empty until Index.
    std::vector<std::uint32_t> sorted_;
};

} // namespace vndesk
