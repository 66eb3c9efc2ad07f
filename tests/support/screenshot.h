// SPDX-License-Identifier: MIT
// What stands on the screen, as a PNG file in the out folder.
#pragma once
#include <string>
#include <windows.h>

namespace vndesk::test {

// Both return the file's path, empty on failure. They copy from the screen, so what covers a
// window is in the picture too.
std::wstring SaveWindow(HWND window, const std::wstring& name);
std::wstring SaveDesktop(const std::wstring& name);
std::wstring SaveArea(const RECT& area, const std::wstring& name);

} // namespace vndesk::test
