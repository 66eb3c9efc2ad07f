// SPDX-License-Identifier: MIT
#include "controls/picker/found_names.h"

#include <algorithm>
#include <utility>

namespace vndesk {

namespace {

// More than any screen shows.
constexpr std::size_t kFirst = 300;
// The state of the queue is looked at after so many.
constexpr std::size_t kStep = 100;

bool SomebodyWaits() {
    return HIWORD(GetQueueStatus(QS_KEY | QS_MOUSEBUTTON | QS_SENDMESSAGE)) != 0;
}

} // namespace

void FoundNames::Add(std::wstring name, std::wstring code) {
    if (hits_.AddIfFound(name, asked_))
        rows_.push_back({std::move(name), std::move(code)});
}

void FoundNames::Append(clsListBox& list) {
    const Row& row = rows_[found_[shown_++]];
    list.AddItem(row.name);
    list.SetItemData(list.NewIndex(), row.code);
}

void FoundNames::Show(clsListBox& list, const std::wstring& typed) {
    found_ = hits_.Find(typed);
    shown_ = 0;
    const ItemList::Filling filling = list.Filling();
    list.Clear();
    while (shown_ < std::min(kFirst, found_.size()))
        Append(list);
}

bool FoundNames::ShowMore(clsListBox& list) {
    if (shown_ == found_.size())
        return false;
    const ItemList::Filling filling = list.Filling();
    while (shown_ < found_.size() && (shown_ % kStep != 0 || !SomebodyWaits()))
        Append(list);
    return shown_ < found_.size();
}

} // namespace vndesk
