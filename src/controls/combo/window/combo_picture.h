// SPDX-License-Identifier: MIT
// A closed drop-down list drawn without a window: what containers show of the control in a design
// or a print.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

struct ComboPicture {
    std::wstring text;
    HFONT font;
    COLORREF backColor;
    COLORREF foreColor;
    bool enabled;
    bool themed; // as far as there is a theme
};

void DrawCombo(HDC dc, RECT rect, const ComboPicture& picture);

} // namespace vndesk
