// SPDX-License-Identifier: MIT
// vntour: a small desktop program that uses VnDesk as any host does. It asks for a logon when it
// starts and shows who has logged on. Exit code 0 when somebody is logged on at the end, else 1.
#include <windows.h>
#include <commctrl.h>

#include "commands.h"
#include "host_error.h"
#include "main_window.h"
#include "options.h"

namespace {

constexpr int kFailed = 1, kUsage = 2;

int Run(const Options& options) {
    Tour tour(options);
    const HWND window = CreateMainWindow(tour);
    const HACCEL keys = CreateCommandKeys();
    ShowWindow(window, SW_SHOWDEFAULT);
    UpdateWindow(window);
    // Posted, so that the window is there before the dialog opens above it.
    PostMessageW(window, WM_COMMAND, Commands().front().id, 0);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorW(window, keys, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    DestroyAcceleratorTable(keys);
    return tour.IsLoggedOn() ? 0 : kFailed;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    const Options options = ReadOptions(GetCommandLineW());
    if (!options.error.empty()) {
        MessageBoxW(nullptr, options.error.c_str(), L"vntour", MB_ICONINFORMATION);
        return kUsage;
    }
    InitCommonControls();
    // The library's dialogs belong to this thread, which must be a single-threaded apartment.
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return kFailed;
    int code = kFailed;
    try {
        code = Run(options);
    } catch (const HostError& error) {
        MessageBoxW(nullptr, (L"VnDesk: " + error.description).c_str(), L"vntour", MB_ICONERROR);
    }
    CoUninitialize();
    return code;
}
