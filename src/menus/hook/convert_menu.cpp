// SPDX-License-Identifier: MIT
#include "menus/hook/convert_menu.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "menus/hook/menu_items.h"
#include "menus/hook/our_items.h"
#include "menus/paint/menu_text.h"
#include "menus/state/diagnostics.h"
#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

constexpr wchar_t kRoutine[] = L" ConvertMenu";
// How deep submenus are followed; each level takes room on the stack.
constexpr int kDeepest = 32;
// How many items that hosts have taken out of their menus are remembered.
constexpr std::size_t kMaxRemoved = 100;

// Type flags that a conversion sets. The others are the host's, also after it.
constexpr UINT kOurTypes = MFT_OWNERDRAW | MFT_SEPARATOR;

// The type that the host gave the item or changed it to.
UINT HostType(const CMyItemData& data, const MenuItem& item) {
    return item.OwnerDrawn() ? (data.original.type & MFT_SEPARATOR) | (item.type & ~kOurTypes)
                             : item.type;
}

// The host's own data of an item. Our number stands for the data that the host had there, also
// where the host has copied the number from another item; anything else is the host's.
ULONG_PTR HostData(const MenuItem& item) {
    const CMyItemData* from = CurrentMenuModule()->items.Item(item.data);
    return from ? from->original.data : item.data;
}

// Whether the caption has changed since the conversion. Some versions of Windows return no captions
// of owner-drawn items.
bool HasNewCaption(const CMyItemData& data, const MenuItem& item) {
    return item.caption != data.sMenuText && !(item.OwnerDrawn() && item.caption.empty());
}

// Items with a bitmap for a caption stay with Windows, such as the buttons of a maximised MDI
// child.
bool IsPicture(const CMyItemData* data, const MenuItem& item) {
    return (item.type & MFT_BITMAP) != 0 ||
           (item.bitmap && item.caption.empty() && !item.Separator() &&
            (!data || data->sMenuText.empty()));
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

CMyItemData& NewItem(HMENU menu, UINT position, const MenuItem& item, const CMyItemData* copied) {
    const ULONG_PTR hostData = HostData(item);
    CMyItemData& data = CurrentMenuModule()->items.Add(CMyItemDatas::NextNumber());
    if (copied) {
        const ULONG_PTR number = data.number;
        data = *copied;
        data.number = number;
    } else {
        data.original.state = item.state;
        data.original.data = hostData;
    }
    data.menu = menu;
    data.position = position;
    return data;
}

void Restore(const CMyItemData& data, const MenuItem& item) {
    // A caption that the host wrote meanwhile stays.
    if (!HasNewCaption(data, item) && data.sMenuText != data.original.caption)
        WriteItemCaption(data.menu, data.position, data.original.caption);
    const UINT type = HostType(data, item);
    if (type & MFT_BITMAP)
        WriteItemData(data.menu, data.position, HostData(item));
    else
        WriteItemType(data.menu, data.position, type, HostData(item));
    // SetMenuItemInfo disables an item that becomes a separator.
    if (data.captionedSeparator && !(type & MFT_SEPARATOR))
        WriteItemState(data.menu, data.position, data.original.state);
}

// What is known of the item afterwards; null for items that are left alone.
CMyItemData* ConvertItem(HMENU menu, UINT position, const MenuItem& item, bool menuBar) {
    CMyItemDatas& items = CurrentMenuModule()->items;
    CMyItemData* data = OurItem(menu, position, item);
    const CMyItemData* copied = data ? nullptr : CopiedItem(item);
    if (IsPicture(data, item)) {
        if (data) {
            Restore(*data, item);
            items.Remove(data->number);
        }
        return nullptr;
    }
    if (item.OwnerDrawn() && !data && !copied)
        return nullptr; // its host draws it
    const bool fresh = !data;
    if (fresh)
        data = &NewItem(menu, position, item, copied);
    else
        data->original.data = HostData(item);
    data->gone = false;
    if (HasNewCaption(*data, item))
        TakeCaption(*data, item.caption);
    TakeType(*data, HostType(*data, item));
    data->id = item.id;
    data->bTrueSub = item.submenu != nullptr;
    data->bMainMenu = menuBar;

    const UINT type = data->fType | MFT_OWNERDRAW;
    const bool written = (item.type == type && item.data == data->number) ||
                         WriteItemType(menu, position, type, data->number);
    if (!written) {
        Diagnose(LastError(), kRoutine);
        if (fresh)
            items.Remove(data->number);
        return nullptr;
    }
    // Screen readers read the item's own caption, so it goes without the marks.
    if (!item.caption.empty() && item.caption != data->sMenuText)
        WriteItemCaption(menu, position, data->sMenuText);
    return data;
}

// Items that have left their menu are remembered for a while: hosts take items out to hide them, or
// to put them elsewhere.
void NoteMissing(MenuModule& module, HMENU menu, const SeenMenu& seen,
                 const std::vector<MenuItem>& now) {
    std::vector<ULONG_PTR> present;
    for (const MenuItem& item : now)
        present.push_back(item.data);
    std::sort(present.begin(), present.end());
    for (const SeenMenu::Item& item : seen.items) {
        CMyItemData* data = std::binary_search(present.begin(), present.end(), item.number)
                                ? nullptr
                                : module.items.Item(item.number);
        if (data && data->menu == menu && !data->gone) {
            data->gone = true;
            module.removed.push_back(data->number);
        }
    }
}

void ForgetOldest(MenuModule& module) {
    for (; module.removed.size() > kMaxRemoved; module.removed.pop_front()) {
        const CMyItemData* oldest = module.items.Item(module.removed.front());
        if (oldest && oldest->gone)
            module.items.Remove(oldest->number);
    }
}

void ForgetDeadMenus(MenuModule& module, WndCoolMenu& window) {
    window.ForgetDeadHeads();
    std::erase_if(module.shared, [](HMENU menu) { return !IsMenu(menu); });
    std::erase_if(module.menus, [&](const auto& seen) {
        if (IsMenu(seen.first))
            return false;
        NoteMissing(module, seen.first, seen.second, {});
        return true;
    });
}

// Windows keeps the size of an item until SetMenuItemInfo writes its type.
void Touch(HMENU menu) {
    for (int i = GetMenuItemCount(menu) - 1; i >= 0; --i) {
        MenuItem item;
        const auto position = static_cast<UINT>(i);
        if (ReadItem(menu, position, item) && item.OwnerDrawn() && OurItem(menu, position, item))
            WriteItemType(menu, position, item.type, item.data);
    }
}

// All items make room for the widest shortcut.
void MeasureShortcuts(WndCoolMenu& window, HMENU menu, SeenMenu& seen) {
    const int widest = WidestShortcut(window, menu);
    const bool changed = std::exchange(window.shortcutWidths[menu], widest) != widest;
    const HWND before = std::exchange(seen.measuredFor, window.hWnd);
    if (changed || (before && before != window.hWnd))
        Touch(menu);
}

// Goes through a menu and those below it, each of them once.
class Conversion {
public:
    explicit Conversion(WndCoolMenu& window) : window_(window), module_(*CurrentMenuModule()) {}

    void Convert(HMENU menu, bool menuBar, int depth = 0) {
        if (!menu || depth > kDeepest || !done_.insert(menu).second)
            return;
        SeenMenu& seen = module_.menus[menu];
        const std::vector<MenuItem> items = ReadItems(menu);
        if (static_cast<int>(items.size()) < GetMenuItemCount(menu))
            Diagnose(LastError(), kRoutine);
        NoteMissing(module_, menu, seen, items);
        std::vector<SeenMenu::Item> ours;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const CMyItemData* data = ConvertItem(menu, static_cast<UINT>(i), items[i], menuBar);
            if (!data)
                continue;
            ours.push_back({data->number, data->id});
            if (items[i].submenu && !module_.shared.contains(items[i].submenu))
                Convert(items[i].submenu, false, depth + 1);
        }
        seen.items = std::move(ours);
        window_.AddMenuHead(menu);
        if (!menuBar)
            MeasureShortcuts(window_, menu, seen);
    }

private:
    WndCoolMenu& window_;
    MenuModule& module_;
    std::set<HMENU> done_;
};

} // namespace

void ConvertMenu(WndCoolMenu& window, HMENU menu, bool menuBar) {
    Suppress(kRoutine, [&] {
        MenuModule* module = CurrentMenuModule();
        if (!module)
            return;
        ForgetDeadMenus(*module, window);
        Conversion(window).Convert(menu, menuBar);
        ForgetOldest(*module);
    });
}

void TouchMenus(WndCoolMenu& window) {
    for (auto& [menu, width] : window.shortcutWidths)
        width = WidestShortcut(window, menu);
    for (long i = 0; i < window.CountMenuHeads(); ++i)
        Touch(window.GetMenuHead(i));
}

void RestoreMenu(HMENU menu) {
    MenuModule* module = CurrentMenuModule();
    const std::vector<MenuItem> items = ReadItems(menu);
    for (std::size_t i = 0; i < items.size(); ++i)
        Suppress(kRoutine, [&] {
            if (const CMyItemData* data = OurItem(menu, static_cast<UINT>(i), items[i])) {
                Restore(*data, items[i]);
                module->items.Remove(data->number);
            }
        });
    const auto seen = module->menus.find(menu);
    if (seen == module->menus.end())
        return;
    NoteMissing(*module, menu, seen->second, ReadItems(menu));
    module->menus.erase(seen);
}

std::vector<HMENU> MenusOf(const WndCoolMenu& window) {
    std::vector<HMENU> menus;
    std::set<HMENU> known;
    const auto add = [&](HMENU menu) {
        if (menu && known.insert(menu).second)
            menus.push_back(menu);
    };
    for (long i = 0; i < window.CountMenuHeads(); ++i)
        add(window.GetMenuHead(i));
    add(GetMenu(window.hWnd));
    add(GetSystemMenu(window.hWnd, FALSE));
    for (std::size_t next = 0; next < menus.size(); ++next)
        for (int i = 0; i < GetMenuItemCount(menus[next]); ++i)
            add(GetSubMenu(menus[next], i));
    return menus;
}

void RestoreMenus(WndCoolMenu& window) {
    // Also in menus where the host has put them since.
    for (const HMENU menu : MenusOf(window))
        RestoreMenu(menu);
}

} // namespace vndesk
