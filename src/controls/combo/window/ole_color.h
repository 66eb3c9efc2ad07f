// SPDX-License-Identifier: MIT
// Colours as hosts write them: a number of red, green and blue, or one that names a system colour.
#pragma once

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

namespace vndesk {

// Black where the number names no colour.
inline COLORREF Translated(OLE_COLOR color) {
    COLORREF result = 0;
    return SUCCEEDED(OleTranslateColor(color, nullptr, &result)) ? result : 0;
}

} // namespace vndesk
