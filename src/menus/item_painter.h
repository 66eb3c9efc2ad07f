// SPDX-License-Identifier: MIT
// Draws one menu item into a device context.
#pragma once

#include <windows.h>

#include "item_colors.h"
#include "item_data.h"
#include "menu_layout.h"
#include "wnd_cool_menu.h"

namespace vndesk {

SystemColors ReadSystemColors();

void PaintItem(HDC dc, const Box& item, WndCoolMenu& window, const CMyItemData& data,
               const ItemState& state);

} // namespace vndesk
