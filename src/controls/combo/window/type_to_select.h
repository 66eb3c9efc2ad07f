// SPDX-License-Identifier: MIT
// The item of a list that a user means who types its beginning, with as many accents as the user
// cares to type. Windows' own lists know the first letter alone, and every accent of it.
#pragma once

#include <windows.h>

#include <string>

#include "controls/combo/window/combo_box.h"
#include "text/letters/match.h"

namespace vndesk {

class TypeToSelect {
public:
    // Sensitive leaves the keys to the list itself.
    Sensitivity accents = Sensitivity::Sensitive;

    // Whether the character is typed of an item, and not for the list.
    bool Takes(wchar_t character);
    // The item for what has been typed without a pause; -1 where there is none.
    long Item(const ComboBox& list) const;

private:
    std::wstring typed_;
    DWORD last_ = 0;
};

} // namespace vndesk
