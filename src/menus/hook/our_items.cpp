// SPDX-License-Identifier: MIT
#include "menus/hook/our_items.h"

#include <optional>
#include <string>

#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

bool HasCaptionOf(const CMyItemData& data, HMENU menu, UINT position) {
    return ReadItemCaption(menu, position) == data.sMenuText;
}

void SeenAt(CMyItemData& data, HMENU menu, UINT position, UINT id) {
    data.menu = menu;
    data.position = position;
    data.id = id;
    data.gone = false;
}

// Whether the place where the item was seen last still has it; it may have got another command or
// caption.
bool StandsThere(CMyItemData& data) {
    MenuItem item;
    if (data.gone || !ReadItem(data.menu, data.position, item) || item.data != data.number ||
        (item.id != data.id && !HasCaptionOf(data, data.menu, data.position)))
        return false;
    data.id = item.id;
    return true;
}

// Looks the item up in its menu by its number. Command, caption and place decide between several.
bool IsInItsMenu(CMyItemData& data) {
    if (data.gone)
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
    if (!data.gone && data.menu == menu) {
        const bool here = data.position == position, sameCommand = data.id == item.id;
        // It has moved if other items have been put before it.
        if (here ? sameCommand || HasCaptionOf(data, menu, position)
                 : sameCommand && HasCaptionOf(data, menu, position) && !StandsThere(data)) {
            SeenAt(data, menu, position, item.id);
            return &data;
        }
    }
    if (IsInItsMenu(data))
        return data.menu == menu && data.position == position ? &data : nullptr;
    // Its host has taken it out of its menu and put it here.
    if (data.id != item.id && !HasCaptionOf(data, menu, position))
        return nullptr;
    SeenAt(data, menu, position, item.id);
    return &data;
}

// One of ours in which the host has written data of its own. Items without a caption are alike:
// only a separator at its old place is taken for the same.
CMyItemData* ByLikeness(MenuModule& module, HMENU menu, UINT position, const MenuItem& item) {
    const auto seen = module.menus.find(menu);
    if (seen == module.menus.end())
        return nullptr;
    std::optional<std::wstring> caption;
    for (const auto& [number, id] : seen->second.items) {
        CMyItemData* data = id == item.id ? module.items.Item(number) : nullptr;
        if (!data || data->menu != menu || data->id != item.id || data->number == item.data)
            continue;
        if (!caption)
            caption = ReadItemCaption(menu, position);
        const bool separators = item.Separator() && (data->fType & MFT_SEPARATOR) != 0;
        if (*caption != data->sMenuText ||
            (caption->empty() && !(separators && data->position == position)) || IsInItsMenu(*data))
            continue;
        // `gone` stays: the item has no number of ours until the next conversion.
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

// Searches the menus of a window where the number alone does not decide.
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
    return ByLikeness(*module, menu, position, item);
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
