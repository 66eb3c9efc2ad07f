// SPDX-License-Identifier: MIT
// Drawn menus under real keys and mouse moves, on a window whose thread pumps.
#include "ui/menus/menu_host.h"

#include <algorithm>

#include "menus/hook/cool_menu.h"
#include "menus/state/menu_module.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/screenshot.h"
#include "support/script_host.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr int kTries = 8;
constexpr DWORD kStep = 2000;

BOOL CALLBACK AddPopup(HWND window, LPARAM popups) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() && IsWindowVisible(window) &&
        ClassName(window) == L"#32768")
        reinterpret_cast<std::vector<HWND>*>(popups)->push_back(window);
    return TRUE;
}

// The open popups of this process, the deepest one first.
std::vector<HWND> Popups() {
    std::vector<HWND> popups;
    EnumWindows(AddPopup, reinterpret_cast<LPARAM>(&popups));
    return popups;
}

bool InMenu(HWND window) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return (info.flags & (GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE)) != 0;
}

// The state from which every step is tried.
void LeaveMenus(const MenuHost& host) {
    for (int i = 0; i < kTries && (InMenu(host.Window()) || !Popups().empty()); ++i) {
        PressKey(VK_ESCAPE);
        WaitUntil([&] { return !InMenu(host.Window()) && Popups().empty(); }, 300);
    }
    WaitUntil([&] { return GetForegroundWindow() == host.Window(); });
}

// Tries a step from outside all menus until it has worked; input can be lost on a busy machine.
void Retry(const MenuHost& host, const wchar_t* what, const std::function<bool()>& step) {
    for (int i = 0; i < kTries; ++i) {
        LeaveMenus(host);
        if (step())
            return;
    }
    SaveDesktop(L"menu-step-failed");
    Fail(std::wstring(L"does not work: ") + what);
}

bool OpenPopup(WORD letter, unsigned modifiers = kAlt) {
    PressKey(letter, modifiers);
    return WaitUntil([] { return !Popups().empty(); }, kStep);
}

// Plays the user in a second thread while this one pumps for the window.
void Play(const MenuHost& host, const std::function<void()>& script) {
    std::atomic<bool> done = false;
    DialogDriver user([&] {
        struct AtEnd {
            std::atomic<bool>& done;
            const MenuHost& host;
            ~AtEnd() {
                try {
                    LeaveMenus(host);
                } catch (...) { // the script's own failure counts
                }
                done = true;
            }
        } atEnd{done, host};
        if (!WaitUntil([&] {
                return GetForegroundWindow() == host.Window() &&
                       FocusWindow(host.Window()) == host.Window();
            }))
            Fail(L"the host's window does not get the keys");
        script();
    });
    while (!done)
        PumpUntil([&] { return done.load(); }, 1000);
    user.Finish();
}

void SaveMenus(const MenuHost& host, const wchar_t* name) {
    RECT area;
    GetWindowRect(host.Window(), &area);
    area.bottom = area.top + ToScreen(60);
    for (const HWND popup : Popups()) {
        RECT box;
        GetWindowRect(popup, &box);
        UnionRect(&area, &area, &box);
    }
    EXPECT_NE(L"", SaveArea(area, name));
}

POINT Middle(const RECT& box) {
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

// A picture is taken when the painting is over.
void LetPaint() {
    Sleep(150);
}

// --- keys ---

TEST(MenuPlay, AcceleratorLettersChooseItems) {
    const Pictures pictures;
    MenuHost host;
    const InstalledMenu menu(host, InstalledMenu::Missing(), pictures.Handle());
    host.Show();
    Play(host, [&] {
        Retry(host, L"Alt+T, L", [&] {
            if (!OpenPopup('T'))
                return false;
            PressKey('L');
            return WaitUntil([&] { return !host.Commands().empty(); }, kStep);
        });
        EXPECT_EQ(static_cast<UINT>(kSave), host.Commands().front());
        Retry(host, L"Alt+R", [&] {
            PressKey('R', kAlt);
            return WaitUntil([&] { return host.Commands().back() == kExit; }, 300) ||
                   (OpenPopup('R') &&
                    (PressKey('G'),
                     WaitUntil([&] { return host.Commands().back() == kAbout; }, kStep)));
        });
    });
}

TEST(MenuPlay, LettersOfItemsWithoutATextAreFoundByTheHandler) {
    MenuHost host;
    const InstalledMenu menu(host);
    // The platform finds letters in the texts of the items itself: without them it has to ask.
    for (UINT i = 0; i <= kExitAt; ++i) {
        MENUITEMINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STRING;
        info.dwTypeData = const_cast<wchar_t*>(L"");
        SetMenuItemInfoW(host.File(), i, TRUE, &info);
    }
    EXPECT_EQ(MAKELRESULT(kExitAt, MNC_EXECUTE),
              SendMessageW(host.Window(), WM_MENUCHAR, MAKEWPARAM(L'h', MF_POPUP),
                           reinterpret_cast<LPARAM>(host.File())));
    EXPECT_EQ(MAKELRESULT(kGridAt, MNC_EXECUTE),
              SendMessageW(host.Window(), WM_MENUCHAR, MAKEWPARAM(L'đ', MF_POPUP),
                           reinterpret_cast<LPARAM>(host.File())));
    EXPECT_EQ(MAKELRESULT(kPrintAt, MNC_SELECT),
              SendMessageW(host.Window(), WM_MENUCHAR, MAKEWPARAM(L'I', MF_POPUP),
                           reinterpret_cast<LPARAM>(host.File())))
        << "a disabled item is only moved to";
    const int forwarded = host.Seen(WM_MENUCHAR);
    EXPECT_EQ(0, HIWORD(SendMessageW(host.Window(), WM_MENUCHAR, MAKEWPARAM(L'z', MF_POPUP),
                                     reinterpret_cast<LPARAM>(host.File()))));
    EXPECT_EQ(forwarded + 1, host.Seen(WM_MENUCHAR)) << "no item: the window's own answer";

    host.Show();
    Play(host, [&] {
        Retry(host, L"Alt+T, H", [&] {
            if (!OpenPopup('T'))
                return false;
            PressKey('H');
            return WaitUntil([&] { return !host.Commands().empty(); }, kStep);
        });
        EXPECT_EQ(static_cast<UINT>(kExit), host.Commands().front());
    });
}

// --- help ---

TEST(MenuPlay, ScriptIsToldWhereTheUserIs) {
    MenuHost host;
    ScriptRunner script;
    CLSID clsid;
    Microsoft::WRL::ComPtr<IDispatch> help;
    ASSERT_SUCCEEDED(CLSIDFromProgID(L"VnDesk.HelpCallBack", &clsid));
    ASSERT_SUCCEEDED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&help)));
    script.AddObject(L"help", help.Get());
    script.RunOk(L"Sub help_MenuHelp(text, help, enabled)\n"
                 L"Echo text & \"/\" & help & \"/\" & enabled\nEnd Sub\nConnect help, \"help_\"");
    const InstalledMenu menu(host, _variant_t(help.Get()));
    host.Show();
    // The script's lines belong to this thread: the user's thread asks it.
    constexpr UINT kAsk = WM_APP + 1;
    std::wstring wanted;
    std::atomic<bool> told = false;
    host.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == kAsk)
            told = std::find(script.Lines().begin(), script.Lines().end(), wanted) !=
                   script.Lines().end();
    };
    const auto isTold = [&](const wchar_t* line) {
        wanted = line;
        SendMessageW(host.Window(), kAsk, 0, 0);
        return told.load();
    };
    Play(host, [&] {
        for (const wchar_t* line :
             {L"&Tệp/Việc với hồ sơ/True", L"&Mở…\tCtrl+O/Mở một hồ sơ có sẵn/True",
              L"&In…\tCtrl+P/In hồ sơ ra giấy/False", L"Gần đâ&y/Hồ sơ mở lần trước/True"})
            Retry(host, line, [&] {
                if (!OpenPopup('T'))
                    return false;
                for (int i = 0; i < 20 && !isTold(line); ++i)
                    PressKey(VK_DOWN);
                return isTold(line);
            });
        Retry(host, L"the system menu", [&] {
            if (!OpenPopup(VK_SPACE))
                return false;
            PressKey(VK_DOWN);
            return WaitUntil([&] { return !Popups().empty(); }, kStep);
        });
        SaveMenus(host, L"menu-system");
    });
    host.onMessage = nullptr;
}

TEST(MenuPlay, HostMayUninstallWhileItIsTold) {
    MenuHost host;
    int told = 0;
    ASSERT_TRUE(InstallMenus(host.Window(),
                             [&](const std::wstring&, const std::wstring&, bool) {
                                 ++told;
                                 UninstallMenus(host.Window());
                             },
                             {}));
    SendMessageW(host.Window(), WM_MENUSELECT, MAKEWPARAM(kSave, 0),
                 reinterpret_cast<LPARAM>(host.File()));
    EXPECT_EQ(1, told);
    EXPECT_EQ(nullptr, CurrentMenuModule());
    SendMessageW(host.Window(), WM_MENUSELECT, MAKEWPARAM(kSave, 0),
                 reinterpret_cast<LPARAM>(host.File()));
    EXPECT_EQ(1, told);
    EXPECT_EQ(2, host.Seen(WM_MENUSELECT)) << "the window's own procedure hears of both";
}

TEST(MenuPlay, CommandOfTwoMenusIsToldFromWhereTheUserIs) {
    const MenuHost host;
    std::vector<std::wstring> told;
    ASSERT_TRUE(InstallMenus(
        host.Window(),
        [&](const std::wstring&, const std::wstring& help, bool) { told.push_back(help); }, {}));
    // The menu bar and its first popup both have it.
    for (const HMENU menu : {host.Bar(), host.File()})
        SendMessageW(host.Window(), WM_MENUSELECT, MAKEWPARAM(kExit, 0),
                     reinterpret_cast<LPARAM>(menu));
    EXPECT_EQ((std::vector<std::wstring>{L"Kết thúc", L"Kết thúc chương trình"}), told);
    UninstallMenus(host.Window());
}

TEST(MenuPlay, HighlightedOneOfEqualCommandsIsTold) {
    const MenuHost host;
    AppendMenuW(host.File(), MF_STRING, kSave, L"Lưu lần nữa|Hai");
    std::vector<std::wstring> told;
    ASSERT_TRUE(InstallMenus(
        host.Window(),
        [&](const std::wstring&, const std::wstring& help, bool) { told.push_back(help); }, {}));
    const auto highlight = [&](UINT position, UINT state) {
        MENUITEMINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STATE;
        info.fState = state;
        SetMenuItemInfoW(host.File(), position, TRUE, &info);
    };
    const auto select = [&](UINT position) {
        highlight(position, MFS_HILITE);
        SendMessageW(host.Window(), WM_MENUSELECT, MAKEWPARAM(kSave, MF_HILITE),
                     reinterpret_cast<LPARAM>(host.File()));
        highlight(position, 0);
    };
    select(static_cast<UINT>(GetMenuItemCount(host.File()) - 1));
    select(kSaveAt);
    EXPECT_EQ((std::vector<std::wstring>{L"Hai", L"Ghi hồ sơ vào đĩa"}), told);
    UninstallMenus(host.Window());
}

TEST(MenuPlay, OpenPopupIsKnownByItsIndex) {
    MenuHost host;
    ASSERT_TRUE(InstallMenus(host.Window(), {}, {}));
    host.Show();
    const auto window = FindCoolMenu(host.Window());
    EXPECT_EQ(L"-1", window->MainPopedIndex());
    Play(host, [&] {
        Retry(host, L"Alt+T", [&] {
            return OpenPopup('T') &&
                   WaitUntil([&] { return window->MainPopedIndex() == L"0"; }, kStep);
        });
        Retry(host, L"the second popup", [&] {
            return OpenPopup('R') &&
                   WaitUntil([&] { return window->MainPopedIndex() == L"1"; }, kStep);
        });
        LeaveMenus(host);
        EXPECT_TRUE(WaitUntil([&] { return window->MainPopedIndex() == L"-1"; }));
    });
    UninstallMenus(host.Window());
}

// --- the mouse ---

TEST(MenuPlay, MenuBarLightsUpUnderTheMouse) {
    const MenuHost host;
    const InstalledMenu menu(host);
    const_cast<MenuHost&>(host).Show();
    RECT first, second;
    ASSERT_TRUE(GetMenuItemRect(host.Window(), host.Bar(), 0, &first));
    ASSERT_TRUE(GetMenuItemRect(host.Window(), host.Bar(), 1, &second));
    const auto edge = [](const RECT& item) {
        const HDC screen = GetDC(nullptr);
        const COLORREF color = GetPixel(screen, item.right - 1, (item.top + item.bottom) / 2);
        ReleaseDC(nullptr, screen);
        return color;
    };
    const COLORREF lit = GetSysColor(COLOR_BTNSHADOW);
    const RECT away = {first.left, first.top + 150, first.right, first.bottom + 150};
    Play(host, [&] {
        const auto moveUntil = [&](const RECT& rect, const wchar_t* what,
                                   const std::function<bool()>& seen) {
            Retry(host, what, [&] {
                POINT point = Middle(rect);
                MoveMouseTo({point.x + 3, point.y + 2});
                MoveMouseTo(point);
                return WaitUntil(seen, kStep);
            });
        };
        moveUntil(first, L"the first item lights up", [&] { return edge(first) == lit; });
        SaveMenus(host, L"menu-bar");
        moveUntil(second, L"the light goes with the mouse",
                  [&] { return edge(second) == lit && edge(first) != lit; });
        moveUntil(away, L"the light goes out", [&] { return edge(second) != lit; });
    });
}

TEST(MenuPlay, MouseOpensAndChooses) {
    MenuHost host;
    const InstalledMenu menu(host);
    host.Show();
    RECT help;
    ASSERT_TRUE(GetMenuItemRect(host.Window(), host.Bar(), 1, &help));
    const HMENU popup = GetSubMenu(host.Bar(), 1);
    Play(host, [&] {
        Retry(host, L"clicks", [&] {
            MoveMouseTo({help.left - 30, help.bottom + 120});
            ClickAt(Middle(help));
            if (!WaitUntil([] { return !Popups().empty(); }, kStep))
                return false;
            RECT item;
            if (!GetMenuItemRect(nullptr, popup, 0, &item))
                return false;
            ClickAt(Middle(item));
            return WaitUntil([&] { return !host.Commands().empty(); }, kStep);
        });
        EXPECT_EQ(static_cast<UINT>(kAbout), host.Commands().front());
    });
}

// --- pictures of it ---

struct Look {
    const wchar_t* name;
    bool rightToLeft;
    long fontSize;
    bool submenu;
};

class MenuPictureTest : public testing::TestWithParam<Look> {};
INSTANTIATE_TEST_SUITE_P(Looks, MenuPictureTest,
                         testing::Values(Look{L"menu-popup", false, 9, true},
                                         Look{L"menu-right-to-left", true, 9, false},
                                         Look{L"menu-large-font", false, 16, false}),
                         [](const auto& info) {
                             std::string name = ToUtf8(info.param.name);
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST_P(MenuPictureTest, PopupIsShown) {
    const Pictures pictures;
    const MenuHost host;
    const InstalledMenu menu(host, InstalledMenu::Missing(), pictures.Handle());
    VARIANT_BOOL flag;
    long size;
    EXPECT_SUCCEEDED(menu->RightToLeft(host.Handle(), _variant_t(GetParam().rightToLeft), &flag));
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(GetParam().fontSize), &size));
    const_cast<MenuHost&>(host).Show();
    Play(host, [&] {
        Retry(host, L"the popup", [&] {
            if (!OpenPopup('T'))
                return false;
            PressKey(VK_DOWN);
            if (GetParam().submenu) {
                PressKey('Y');
                if (!WaitUntil([] { return Popups().size() == 2; }, kStep))
                    return false;
            }
            return !Popups().empty();
        });
        LetPaint();
        SaveMenus(host, GetParam().name);
    });
}

} // namespace
} // namespace vndesk::test
