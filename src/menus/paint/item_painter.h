// SPDX-License-Identifier: MIT
// Draws one menu item into a device context.
#pragma once

#include <windows.h>

#include "menus/item/item_colors.h"
#include "menus/item/menu_layout.h"
#include "menus/state/item_data.h"
#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

SystemColors ReadSystemColors();

void PaintItem(HDC dc, const Box& item, WndCoolMenu& window, const CMyItemData& data,
               const ItemState& state);

} // namespace vndesk
