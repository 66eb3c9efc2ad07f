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

// What NtQuerySystemInformation answers, however long it is.
std::vector<BYTE> SystemInformation(int kind) {
    using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<BYTE> bytes(1 << 16);
    ULONG needed = 0;
    while (query(kind, bytes.data(), static_cast<ULONG>(bytes.size()), &needed) == kTooShort)
        bytes.resize(std::max<size_t>(bytes.size() * 2, needed));
    return bytes;
}

// Of SystemExtendedHandleInformation, which winternl.h does not declare.
constexpr int kAllHandles = 64;
struct OpenHandle {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct OpenHandles {
    ULONG_PTR count;
    ULONG_PTR reserved;
    OpenHandle handles[1];
};

// One by one: the count that Wine tells of a process is that of its table's places.
long HandlesOf(DWORD process) {
    const std::vector<BYTE> bytes = SystemInformation(kAllHandles);
    const auto& all = *reinterpret_cast<const OpenHandles*>(bytes.data());
    return static_cast<long>(
        std::count_if(all.handles, all.handles + all.count,
                      [process](const OpenHandle& one) { return one.process == process; }));
}

} // namespace

ProcessUse UseOf(DWORD process) {
    const std::vector<BYTE> bytes = SystemInformation(SystemProcessInformation);
    for (const BYTE* at = bytes.data();;) {
        const auto& entry = *reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
        if (reinterpret_cast<ULONG_PTR>(entry.UniqueProcessId) == process)
            return {HandlesOf(process), static_cast<long>(entry.NumberOfThreads),
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
