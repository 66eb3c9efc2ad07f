// SPDX-License-Identifier: MIT
// Drawn menus on an MDI frame: menus that its children bring, the list of windows, the buttons of a
// maximised child.
#include "ui/menus/menu_host.h"

#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kFrameClass[] = L"VnDeskMdiFrame";
constexpr wchar_t kChildClass[] = L"VnDeskMdiChild";
constexpr UINT kFirstChild = 900;

bool IsDrawn(HMENU menu, UINT position) {
    return (TypeOf(menu, position) & MFT_OWNERDRAW) != 0;
}

class MdiFrame {
public:
    MdiFrame() {
        Register(kFrameClass, FrameProcedure);
        Register(kChildClass, DefMDIChildProcW);
        AppendMenuW(windows_, MF_STRING, 500, L"&Xếp cạnh nhau|Xếp các cửa sổ");
        AppendMenuW(bar_, MF_POPUP, reinterpret_cast<UINT_PTR>(windows_), L"&Cửa sổ");
        frame_ = CreateWindowExW(0, kFrameClass, L"Khung",
                                 WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 60, 60, 500,
                                 400, nullptr, bar_, GetModuleHandleW(nullptr), nullptr);
        CLIENTCREATESTRUCT client = {windows_, kFirstChild};
        client_ = CreateWindowExW(0, L"MDICLIENT", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                                  0, 480, 340, frame_, nullptr, GetModuleHandleW(nullptr), &client);
        SetWindowLongPtrW(frame_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(client_));
    }
    ~MdiFrame() {
        DestroyWindow(frame_);
        for (const wchar_t* name : {kFrameClass, kChildClass})
            UnregisterClassW(name, GetModuleHandleW(nullptr));
        if (IsMenu(bar_))
            DestroyMenu(bar_);
    }
    MdiFrame(const MdiFrame&) = delete;
    MdiFrame& operator=(const MdiFrame&) = delete;

    HWND AddChild(const wchar_t* title) const {
        MDICREATESTRUCTW child = {kChildClass, title, GetModuleHandleW(nullptr), 10, 10, 200, 150,
                                  0,           0};
        return reinterpret_cast<HWND>(
            SendMessageW(client_, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&child)));
    }
    void SetMenus(HMENU bar, HMENU windows) const {
        SendMessageW(client_, WM_MDISETMENU, reinterpret_cast<WPARAM>(bar),
                     reinterpret_cast<LPARAM>(windows));
        DrawMenuBar(frame_);
    }
    long Handle() const { return static_cast<long>(reinterpret_cast<LONG_PTR>(frame_)); }
    HWND Frame() const { return frame_; }
    HWND Client() const { return client_; }
    HMENU Bar() const { return bar_; }
    HMENU Windows() const { return windows_; }

private:
    static void Register(const wchar_t* name, WNDPROC procedure) {
        WNDCLASSW type = {};
        type.lpfnWndProc = procedure;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = name;
        RegisterClassW(&type);
    }
    static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
        const auto client = reinterpret_cast<HWND>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return DefFrameProcW(window, client, message, wParam, lParam);
    }

    const HMENU bar_ = CreateMenu(), windows_ = CreatePopupMenu();
    HWND frame_ = nullptr, client_ = nullptr;
};

class InstalledFrame {
public:
    explicit InstalledFrame(const MdiFrame& frame) : frame_(frame), menu_(CreateCoolMenu()) {
        VARIANT_BOOL done = VARIANT_FALSE;
        EXPECT_SUCCEEDED(menu_->Install(frame.Handle(), InstalledMenu::Missing(),
                                        InstalledMenu::Missing(), &done));
    }
    ~InstalledFrame() {
        VARIANT_BOOL done = VARIANT_FALSE;
        EXPECT_SUCCEEDED(menu_->Uninstall(frame_.Handle(), &done));
    }
    InstalledFrame(const InstalledFrame&) = delete;
    InstalledFrame& operator=(const InstalledFrame&) = delete;
    ICoolMenu* operator->() const { return menu_.Get(); }

private:
    const MdiFrame& frame_;
    Microsoft::WRL::ComPtr<ICoolMenu> menu_;
};

TEST(MenuMdi, MenuOfAChildIsTakenAndGivenBack) {
    const MdiFrame frame;
    const HMENU childBar = CreateMenu(), childPopup = CreatePopupMenu();
    AppendMenuW(childPopup, MF_STRING, 600, L"&Ghi sổ|Ghi vào sổ cái");
    AppendMenuW(childBar, MF_POPUP, reinterpret_cast<UINT_PTR>(childPopup), L"&Chứng từ");
    const MenuLines before = Describe(childBar), own = Describe(frame.Bar());
    {
        const InstalledFrame menu(frame);
        const HWND child = frame.AddChild(L"Phiếu thu");
        ASSERT_NE(nullptr, child);
        frame.SetMenus(childBar, nullptr);
        EXPECT_SUCCEEDED(menu->MDIChildMenu(static_cast<long>(reinterpret_cast<LONG_PTR>(child))));
        EXPECT_EQ(childBar, GetMenu(frame.Frame()));
        EXPECT_TRUE(IsDrawn(childBar, 0));
        EXPECT_TRUE(IsDrawn(childPopup, 0));
        EXPECT_EQ(L"&Ghi sổ", CaptionOf(childPopup, 0));
        EXPECT_TRUE(IsDrawn(frame.Bar(), 0)) << "the frame's own stays as it is";
        frame.SetMenus(frame.Bar(), frame.Windows());
        DestroyWindow(child);
    }
    EXPECT_EQ(before, Describe(childBar));
    EXPECT_EQ(own, Describe(frame.Bar()));
    DestroyMenu(childBar);
}

LRESULT CALLBACK KeepPositionToOneself(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR, DWORD_PTR) {
    return message == WM_WINDOWPOSCHANGED ? 0 : DefSubclassProc(window, message, wParam, lParam);
}

TEST(MenuMdi, MenuOfAChildIsTakenWhenTheHostTellsOfIt) {
    const MdiFrame frame;
    const HMENU childBar = CreateMenu();
    AppendMenuW(childBar, MF_STRING, 600, L"&Ghi sổ|Ghi vào sổ cái");
    {
        const InstalledFrame menu(frame);
        const HWND child = frame.AddChild(L"Phiếu thu");
        // Another hook keeps from ours that the frame has got a new bar.
        SetWindowSubclass(frame.Frame(), KeepPositionToOneself, 1, 0);
        frame.SetMenus(childBar, nullptr);
        EXPECT_FALSE(IsDrawn(childBar, 0));
        EXPECT_SUCCEEDED(menu->MDIChildMenu(static_cast<long>(reinterpret_cast<LONG_PTR>(child))));
        EXPECT_TRUE(IsDrawn(childBar, 0));
        frame.SetMenus(frame.Bar(), frame.Windows());
        RemoveWindowSubclass(frame.Frame(), KeepPositionToOneself, 1);
        DestroyWindow(child);
    }
    EXPECT_FALSE(IsDrawn(childBar, 0));
    DestroyMenu(childBar);
}

TEST(MenuMdi, ListOfWindowsShowsWholeTitles) {
    const MdiFrame frame;
    const InstalledFrame menu(frame);
    frame.AddChild(L"Sổ cái | 2005");
    SendMessageW(frame.Frame(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(frame.Windows()), 0);
    const int last = GetMenuItemCount(frame.Windows()) - 1;
    ASSERT_LT(0, last);
    EXPECT_EQ(L"&1 Sổ cái | 2005", CaptionOf(frame.Windows(), static_cast<UINT>(last)));
    EXPECT_TRUE(IsDrawn(frame.Windows(), static_cast<UINT>(last)));
}

TEST(MenuMdi, ButtonsOfAMaximisedChildAreLeftAlone) {
    const MdiFrame frame;
    const InstalledFrame menu(frame);
    const HWND child = frame.AddChild(L"Phiếu chi");
    SendMessageW(frame.Client(), WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child), 0);
    SendMessageW(frame.Frame(), WM_INITMENU, reinterpret_cast<WPARAM>(frame.Bar()), 0);
    int bitmaps = 0;
    for (int i = 0; i < GetMenuItemCount(frame.Bar()); ++i) {
        const UINT type = TypeOf(frame.Bar(), static_cast<UINT>(i));
        bitmaps += (type & MFT_BITMAP) != 0;
        EXPECT_NE((type & MFT_BITMAP) != 0, (type & MFT_OWNERDRAW) != 0) << i;
    }
    EXPECT_LT(0, bitmaps);
    SendMessageW(frame.Client(), WM_MDIRESTORE, reinterpret_cast<WPARAM>(child), 0);
    EXPECT_EQ(1, GetMenuItemCount(frame.Bar()));
    EXPECT_TRUE(IsDrawn(frame.Bar(), 0));
}

TEST(MenuMdi, SystemMenuOfAMaximisedChildIsItsOwn) {
    const MdiFrame frame;
    const InstalledFrame menu(frame);
    const HWND child = frame.AddChild(L"Phiếu chi");
    const HMENU system = GetSystemMenu(child, FALSE);
    const MenuLines before = Describe(system);
    ASSERT_FALSE(before.empty());
    SendMessageW(frame.Client(), WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child), 0);
    ASSERT_EQ(system, GetSubMenu(frame.Bar(), 0)) << "it is reached through the bar";
    SendMessageW(frame.Frame(), WM_INITMENU, reinterpret_cast<WPARAM>(frame.Bar()), 0);
    SendMessageW(frame.Frame(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(frame.Windows()), 1);
    for (int i = 0; i < GetMenuItemCount(system); ++i)
        EXPECT_FALSE(IsDrawn(system, static_cast<UINT>(i))) << i;
    SendMessageW(frame.Client(), WM_MDIRESTORE, reinterpret_cast<WPARAM>(child), 0);
    for (int i = 0; i < GetMenuItemCount(system); ++i)
        EXPECT_FALSE(IsDrawn(system, static_cast<UINT>(i))) << i;
    EXPECT_TRUE(IsDrawn(frame.Bar(), 0));
}

} // namespace
} // namespace vndesk::test
