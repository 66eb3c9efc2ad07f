// SPDX-License-Identifier: MIT
// A beginning, then names, one a line; those that end with "*" are selected. Finding and taking
// agree with looking at every name.
#include "support/input.h"

#include <string>
#include <vector>

#include "controls/picker/text/name_search.h"
#include "data/lists/list_box.h"

namespace vndesk::fuzz {

namespace {

struct Item {
    std::wstring text;
    long data;
};

// The members of a list box that the helpers need.
class List {
public:
    void AddItem(const std::wstring& text) { items.push_back({text, 0}); }
    long NewIndex() const { return static_cast<long>(items.size()) - 1; }
    void SetItemData(long index, long data) { At(index).data = data; }
    long ItemData(long index) { return At(index).data; }
    long ListCount() const { return static_cast<long>(items.size()); }
    bool Selected(long index) { return At(index).text.ends_with(L'*'); }
    void RemoveItem(long index) { items.erase(items.begin() + (&At(index) - items.data())); }

    std::vector<Item> items;

private:
    Item& At(long index) {
        MUST(index >= 0 && index < ListCount());
        return items[static_cast<std::size_t>(index)];
    }
};

} // namespace

void RunOne(Input& input) {
    const std::wstring beginning = input.Text();
    NameSearch search;
    List list;
    std::wstring wanted;
    long found = -1;
    for (long i = 0; i < 40; ++i) {
        const std::wstring name = input.Text();
        search.Add(name);
        AddListItem(list, name, i * 7);
        if (found < 0 && name.substr(0, beginning.size()) == beginning)
            found = i;
        if (name.ends_with(L'*'))
            wanted += (wanted.empty() ? L"" : L",") + std::to_wstring(i * 7);
        MUST(FindItemByData(list, i * 7) == i);
    }
    MUST(search.Find(beginning) == found);
    MUST(TakeSelectedItems(list) == wanted);
    for (const Item& item : list.items)
        MUST(!item.text.ends_with(L'*'));
    search.Clear();
    MUST(search.Find(beginning) == -1);
}

} // namespace vndesk::fuzz
