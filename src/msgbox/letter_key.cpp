// SPDX-License-Identifier: MIT
#include "msgbox/letter_key.h"

#include <windows.h>

#include "forms/keys/keys.h"

namespace vndesk {

bool PressByLetter(wchar_t character) {
    constexpr wchar_t kLastKey = 0xFF;
    if (character <= L' ')
        return false;
    CharUpperBuffW(&character, 1);
    // Letters of an input method are beyond the virtual-key codes.
    if (character <= kLastKey)
        Gui_Phim(character, 3);
    return true;
}

} // namespace vndesk
