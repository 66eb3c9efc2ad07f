// SPDX-License-Identifier: MIT
#include "menus/hook/cool_menu.h"

#include <utility>

#include "menus/hook/convert_menu.h"
#include "menus/hook/menu_hook.h"
#include "menus/hook/window_procedure.h"
#include "menus/state/duplicate_key.h"
#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

// Menus are drawn by the thread of their window.
bool IsOwnWindow(HWND window) {
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

} // namespace

bool InstallMenus(HWND window, MenuHelp help, ImageSource images) {
    if (!window)
        return true;
    if (!IsOwnWindow(window))
        return false;
    MenuModule& module = EnsureMenuModule();
    const auto entry = std::make_shared<WndCoolMenu>(window);
    // If the window is installed already, the hook goes on with the first entry.
    entry->Hook = MenuWindowProc;
    entry->PrevProc = PutHook(window);
    entry->SetSystemSelection(GetSysColor(COLOR_HIGHLIGHT));
    entry->ilHandle = std::move(images);
    entry->HelpObj = std::move(help);
    if (!module.windows.try_emplace(window, entry).second)
        ThrowDuplicateKey();

    for (const HMENU menu : MenusOf(*entry))
        module.shared.erase(menu);
    ConvertMenu(*entry, GetMenu(window), true);
    ConvertMenu(*entry, GetSystemMenu(window, FALSE), false);
    if (GetMenu(window))
        DrawMenuBar(window);
    entry->SCMainMenu = WndCoolMenu::kAnyMenu;
    return true;
}

void UninstallMenus(HWND window) {
    const std::shared_ptr<WndCoolMenu> entry = window ? FindCoolMenu(window) : nullptr;
    if (!entry)
        return;
    RestoreMenus(*entry);
    TakeHookAway(window, entry->PrevProc);
    MenuModule& module = *CurrentMenuModule();
    module.windows.erase(window);
    for (const HMENU menu : MenusOf(*entry))
        for (const auto& [other, its] : module.windows)
            if (its->HasMenuHead(menu))
                module.shared.insert(menu);
    ReleaseUnusedMenuModule();
    if (GetMenu(window))
        DrawMenuBar(window);
}

void WatchChildMenu(HWND child) {
    const HWND frame = GetParent(GetParent(child));
    const std::shared_ptr<WndCoolMenu> entry = frame ? FindCoolMenu(frame) : nullptr;
    if (!entry || entry->SCMainMenu == 0)
        return;
    const HMENU menu = GetMenu(frame);
    entry->SCMainMenu = reinterpret_cast<LONG_PTR>(menu);
    if (!entry->HasMenuHead(menu)) {
        ConvertMenu(*entry, menu, true);
        DrawMenuBar(frame);
    }
}

void RemeasureMenus(WndCoolMenu& window) {
    TouchMenus(window);
    if (GetMenu(window.hWnd))
        DrawMenuBar(window.hWnd);
}

} // namespace vndesk
