// SPDX-License-Identifier: MIT
// The system: its name and bitness, Wine, the ANSI code page.
#include "check/probes.h"

#include "check/machine.h"

namespace vndesk::check {

namespace {

int SystemBits() {
    SYSTEM_INFO info = {};
    GetNativeSystemInfo(&info);
    return info.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_INTEL ? 32 : 64;
}

// GetVersionEx reports an older version to programs whose manifest does not name the newest.
std::wstring SystemName() {
    const auto version = reinterpret_cast<LONG(WINAPI*)(OSVERSIONINFOW*)>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion"));
    OSVERSIONINFOW info = {};
    info.dwOSVersionInfoSize = sizeof info;
    if (!version || version(&info) != 0)
        return L"Windows";
    return L"Windows " + std::to_wstring(info.dwMajorVersion) + L"." +
           std::to_wstring(info.dwMinorVersion) + L"." + std::to_wstring(info.dwBuildNumber);
}

} // namespace

void ProbeSystem(Findings& findings) {
    findings.push_back({Id::System, {kBitsText, SystemName(), std::to_wstring(SystemBits())}});
    if (const std::wstring wine = WineVersion(); !wine.empty())
        findings.push_back({Id::Wine, {wine}});
    const UINT codePage = GetACP();
    findings.push_back(
        {codePage == CP_UTF8 ? Id::CodePageUtf8 : Id::CodePage, {std::to_wstring(codePage)}});
}

} // namespace vndesk::check
