// SPDX-License-Identifier: MIT
#include "menu_module.h"

namespace vndesk {

namespace {

// Not an owner: a process may end with windows installed, and nothing may run for them then.
MenuModule* current = nullptr;

} // namespace

MenuSizes& SharedMenuSizes() {
    static MenuSizes sizes;
    return sizes;
}

MenuModule* CurrentMenuModule() {
    return current;
}

MenuModule& EnsureMenuModule() {
    if (!current)
        current = new MenuModule;
    return *current;
}

void ReleaseUnusedMenuModule() {
    if (current && current->windows.empty()) {
        delete current;
        current = nullptr;
    }
}

std::wstring WindowKey(HWND window) {
    return std::to_wstring(static_cast<long>(reinterpret_cast<LONG_PTR>(window)));
}

std::shared_ptr<WndCoolMenu> FindCoolMenu(HWND window) {
    if (!current)
        return nullptr;
    const auto found = current->windows.find(WindowKey(window));
    return found == current->windows.end() ? nullptr : found->second;
}

CMyItemData* FindItemData(ULONG_PTR number) {
    return current && number != 0 ? current->items.Item(std::to_wstring(number)) : nullptr;
}

CMyItemData* FindItemData(HMENU menu, ULONG_PTR number) {
    CMyItemData* data = FindItemData(number);
    return data && data->menu == menu ? data : nullptr;
}

} // namespace vndesk
