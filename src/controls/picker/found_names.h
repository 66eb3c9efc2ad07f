// SPDX-License-Identifier: MIT
// The rows of a picker whose list shrinks to the names that are found while the user types. Filling
// a list box takes longer than the search: the best names are there at once, the rest follows while
// no key waits.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/picker/cls_list_box.h"
#include "text/letters/name_hits.h"

namespace vndesk {

class FoundNames {
public:
    // Of the rows, those count that are found by what they were asked for with.
    FoundNames(SearchRules rules, const std::wstring& asked)
        : hits_(rules), asked_(asked, rules.accents) {}

    void Add(std::wstring name, std::wstring code);

    // The beginning of the list for what is typed; nothing is selected.
    void Show(clsListBox& list, const std::wstring& typed);
    // The rest, as long as no key waits. False when the list has everything.
    bool ShowMore(clsListBox& list);

private:
    struct Row {
        std::wstring name, code;
    };

    void Append(clsListBox& list);

    NameHits hits_;
    const SearchPattern asked_;
    std::vector<Row> rows_;
    std::vector<std::uint32_t> found_;
    std::size_t shown_ = 0;
};

} // namespace vndesk
