// SPDX-License-Identifier: MIT
// Draws a picture of an image list beside a menu item, in any size.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "menus/item/item_colors.h"
#include "menus/item/menu_layout.h"

namespace vndesk {

struct PictureLook {
    bool disabled = false;
    bool colorEmbossed = true; // disabled pictures keep a trace of their colours
};

bool HasPicture(HIMAGELIST list, int index);
void DrawPicture(HDC dc, const Box& box, HIMAGELIST list, int index, const PictureLook& look);

} // namespace vndesk
