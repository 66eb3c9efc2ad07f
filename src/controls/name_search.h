// SPDX-License-Identifier: MIT
// Names in the order of a list, searched by their beginning from the top. Names and beginnings come
// upper-cased, in one block of memory: a search through 100,000 of them is over before the user has
// let the key go.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

class NameSearch {
public:
    void Clear() {
        letters_.clear();
        ends_.clear();
    }

    void Add(std::wstring_view name) {
        letters_.append(name);
        ends_.push_back(letters_.size());
    }

    // The position of the first name with this beginning, or -1.
    long Find(std::wstring_view beginning) const {
        const std::wstring_view letters = letters_;
        size_t start = 0;
        for (size_t i = 0; i < ends_.size(); start = ends_[i++])
            if (letters.substr(start, ends_[i] - start).starts_with(beginning))
                return static_cast<long>(i);
        return -1;
    }

private:
    std::wstring letters_;
    std::vector<size_t> ends_;
};

} // namespace vndesk
