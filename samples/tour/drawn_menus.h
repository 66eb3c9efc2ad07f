// SPDX-License-Identifier: MIT
// The library draws the program's menus and tells which command the user is on.
#pragma once
#include <windows.h>

#include <functional>
#include <string>

#include <ocidl.h>
#include <wrl/client.h>

#include "vndesk_idl.h"

class DrawnMenus {
public:
    using ShowHelp = std::function<void(const std::wstring& help)>;

    // Throws HostError when the library does not take the window.
    void Install(HWND window, ShowHelp showHelp);
    // Before the window goes. Does nothing without an installation.
    void Uninstall();

private:
    Microsoft::WRL::ComPtr<ICoolMenu> menu_;
    Microsoft::WRL::ComPtr<IConnectionPoint> events_;
    DWORD connection_ = 0;
    long window_ = 0;
};
