// SPDX-License-Identifier: MIT
// The fonts and sizes that menus are drawn with: each window's own, and what all windows share.
#pragma once

#include <windows.h>

#include <string>

#include "comkit/base/handles.h"

namespace vndesk {

struct MenuFonts {
    UniqueFont item;
    UniqueFont defaultItem; // the same in bold
    UniqueFont separator;   // captions of separators: a little smaller
    int dpi = 0;
    // SM_CYMENU and SM_CXMENUCHECK at that resolution. GetSystemMetricsForDpi makes a font for the
    // second, which takes as long as drawing ten items.
    int barHeight = 0;
    int checkWidth = 0;
};

// An empty name is the system's menu font.
MenuFonts BuildMenuFonts(HWND window, const std::wstring& name, long points);

// Marlett in the heights last asked for: check and radio marks, submenu arrows, the signs of the
// system menu.
class SharedFonts {
public:
    enum Use { kMark, kArrow, kSign };

    HFONT Glyphs(Use use, int height);

    // For measuring; the screen's own device context is fetched from the window system each time.
    HDC MeasuringDc();

private:
    struct Sized {
        UniqueFont font;
        int height = 0;
    };
    Sized fonts_[3];
    // Of the screen's format: one of two colours has letters of other widths. It goes with the
    // device context, which is the last member for that.
    UniqueBitmap pixel_;
    UniqueHandle<HDC, DeleteDC> measuring_;
};

} // namespace vndesk
