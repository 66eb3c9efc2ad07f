// SPDX-License-Identifier: MIT
// The fonts that menus are drawn with: each window's own, and the glyphs that all windows share.
#pragma once

#include <windows.h>

#include <string>

#include "forms/handles.h"

namespace vndesk {

struct MenuFonts {
    UniqueFont item;
    UniqueFont defaultItem; // the same in bold
    UniqueFont separator;   // captions of separators: a little smaller
    int dpi = 0;
};

// An empty name is the system's menu font.
MenuFonts BuildMenuFonts(HWND window, const std::wstring& name, long points);

// Marlett in the heights last asked for: check and radio marks, submenu arrows, the signs of the
// system menu.
class SharedFonts {
public:
    enum Use { kMark, kArrow, kSign };

    HFONT Glyphs(Use use, int height);

private:
    struct Sized {
        UniqueFont font;
        int height = 0;
    };
    Sized fonts_[3];
};

} // namespace vndesk
