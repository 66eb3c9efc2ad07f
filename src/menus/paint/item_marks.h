// SPDX-License-Identifier: MIT
// The signs of menus, drawn with the glyphs of Marlett: check and radio marks, submenu arrows, the
// signs of the system menu.
#pragma once

#include <windows.h>

#include "menus/item/item_colors.h"
#include "menus/item/menu_layout.h"
#include "menus/state/menu_fonts.h"

namespace vndesk {

struct Mark {
    bool radio = false;
    bool checked = false;
};

// A box or ring with the mark in it, in the colours of a window.
void DrawBoxedMark(HDC dc, const Box& box, Mark mark, const SystemColors& system, bool disabled,
                   SharedFonts& fonts);
// The bare mark.
void DrawPlainMark(HDC dc, const Box& box, Mark mark, Color color, SharedFonts& fonts);

void DrawArrow(HDC dc, const Box& box, bool rightToLeft, Color color, SharedFonts& fonts);

// The sign of a system command, such as the cross of SC_CLOSE; 0 for commands without one.
wchar_t SystemSign(UINT command);
void DrawSign(HDC dc, const Box& box, wchar_t sign, Color color, SharedFonts& fonts);

} // namespace vndesk
