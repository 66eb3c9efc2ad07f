// SPDX-License-Identifier: MIT
// Which item of a menu a typed letter means.
#pragma once

#include <string>
#include <vector>

namespace vndesk {

struct LetterItem {
    std::wstring text;
    bool enabled = true;
    bool highlighted = false;
};

struct LetterMatch {
    int position = -1;
    bool execute = false; // else it is only moved to
};

// Compares upper-cased letters. Items with the letter after "&" come first, then items without any
// such letter by their first one. Where several match, the next one after the highlighted.
LetterMatch MatchLetter(const std::vector<LetterItem>& items, wchar_t letter,
                        wchar_t (*upperCase)(wchar_t));

} // namespace vndesk
