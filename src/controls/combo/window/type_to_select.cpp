// SPDX-License-Identifier: MIT
#include "controls/combo/window/type_to_select.h"

#include <algorithm>

namespace vndesk {

namespace {

// What lists of Windows take for the end of a text.
constexpr DWORD kPause = 1000;
constexpr wchar_t kBackspace = 8;

// From an item on, and around. The beginning with equal accents counts more, or all count alike.
long FirstItem(const ComboBox& list, std::wstring_view typed, Sensitivity accents, long from,
               bool bestFirst) {
    const SearchPattern pattern(typed, accents);
    const Match wanted = bestFirst ? Match::AtStartExactly : Match::AtStart;
    const long count = list.Count();
    long other = -1;
    for (long i = 0; i < count; ++i) {
        const long item = (from + i) % count;
        const Match match = pattern.In(Fold(list.Text(item)));
        if (match >= wanted)
            return item;
        if (other < 0 && match >= Match::AtStart)
            other = item;
    }
    return other;
}

} // namespace

bool TypeToSelect::Takes(wchar_t character) {
    const DWORD now = GetTickCount();
    if (accents == Sensitivity::Sensitive || now - last_ > kPause)
        typed_.clear();
    if (accents == Sensitivity::Sensitive)
        return false;
    last_ = now;
    // Input methods take back a letter to put another one in its place.
    if (character == kBackspace) {
        if (typed_.empty())
            return false;
        typed_.pop_back();
        return true;
    }
    if (character < L' ' || (character == L' ' && typed_.empty()))
        return false;
    typed_ += character;
    return true;
}

long TypeToSelect::Item(const ComboBox& list) const {
    if (typed_.empty())
        return -1;
    const long current = std::max(list.Index(), 0L);
    if (typed_.size() > 1)
        if (const long item = FirstItem(list, typed_, accents, current, true); item >= 0)
            return item;
    // One letter, again and again, goes from item to item.
    if (typed_.find_first_not_of(typed_[0]) != std::wstring::npos)
        return -1;
    return FirstItem(list, typed_.substr(0, 1), accents, list.Index() + 1, false);
}

} // namespace vndesk
