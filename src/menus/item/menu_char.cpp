// SPDX-License-Identifier: MIT
#include "menus/item/menu_char.h"

#include "menus/item/menu_caption.h"

namespace vndesk {

namespace {

bool Matches(const LetterItem& item, wchar_t letter, bool byMnemonic,
             wchar_t (*upperCase)(wchar_t)) {
    const wchar_t mnemonic = Mnemonic(item.text);
    if (byMnemonic)
        return mnemonic != 0 && upperCase(mnemonic) == letter;
    return mnemonic == 0 && !item.text.empty() && upperCase(item.text.front()) == letter;
}

} // namespace

LetterMatch MatchLetter(const std::vector<LetterItem>& items, wchar_t letter,
                        wchar_t (*upperCase)(wchar_t)) {
    letter = upperCase(letter);
    for (const bool byMnemonic : {true, false}) {
        std::vector<int> found;
        int next = -1;
        bool passed = false;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (Matches(items[i], letter, byMnemonic, upperCase)) {
                found.push_back(static_cast<int>(i));
                if (passed && next < 0)
                    next = static_cast<int>(i);
            }
            passed = passed || items[i].highlighted;
        }
        if (found.empty())
            continue;
        const int position = next >= 0 ? next : found.front();
        return {position, found.size() == 1 && items[static_cast<std::size_t>(position)].enabled};
    }
    return {};
}

} // namespace vndesk
