// SPDX-License-Identifier: MIT
#include "our_items.h"

#include "menu_module.h"

namespace vndesk {

namespace {

// Whether the place where the item was seen last still has it.
bool StandsThere(const CMyItemData& data) {
    MenuItem item;
    return ReadItem(data.menu, data.position, item) && item.data == data.number &&
           item.id == data.id;
}

void SeenAt(CMyItemData& data, HMENU menu, UINT position, UINT id) {
    data.menu = menu;
    data.position = position;
    data.id = id;
}

bool HasCaptionOf(const CMyItemData& data, HMENU menu, UINT position) {
    return ReadItemCaption(menu, position) == data.sMenuText;
}

// Looks the item up in its menu by its number. Command, caption and place decide between several.
bool IsInItsMenu(CMyItemData& data) {
    if (!data.menu)
        return false;
    if (StandsThere(data))
        return true;
    int best = -1;
    UINT position = 0, id = 0;
    const int count = GetMenuItemCount(data.menu);
    for (int i = 0; i < count; ++i) {
        MenuItem item;
        const auto place = static_cast<UINT>(i);
        if (!ReadItem(data.menu, place, item) || item.data != data.number)
            continue;
        const int likeness = 2 * (item.id == data.id) + 2 * HasCaptionOf(data, data.menu, place) +
                             (place == data.position);
        if (likeness <= best)
            continue;
        best = likeness;
        position = place;
        id = item.id;
    }
    if (best < 0)
        return false;
    SeenAt(data, data.menu, position, id);
    return true;
}

CMyItemData* ByNumber(HMENU menu, UINT position, const MenuItem& item, CMyItemData& data) {
    if (data.menu == menu && data.id == item.id &&
        (data.position == position || (!StandsThere(data) && HasCaptionOf(data, menu, position)))) {
        SeenAt(data, menu, position, item.id);
        return &data;
    }
    if (IsInItsMenu(data))
        return data.menu == menu && data.position == position ? &data : nullptr;
    // Its host has taken it out of its menu and put it here.
    if (data.id != item.id && !HasCaptionOf(data, menu, position))
        return nullptr;
    SeenAt(data, menu, position, item.id);
    return &data;
}

// Items without a caption are alike: only a separator at its old place is taken for the same.
bool MayStandAt(const CMyItemData& data, UINT position, const MenuItem& item) {
    return !data.sMenuText.empty() ||
           (item.Separator() && (data.fType & MFT_SEPARATOR) != 0 && data.position == position);
}

// One of ours in which the host has written data of its own.
CMyItemData* ByPlace(MenuModule& module, HMENU menu, UINT position, const MenuItem& item) {
    const auto seen = module.menus.find(menu);
    if (seen == module.menus.end())
        return nullptr;
    for (const ULONG_PTR number : seen->second.numbers) {
        CMyItemData* data = module.items.Item(number);
        if (!data || data->menu != menu || data->id != item.id || data->number == item.data ||
            !MayStandAt(*data, position, item) || IsInItsMenu(*data) ||
            !HasCaptionOf(*data, menu, position))
            continue;
        data->position = position;
        return data;
    }
    return nullptr;
}

// The item of a menu with a command and data, if it is ours.
CMyItemData* FindIn(HMENU menu, UINT id, ULONG_PTR data) {
    for (int i = GetMenuItemCount(menu) - 1; i >= 0; --i) {
        MenuItem item;
        const auto position = static_cast<UINT>(i);
        if (ReadItem(menu, position, item) && item.id == id && item.data == data)
            if (CMyItemData* found = OurItem(menu, position, item))
                return found;
    }
    return nullptr;
}

// In the menus of a window where the number alone does not tell it.
CMyItemData* Search(const WndCoolMenu& window, HMENU bar, UINT id, ULONG_PTR number, bool known) {
    if (CMyItemData* found = FindIn(bar, id, number))
        return found;
    if (known)
        for (long i = 0; i < window.CountMenuHeads(); ++i)
            if (CMyItemData* found = FindIn(window.GetMenuHead(i), id, number))
                return found;
    return nullptr;
}

} // namespace

CMyItemData* OurItem(HMENU menu, UINT position, const MenuItem& item) {
    MenuModule* module = CurrentMenuModule();
    if (!module)
        return nullptr;
    CMyItemData* data = module->items.Item(item.data);
    if (CMyItemData* found = data ? ByNumber(menu, position, item, *data) : nullptr)
        return found;
    return ByPlace(*module, menu, position, item);
}

CMyItemData* OurDrawnItem(HMENU menu, UINT position) {
    MenuItem item;
    return ReadItem(menu, position, item) && item.OwnerDrawn() ? OurItem(menu, position, item)
                                                               : nullptr;
}

CMyItemData* OurDrawnItem(const WndCoolMenu& window, HMENU menu, UINT id, ULONG_PTR number) {
    MenuModule* module = CurrentMenuModule();
    if (!module)
        return nullptr;
    CMyItemData* data = module->items.Item(number);
    const HMENU bar = GetMenu(window.hWnd);
    if (!data || (menu && data->menu != menu) || !IsInItsMenu(*data) || data->id != id)
        data = menu ? FindIn(menu, id, number) : Search(window, bar, id, number, data != nullptr);
    // The host may just have put it there from a popup.
    if (data && data->menu == bar)
        data->bMainMenu = true;
    return data;
}

const CMyItemData* CopiedItem(const MenuItem& item) {
    const MenuModule* module = CurrentMenuModule();
    const CMyItemData* data = module && item.OwnerDrawn() ? module->items.Item(item.data) : nullptr;
    const bool alike = data && item.id == data->id && item.caption == data->sMenuText &&
                       (!item.caption.empty() || item.Separator());
    return alike ? data : nullptr;
}

} // namespace vndesk
