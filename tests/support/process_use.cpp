// SPDX-License-Identifier: MIT
#include "support/process_use.h"

#include <winternl.h>
#include <psapi.h>

#include <algorithm>
#include <vector>

#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr LONG kTooShort = static_cast<LONG>(0xC0000004);

struct Count {
    DWORD process;
    long windows = 0;
};

BOOL CALLBACK CountWindow(HWND window, LPARAM parameter) {
    auto& count = *reinterpret_cast<Count*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    count.windows += owner == count.process;
    return TRUE;
}

BOOL CALLBACK CountTree(HWND window, LPARAM parameter) {
    CountWindow(window, parameter);
    EnumChildWindows(window, CountWindow, parameter);
    return TRUE;
}

long WindowsOf(DWORD process) {
    Count count = {process};
    EnumWindows(CountTree, reinterpret_cast<LPARAM>(&count));
    EnumChildWindows(HWND_MESSAGE, CountWindow, reinterpret_cast<LPARAM>(&count));
    return count.windows;
}

size_t MemoryOf(DWORD process) {
    PROCESS_MEMORY_COUNTERS counters = {};
    const HANDLE handle = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process);
    K32GetProcessMemoryInfo(handle, &counters, sizeof counters);
    CloseHandle(handle);
    return counters.WorkingSetSize;
}

} // namespace

// The list of all processes is the one place where Wine, too, tells how many handles each has.
ProcessUse UseOf(DWORD process) {
    using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<BYTE> bytes(1 << 16);
    ULONG needed = 0;
    while (query(SystemProcessInformation, bytes.data(), static_cast<ULONG>(bytes.size()),
                 &needed) == kTooShort)
        bytes.resize(std::max<size_t>(bytes.size() * 2, needed));
    for (const BYTE* at = bytes.data();;) {
        const auto& entry = *reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
        if (reinterpret_cast<ULONG_PTR>(entry.UniqueProcessId) == process)
            return {static_cast<long>(entry.HandleCount), static_cast<long>(entry.NumberOfThreads),
                    WindowsOf(process), MemoryOf(process)};
        if (!entry.NextEntryOffset)
            Fail(L"no process " + std::to_wstring(process));
        at += entry.NextEntryOffset;
    }
}

std::wstring TextOf(const ProcessUse& use) {
    return std::to_wstring(use.handles) + L" handles, " + std::to_wstring(use.threads) +
           L" threads, " + std::to_wstring(use.windows) + L" windows, " +
           std::to_wstring(use.memory / 1024) + L" KB";
}

} // namespace vndesk::test
