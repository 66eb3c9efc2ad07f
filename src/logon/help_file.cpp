// SPDX-License-Identifier: MIT
#include "logon/help_file.h"

#include <shellapi.h>

#include "comkit/base/library.h"

namespace vndesk {

bool OpenHelpFile(HWND owner, const std::wstring& file) {
    // Hosts that never open one do without the shell.
    decltype(&ShellExecuteW) execute = nullptr;
    Library(L"shell32.dll").Find(execute, "ShellExecuteW");
    const auto opened = reinterpret_cast<INT_PTR>(
        execute(owner, nullptr, file.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    constexpr INT_PTR kGreatestError = 32;
    return opened > kGreatestError;
}

} // namespace vndesk
