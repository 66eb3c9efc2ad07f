// SPDX-License-Identifier: MIT
// Whether a menu item is one of ours. There is one rule: an item is ours when a conversion gave it
// its number and it still is the item that got it. The number says which one that may be; hosts can
// hold the same number in items of their own. The item itself is known by the place where it was
// seen last, by its command and caption where that place holds it no more, and, once no item of its
// menu holds the number, by its likeness in another menu. An item whose data the host has
// overwritten is known by place, command and caption.
#pragma once

#include <windows.h>

#include "menus/hook/menu_items.h"
#include "menus/state/item_data.h"
#include "menus/state/wnd_cool_menu.h"

namespace vndesk {

// What is known of the item at a place; null for items of others. `item` is what was read there.
CMyItemData* OurItem(HMENU menu, UINT position, const MenuItem& item);

// The same for those that are drawn by us now: a host may have made an item a text of its own
// since.
CMyItemData* OurDrawnItem(HMENU menu, UINT position);

// For messages, which have the command and the data of an item but not its position. WM_MEASUREITEM
// does not name the menu either: `menu` is null there.
CMyItemData* OurDrawnItem(const WndCoolMenu& window, HMENU menu, UINT id, ULONG_PTR data);

// Whether the host made the item after one of ours, with all that it read from it.
const CMyItemData* CopiedItem(const MenuItem& item);

} // namespace vndesk
