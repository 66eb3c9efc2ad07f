// SPDX-License-Identifier: MIT
// The common controls that the library's own manifest gets on this machine.
#include "check/probes.h"

#include <uxtheme.h>

#include "check/machine.h"
#include "forms/look/theme_scope.h"

namespace vndesk::check {

void ProbeControls(Findings& findings) {
    // This program carries the library's manifest as the library does.
    const ThemeScope manifest;
    const HMODULE controls = LoadLibraryW(L"comctl32.dll");
    wchar_t path[MAX_PATH * 4] = L"";
    if (controls) {
        GetModuleFileNameW(controls, path, MAX_PATH * 4);
        FreeLibrary(controls);
    }
    // The system's folder holds the old ones; Wine's files have the same version for both.
    std::wstring folder = path;
    CharLowerW(folder.data());
    const bool sideBySide = folder.find(L"\\winsxs\\") != std::wstring::npos;
    findings.push_back({sideBySide ? Id::CommonControls : Id::CommonControlsOld,
                        {std::wstring(path) + L" (" + VersionOfFile(path) + L")"}});
    if (!IsThemeActive())
        findings.push_back({Id::ThemeOff, {}});
}

} // namespace vndesk::check
