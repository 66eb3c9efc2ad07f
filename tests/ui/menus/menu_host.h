// SPDX-License-Identifier: MIT
// A host's window with a menu bar, and the registered clsCoolMenu on it.
#pragma once

#include <comutil.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <wrl/client.h>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "support/check_hr.h"
#include "vndesk_idl.h"

namespace vndesk::test {

// Every item below a menu in text: position, type, state, id, data, caption.
using MenuLines = std::vector<std::wstring>;
MenuLines Describe(HMENU menu);

UINT TypeOf(HMENU menu, UINT position);
ULONG_PTR DataOf(HMENU menu, UINT position);
std::wstring CaptionOf(HMENU menu, UINT position);

// Pixels of a screen with 96 to the inch, as so many of this one.
int ToScreen(int pixels);

enum MenuCommand : UINT {
    kOpen = 100,
    kSave,
    kPrint,
    kTools,
    kGrid,
    kSquares,
    kSmall,
    kLarge,
    kExit,
    kBook,
    kAbout = 200,
};
// Where they stand in the first popup.
enum FilePosition : UINT {
    kOpenAt,
    kSaveAt,
    kPrintAt,
    kFirstLine,
    kRecentAt,
    kViewTitle,
    kToolsAt,
    kGridAt,
    kSquaresAt,
    kSmallAt,
    kLargeAt,
    kLastLine,
    kExitAt,
};

class MenuHost {
public:
    enum class Kind { Unicode, Ansi };

    explicit MenuHost(Kind kind = Kind::Unicode, DWORD exStyle = 0);
    ~MenuHost();
    MenuHost(const MenuHost&) = delete;
    MenuHost& operator=(const MenuHost&) = delete;

    HWND Window() const { return window_; }
    long Handle() const { return static_cast<long>(reinterpret_cast<LONG_PTR>(window_)); }
    HMENU Bar() const { return GetMenu(window_); }
    HMENU File() const { return GetSubMenu(Bar(), 0); }
    HMENU Recent() const { return GetSubMenu(File(), kRecentAt); }
    HMENU System() const { return GetSystemMenu(window_, FALSE); }
    LONG_PTR Procedure() const;

    void Show();

    // What came to the window's own procedure.
    int Seen(UINT message);
    std::vector<UINT> Commands();
    // Called from the window's procedure before it goes on.
    std::function<void(UINT, WPARAM, LPARAM)> onMessage;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    std::mutex lock_;
    std::map<UINT, int> seen_;
    std::vector<UINT> commands_;
};

// Four pictures of 16 pixels: a folder, a disk, a printer, a tool.
class Pictures {
public:
    Pictures();
    ~Pictures() { ImageList_Destroy(list_); }
    Pictures(const Pictures&) = delete;
    Pictures& operator=(const Pictures&) = delete;

    HIMAGELIST List() const { return list_; }
    _variant_t Handle() const;

private:
    HIMAGELIST list_;
};

Microsoft::WRL::ComPtr<ICoolMenu> CreateCoolMenu();

// clsCoolMenu on a window for the length of a test.
class InstalledMenu {
public:
    explicit InstalledMenu(const MenuHost& host, const _variant_t& help = Missing(),
                           const _variant_t& images = Missing());
    ~InstalledMenu();
    InstalledMenu(const InstalledMenu&) = delete;
    InstalledMenu& operator=(const InstalledMenu&) = delete;

    static _variant_t Missing() { return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR); }
    ICoolMenu* operator->() const { return menu_.Get(); }
    void Uninstall();

private:
    Microsoft::WRL::ComPtr<ICoolMenu> menu_;
    long window_;
};

} // namespace vndesk::test
