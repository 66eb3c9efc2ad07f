// SPDX-License-Identifier: MIT
#include "support/leak_probe.h"

#include <cstdint>
#include <windows.h>

#include "support/env.h"

namespace vndesk::test {
namespace {

// Wine's GetGuiResources counts nothing, but the process' table of GDI handles can be read: 24
// bytes an entry, the kind of object at offset 14, 0 for a free one. The 32-bit PEB points to no
// such table in new Wine versions; the 64-bit PEB does, in the low 4 GB.
constexpr size_t kGdiEntries = 0x4000, kGdiEntrySize = 24, kGdiKind = 14;
constexpr BYTE kDeviceContext = 1, kRegion = 4, kSurface = 9;
constexpr size_t kPebOfTeb64 = 0x60, kGdiTableOfPeb64 = 0xF8;

const BYTE* WineGdiTable() {
    struct BasicInformation { // of a thread
        LONG exitStatus;
        const BYTE* teb;
        HANDLE ids[2];
        ULONG_PTR affinity;
        LONG priority, basePriority;
    } info = {};
    using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationThread")));
    if (!query || query(GetCurrentThread(), 0, &info, sizeof info, nullptr) < 0)
        return nullptr;
#ifdef _WIN64
    const auto teb64 = reinterpret_cast<uint64_t>(info.teb);
#else
    constexpr size_t kTeb64OfTeb32 = 0xF70;
    const uint64_t teb64 = *reinterpret_cast<const uint32_t*>(info.teb + kTeb64OfTeb32);
    if (!teb64)
        return nullptr;
#endif
    const auto at = [](uint64_t address) {
        return *reinterpret_cast<const uint64_t*>(static_cast<uintptr_t>(address));
    };
    return reinterpret_cast<const BYTE*>(
        static_cast<uintptr_t>(at(at(teb64 + kPebOfTeb64) + kGdiTableOfPeb64)));
}

template <class Test> long CountGdi(Test test) {
    const BYTE* table = WineGdiTable();
    long count = 0;
    for (size_t i = 0; table && i < kGdiEntries; ++i)
        count += test(table[i * kGdiEntrySize + kGdiKind]);
    return count;
}

bool IsOwnUserObject(HANDLE handle) {
    DWORD process = 0;
    if (GetWindowThreadProcessId(static_cast<HWND>(handle), &process))
        return process == GetCurrentProcessId();
    if (IsMenu(static_cast<HMENU>(handle)))
        return true;
    ICONINFO icon;
    if (!GetIconInfo(static_cast<HICON>(handle), &icon))
        return false;
    DeleteObject(icon.hbmMask);
    if (icon.hbmColor)
        DeleteObject(icon.hbmColor);
    return true;
}

// The low word of a handle is its place; both the bare and the full form are accepted.
long CountWineUserObjects() {
    long count = 0;
    for (uintptr_t handle = 0x20; handle < 0x10000; handle += 2)
        count += IsOwnUserObject(reinterpret_cast<HANDLE>(handle));
    return count;
}

} // namespace

long GdiObjects() {
    if (!RunningUnderWine())
        return static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    return CountGdi([](BYTE kind) { return kind != 0; });
}

long GdiObjectsBesideContexts() {
    if (!RunningUnderWine())
        return GdiObjects();
    return CountGdi([](BYTE kind) {
        return kind != 0 && kind != kDeviceContext && kind != kRegion && kind != kSurface;
    });
}

long UserObjects() {
    return RunningUnderWine()
               ? CountWineUserObjects()
               : static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
}

} // namespace vndesk::test
