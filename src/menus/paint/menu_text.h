// SPDX-License-Identifier: MIT
// How much room the captions of a menu take in its fonts.
#pragma once

#include <windows.h>

#include "menus/item/menu_layout.h"
#include "menus/state/item_data.h"
#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

MenuMetrics MetricsOf(WndCoolMenu& window);

// Text, gap and shortcut column; the width of the column is the menu's.
Extent CaptionExtent(WndCoolMenu& window, const CMyItemData& data);

// Of the items that were ours when the menu was looked through last.
int WidestShortcut(WndCoolMenu& window, HMENU menu);

// Whether a double click on the parent would choose the item.
bool IsDefaultItem(const CMyItemData& data);

// The font of an item: bold for the default one, smaller for captions of separators.
HFONT FontOf(WndCoolMenu& window, const CMyItemData& data, bool isDefault);

} // namespace vndesk
