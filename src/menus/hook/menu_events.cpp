// SPDX-License-Identifier: MIT
#include "menus/hook/menu_events.h"

#include <algorithm>

#include "menus/hook/convert_menu.h"
#include "menus/hook/menu_bar_tracker.h"
#include "menus/hook/menu_items.h"
#include "menus/hook/our_items.h"
#include "menus/item/menu_char.h"
#include "menus/paint/gdi.h"
#include "menus/paint/item_painter.h"
#include "menus/paint/menu_text.h"
#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

ItemState StateOf(const CMyItemData& data, UINT state) {
    ItemState result;
    result.menuBar = data.bMainMenu;
    result.selected = (state & ODS_SELECTED) != 0;
    result.disabled = (state & (ODS_GRAYED | ODS_DISABLED)) != 0;
    result.checked = (state & ODS_CHECKED) != 0;
    result.isDefault = (state & ODS_DEFAULT) != 0 || IsDefaultItem(data);
    result.hovered = (state & ODS_HOTLIGHT) != 0;
    result.hideMnemonics = (state & ODS_NOACCEL) != 0;
    return result;
}

// The item that WM_MENUSELECT means: it names popups by position, others by command.
const CMyItemData* SelectedItem(HMENU menu, UINT item, bool popup) {
    if (popup)
        return OurDrawnItem(menu, item);
    const CMyItemData* first = nullptr;
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const auto position = static_cast<UINT>(i);
        const CMyItemData* data = OurDrawnItem(menu, position);
        if (!data || LOWORD(data->id) != item || data->bTrueSub)
            continue;
        // Several may have the command; the user is on the highlighted one.
        if (GetMenuState(menu, position, MF_BYPOSITION) & MF_HILITE)
            return data;
        first = first ? first : data;
    }
    return first;
}

wchar_t UpperCase(wchar_t letter) {
    CharUpperBuffW(&letter, 1);
    return letter;
}

// What a letter may mean; items that are not ours have no text.
std::vector<LetterItem> LetterItems(HMENU menu) {
    std::vector<LetterItem> items(static_cast<std::size_t>(std::max(0, GetMenuItemCount(menu))));
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto position = static_cast<UINT>(i);
        const CMyItemData* data = OurDrawnItem(menu, position);
        if (!data || (data->fType & MFT_SEPARATOR))
            continue;
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        items[i] = {data->sMenuText, !(state & (MF_GRAYED | MF_DISABLED)),
                    (state & MF_HILITE) != 0};
    }
    return items;
}

} // namespace

bool OnMeasureItem(WndCoolMenu& window, MEASUREITEMSTRUCT& measured) {
    const CMyItemData* data =
        measured.CtlType == ODT_MENU
            ? OurDrawnItem(window, nullptr, measured.itemID, measured.itemData)
            : nullptr;
    if (!data)
        return false;
    const Extent size =
        MeasureItem(CaptionExtent(window, *data), data->bMainMenu, MetricsOf(window));
    measured.itemWidth = static_cast<UINT>(std::max(0, size.width));
    measured.itemHeight = static_cast<UINT>(size.height);
    return true;
}

bool OnDrawItem(WndCoolMenu& window, const DRAWITEMSTRUCT& drawn) {
    if (drawn.CtlType != ODT_MENU)
        return false;
    const CMyItemData* data =
        OurDrawnItem(window, reinterpret_cast<HMENU>(drawn.hwndItem), drawn.itemID, drawn.itemData);
    if (!data)
        return false;
    PaintItem(drawn.hDC, ToBox(drawn.rcItem), window, *data, StateOf(*data, drawn.itemState));
    // Outside the clip region, Windows cannot draw its own submenu arrow over ours.
    ExcludeClipRect(drawn.hDC, drawn.rcItem.left, drawn.rcItem.top, drawn.rcItem.right,
                    drawn.rcItem.bottom);
    return true;
}

void OnInitMenu(WndCoolMenu& window, HMENU menu) {
    LeaveMenuBar(window);
    if (menu == GetMenu(window.hWnd) && window.HasMenuHead(menu))
        ConvertMenu(window, menu, true);
}

void OnInitMenuPopup(WndCoolMenu& window, HMENU popup, UINT position, bool systemMenu) {
    if (window.HasMenuHead(popup))
        ConvertMenu(window, popup, false);
    const HMENU bar = GetMenu(window.hWnd);
    if (!systemMenu && bar && GetSubMenu(bar, static_cast<int>(position)) == popup)
        window.SetPopedIndex(static_cast<int>(position));
}

void OnUninitMenuPopup(WndCoolMenu& window, HMENU popup) {
    const int open = window.PopedIndex();
    const HMENU bar = GetMenu(window.hWnd);
    if (open >= 0 && (!bar || GetSubMenu(bar, open) == popup))
        window.SetPopedIndex(WndCoolMenu::kNoItem);
    // Another window of the host has it too, and does not draw it.
    const MenuModule* module = CurrentMenuModule();
    if (module && module->shared.contains(popup))
        RestoreMenu(popup);
}

void OnMenuSelect(WndCoolMenu& window, UINT item, UINT flags, HMENU menu) {
    if (!menu) { // the menu was closed
        window.SetPopedIndex(WndCoolMenu::kNoItem);
        return;
    }
    const CMyItemData* data = SelectedItem(menu, item, (flags & MF_POPUP) != 0);
    if (!data || !window.HelpObj)
        return;
    // Copies: the host may uninstall the window during the call.
    const std::wstring text = data->sMenuText, help = data->sMenuHelp;
    const MenuHelp fire = window.HelpObj;
    fire(text, help, !(flags & (MF_GRAYED | MF_DISABLED)));
}

LRESULT OnMenuChar(wchar_t letter, HMENU menu) {
    const LetterMatch match = MatchLetter(LetterItems(menu), letter, UpperCase);
    if (match.position < 0)
        return 0;
    return MAKELRESULT(match.position, match.execute ? MNC_EXECUTE : MNC_SELECT);
}

void OnPositionChanged(WndCoolMenu& window) {
    const HMENU menu = GetMenu(window.hWnd);
    // A window without a menu is still watched: its menu may come later.
    if (!menu || window.SCMainMenu == 0 || window.SCMainMenu == reinterpret_cast<LONG_PTR>(menu))
        return;
    window.SCMainMenu = reinterpret_cast<LONG_PTR>(menu);
    const bool isNew = !window.HasMenuHead(menu);
    ConvertMenu(window, menu, true);
    // Windows laid the bar out before its items were ours.
    if (isNew)
        DrawMenuBar(window.hWnd);
}

} // namespace vndesk
