// SPDX-License-Identifier: MIT
#include "menus/state/menu_module.h"

#include <utility>

#include "comkit/base/com_error.h"
#include "comkit/base/lock.h"
#include "menus/state/window_calls.h"

namespace vndesk {

namespace {

// The fibre-local slot with the module of each thread, allocated while there is a module. Windows
// calls ReleaseAtThreadEnd when a thread ends that has one.
SRWLOCK lock_ = SRWLOCK_INIT;
DWORD slot_ = FLS_OUT_OF_INDEXES;
long modules_ = 0;

// A process may end with windows installed. Nothing may run for them then: the objects that their
// hosts gave may be gone.
bool ProcessEnds() {
    const auto ask = reinterpret_cast<BOOLEAN(WINAPI*)()>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlDllShutdownInProgress")));
    return ask && ask();
}

void WINAPI ReleaseAtThreadEnd(void* value) {
    if (ProcessEnds())
        return;
    const std::unique_ptr<MenuModule> module(static_cast<MenuModule*>(value));
    {
        // The slot stays for the next thread: Windows may be working on it now.
        const Writing writing(lock_);
        --modules_;
    }
    // Only Windows itself still sends messages to these windows.
    for (const auto& [window, entry] : module->windows)
        if (WindowProcedureOf(window) == entry->Hook)
            SetWindowProcedure(window, entry->PrevProc);
}

DWORD Slot() {
    const Reading reading(lock_);
    return slot_;
}

} // namespace

MenuModule* CurrentMenuModule() {
    const DWORD slot = Slot();
    return slot == FLS_OUT_OF_INDEXES ? nullptr : static_cast<MenuModule*>(FlsGetValue(slot));
}

MenuModule& EnsureMenuModule() {
    if (MenuModule* module = CurrentMenuModule())
        return *module;
    auto made = std::make_unique<MenuModule>();
    const Writing writing(lock_);
    if (slot_ == FLS_OUT_OF_INDEXES)
        slot_ = FlsAlloc(ReleaseAtThreadEnd);
    if (slot_ == FLS_OUT_OF_INDEXES || !FlsSetValue(slot_, made.get()))
        throw ComError(E_OUTOFMEMORY);
    ++modules_;
    return *made.release();
}

void ReleaseUnusedMenuModule() {
    MenuModule* module = CurrentMenuModule();
    if (!module || !module->windows.empty())
        return;
    const std::unique_ptr<MenuModule> unused(module);
    FlsSetValue(Slot(), nullptr);
    DWORD unusedSlot = FLS_OUT_OF_INDEXES;
    {
        const Writing writing(lock_);
        if (--modules_ == 0)
            unusedSlot = std::exchange(slot_, FLS_OUT_OF_INDEXES);
    }
    // Outside the lock: FlsFree may wait for a callback that is about to take it.
    if (unusedSlot != FLS_OUT_OF_INDEXES)
        FlsFree(unusedSlot);
}

std::shared_ptr<WndCoolMenu> FindCoolMenu(HWND window) {
    MenuModule* module = CurrentMenuModule();
    if (!module)
        return nullptr;
    const auto found = module->windows.find(window);
    return found == module->windows.end() ? nullptr : found->second;
}

} // namespace vndesk
