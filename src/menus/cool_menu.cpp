// SPDX-License-Identifier: MIT
#include "cool_menu.h"

#include <utility>

#include "convert_menu.h"
#include "duplicate_key.h"
#include "menu_hook.h"
#include "menu_module.h"
#include "window_calls.h"

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
    entry->PrevProc = WindowProcedureOf(window);
    entry->SetSystemSelection(GetSysColor(COLOR_HIGHLIGHT));
    entry->ilHandle = std::move(images);
    entry->HelpObj = std::move(help);
    // The hook finds the first entry of a window that is installed twice.
    SetWindowProcedure(window, MenuWindowProc);
    if (!module.windows.try_emplace(WindowKey(window), entry).second)
        ThrowDuplicateKey();

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
    RestoreMenus(window);
    SetWindowProcedure(window, entry->PrevProc);
    CurrentMenuModule()->windows.erase(WindowKey(window));
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
