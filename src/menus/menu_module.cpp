// SPDX-License-Identifier: MIT
#include "menu_module.h"

#include <utility>

#include "com/kit/lock.h"

namespace vndesk {

namespace {

// Those of all threads. No owner: a process may end with windows installed, and nothing may run for
// them then.
SRWLOCK lock_ = SRWLOCK_INIT;
MenuModule* first_ = nullptr;

// Where the calling thread's stands, or would be added.
MenuModule** Place() {
    MenuModule** place = &first_;
    while (*place && (*place)->thread != GetCurrentThreadId())
        place = &(*place)->next;
    return place;
}

} // namespace

MenuModule* CurrentMenuModule() {
    const Reading reading(lock_);
    return *Place();
}

MenuModule& EnsureMenuModule() {
    if (MenuModule* module = CurrentMenuModule())
        return *module;
    auto made = std::make_unique<MenuModule>();
    const Writing writing(lock_);
    return *(*Place() = made.release());
}

void ReleaseUnusedMenuModule() {
    const std::unique_ptr<MenuModule> unused([]() -> MenuModule* {
        const Writing writing(lock_);
        MenuModule** place = Place();
        if (!*place || !(*place)->windows.empty())
            return nullptr;
        return std::exchange(*place, (*place)->next);
    }());
}

std::wstring WindowKey(HWND window) {
    return std::to_wstring(static_cast<long>(reinterpret_cast<LONG_PTR>(window)));
}

std::shared_ptr<WndCoolMenu> FindCoolMenu(HWND window) {
    MenuModule* module = CurrentMenuModule();
    if (!module)
        return nullptr;
    const auto found = module->windows.find(WindowKey(window));
    return found == module->windows.end() ? nullptr : found->second;
}

CMyItemData* FindItemData(ULONG_PTR number) {
    MenuModule* module = CurrentMenuModule();
    return module && number != 0 ? module->items.Item(std::to_wstring(number)) : nullptr;
}

CMyItemData* FindItemData(HMENU menu, ULONG_PTR number) {
    CMyItemData* data = FindItemData(number);
    return data && data->menu == menu ? data : nullptr;
}

} // namespace vndesk
