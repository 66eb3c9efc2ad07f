// SPDX-License-Identifier: MIT
#include "convert_menu.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "diagnostics.h"
#include "menu_items.h"
#include "menu_module.h"
#include "menu_text.h"

namespace vndesk {

namespace {

constexpr wchar_t kRoutine[] = L" ConvertMenu";
// A menu that contains itself would never end.
constexpr int kDeepest = 32;

// What a host may change of an item's type after its conversion.
constexpr UINT kOurTypes = MFT_OWNERDRAW | MFT_SEPARATOR;

// The data of an item that was converted before; null for items of others, whatever number they
// hold. A host may have given an item of ours another command: then the old one is gone.
CMyItemData* KnownItem(HMENU menu, const MenuItem& item) {
    CMyItemData* data = FindItemData(item.data);
    if (!data || data->menu != menu)
        return nullptr;
    constexpr UINT kNoItem = static_cast<UINT>(-1);
    const bool renumbered =
        item.OwnerDrawn() && GetMenuState(menu, data->id, MF_BYCOMMAND) == kNoItem;
    return data->id == item.id || renumbered ? data : nullptr;
}

// The type that the host gave the item or changed it to.
UINT HostType(const CMyItemData& data, const MenuItem& item) {
    return item.OwnerDrawn() ? (data.original.type & MFT_SEPARATOR) | (item.type & ~kOurTypes)
                             : item.type;
}

// Whether the item's caption is not the one that it got at its conversion. Some versions of
// Windows do not tell the captions of owner-drawn items.
bool HasNewCaption(const CMyItemData& data, const MenuItem& item) {
    return !item.OwnerDrawn() || (!item.caption.empty() && item.caption != data.sMenuText);
}

void TakeCaption(CMyItemData& data, const std::wstring& text) {
    const MenuCaption caption = ParseCaption(text);
    data.original.caption = text;
    data.sMenuText = caption.text;
    data.sMenuHelp = caption.help;
    data.iButton = static_cast<short>(caption.image);
    data.bAsCheck = caption.check || caption.radio;
    data.bAsMark = caption.radio;
    data.captionedSeparator = caption.separator;
}

void TakeType(CMyItemData& data, UINT type) {
    data.original.type = type;
    data.fType = type | (data.captionedSeparator ? MFT_SEPARATOR : 0);
    data.bAsMark = data.bAsMark || (type & MFT_RADIOCHECK) != 0;
}

CMyItemData& NewItem(WndCoolMenu& window, HMENU menu, const MenuItem& item, ULONG_PTR& number) {
    CMyItemDatas& items = CurrentMenuModule()->items;
    number = items.NextNumber();
    CMyItemData& data = items.Add(std::to_wstring(number));
    data.window = window.hWnd;
    data.menu = menu;
    data.id = item.id;
    data.original.state = item.state;
    data.original.data = item.data;
    return data;
}

// The number that the item has afterwards; 0 for items that are left alone.
ULONG_PTR ConvertItem(WndCoolMenu& window, HMENU menu, UINT position, bool menuBar) {
    MenuItem item;
    if (!ReadMenuItem(menu, position, item)) {
        Diagnose(LastError(), kRoutine);
        return 0;
    }
    CMyItemData* data = KnownItem(menu, item);
    // Pictures of the platform, such as the buttons of a maximised child, and what the host draws
    // itself.
    if ((item.type & MFT_BITMAP) || (item.OwnerDrawn() && !data))
        return 0;
    ULONG_PTR number = item.data;
    const bool fresh = !data;
    if (fresh)
        data = &NewItem(window, menu, item, number);
    if (HasNewCaption(*data, item))
        TakeCaption(*data, item.caption);
    TakeType(*data, HostType(*data, item));
    data->id = item.id;
    data->bTrueSub = item.submenu != nullptr;
    data->bMainMenu = menuBar;

    const UINT type = data->fType | MFT_OWNERDRAW;
    const bool written =
        (item.OwnerDrawn() && item.type == type) || WriteItemType(menu, position, type, number);
    if (!written) {
        Diagnose(LastError(), kRoutine);
        if (fresh)
            CurrentMenuModule()->items.Remove(std::to_wstring(number));
        return 0;
    }
    // Screen readers read the item's own caption: without the marks.
    if (!item.caption.empty() && item.caption != data->sMenuText)
        WriteItemCaption(menu, position, data->sMenuText);
    return number;
}

// Items that their host removed from the menu, and all of menus that are gone.
void ForgetMissing(HMENU menu, const std::set<ULONG_PTR>& present) {
    CMyItemDatas& items = CurrentMenuModule()->items;
    std::vector<std::wstring> missing;
    for (const auto& [key, data] : items)
        if (data->menu == menu ? !present.contains(std::stoull(key)) : !IsMenu(data->menu))
            missing.push_back(key);
    for (const std::wstring& key : missing)
        items.Remove(key);
}

// The platform keeps the size of an item until its type is written.
void Touch(HMENU menu) {
    for (int i = GetMenuItemCount(menu) - 1; i >= 0; --i) {
        MenuItem item;
        const auto position = static_cast<UINT>(i);
        if (ReadMenuItem(menu, position, item) && KnownItem(menu, item))
            WriteItemType(menu, position, item.type, item.data);
    }
}

// All items make room for the widest shortcut.
void MeasureShortcuts(WndCoolMenu& window, HMENU menu) {
    const int widest = WidestShortcut(window, menu);
    if (std::exchange(window.shortcutWidths[menu], widest) != widest)
        Touch(menu);
}

void Convert(WndCoolMenu& window, HMENU menu, bool menuBar, int depth) {
    if (!menu || depth > kDeepest)
        return;
    std::set<ULONG_PTR> present;
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        present.insert(ConvertItem(window, menu, static_cast<UINT>(i), menuBar));
        Convert(window, GetSubMenu(menu, i), false, depth + 1);
    }
    ForgetMissing(menu, present);
    window.AddMenuHead(menu);
    if (!menuBar)
        MeasureShortcuts(window, menu);
}

void Restore(const CMyItemData& data, UINT position) {
    MenuItem item;
    if (!ReadMenuItem(data.menu, position, item))
        return;
    // What the host wrote meanwhile stays.
    if (!HasNewCaption(data, item) && data.sMenuText != data.original.caption)
        WriteItemCaption(data.menu, position, data.original.caption);
    const UINT type = HostType(data, item);
    WriteItemType(data.menu, position, type, data.original.data);
    // The platform disables what becomes a separator.
    if (data.captionedSeparator && !(type & MFT_SEPARATOR))
        WriteItemState(data.menu, position, data.original.state);
}

// Calls with each item of a window that is still where it was.
template <class Visit> void ForEachItem(HWND window, Visit&& visit) {
    MenuModule* module = CurrentMenuModule();
    std::set<HMENU> menus;
    if (module)
        for (const auto& [key, data] : module->items)
            if (data->window == window && IsMenu(data->menu))
                menus.insert(data->menu);
    for (const HMENU menu : menus)
        for (int i = GetMenuItemCount(menu) - 1; i >= 0; --i) {
            const auto position = static_cast<UINT>(i);
            const CMyItemData* data = FindItemData(menu, ReadItemNumber(menu, position, true));
            if (data && data->window == window)
                Suppress(kRoutine, [&] { visit(*data, position); });
        }
}

} // namespace

void ConvertMenu(WndCoolMenu& window, HMENU menu, bool menuBar) {
    Suppress(kRoutine, [&] {
        if (!CurrentMenuModule())
            return;
        window.ForgetDeadHeads();
        Convert(window, menu, menuBar, 0);
    });
}

void TouchMenus(WndCoolMenu& window) {
    for (auto& [menu, width] : window.shortcutWidths)
        width = WidestShortcut(window, menu);
    for (long i = 0; i < window.CountMenuHeads(); ++i)
        Touch(window.GetMenuHead(i));
}

void RestoreMenus(HWND window) {
    ForEachItem(window, [](const CMyItemData& data, UINT position) { Restore(data, position); });
    MenuModule* module = CurrentMenuModule();
    std::vector<std::wstring> restored;
    for (const auto& [key, data] : module->items)
        if (data->window == window)
            restored.push_back(key);
    for (const std::wstring& key : restored)
        module->items.Remove(key);
}

} // namespace vndesk
