// SPDX-License-Identifier: MIT
// Drawn menus among others that stand before a window's procedure: the window's own procedure hears
// everything once, in whatever order they come and go.
#include "ui/menus/menu_host.h"

#include "support/in_threads.h"

namespace vndesk::test {
namespace {

WNDPROC below = nullptr;
int othersSeen = 0;

LRESULT CALLBACK Other(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    othersSeen += message == WM_APP;
    return CallWindowProcW(below, window, message, wParam, lParam);
}

LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                          DWORD_PTR) {
    othersSeen += message == WM_APP;
    return DefSubclassProc(window, message, wParam, lParam);
}

class MenuProcedures : public testing::Test {
protected:
    MenuProcedures() { othersSeen = 0; }
    // What comes in at the window is heard once by its own procedure, and by the other one when
    // that stands before it.
    void ExpectHeard(bool byOther, const char* when) {
        const int host = host_.Seen(WM_APP), other = othersSeen;
        SendMessageW(host_.Window(), WM_APP, 0, 0);
        EXPECT_EQ(host + 1, host_.Seen(WM_APP)) << when;
        EXPECT_EQ(other + byOther, othersSeen) << when;
    }
    LONG_PTR Put(LONG_PTR procedure) const {
        return SetWindowLongPtrW(host_.Window(), GWLP_WNDPROC, procedure);
    }
    void PutOther() const {
        below = reinterpret_cast<WNDPROC>(Put(reinterpret_cast<LONG_PTR>(Other)));
    }
    void TakeOther() const { Put(reinterpret_cast<LONG_PTR>(below)); }
    void AddSubclass() const { ASSERT_TRUE(SetWindowSubclass(host_.Window(), Subclass, 1, 0)); }
    void RemoveSubclass() const { RemoveWindowSubclass(host_.Window(), Subclass, 1); }
    HRESULT CanUnload() const {
        using Ask = HRESULT WINAPI();
        return reinterpret_cast<Ask*>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"vndesk.dll"), "DllCanUnloadNow")))();
    }

    MenuHost host_;
};

TEST_F(MenuProcedures, SavedProcedureThatIsPutBackLaterStillServesTheWindow) {
    InstalledMenu menu(host_);
    const LONG_PTR saved = host_.Procedure();
    menu.Uninstall();
    Put(saved);
    ExpectHeard(false, "put back");
    DestroyWindow(host_.Window());
    EXPECT_EQ(1, host_.Seen(WM_NCDESTROY));
}

TEST_F(MenuProcedures, ProcedureThatCameLaterGoesAfterTheUninstallation) {
    InstalledMenu menu(host_);
    PutOther();
    ExpectHeard(true, "both");
    menu.Uninstall();
    ExpectHeard(true, "the other one stays");
    TakeOther();
    ExpectHeard(false, "the other one gone");
}

TEST_F(MenuProcedures, ProcedureThatCameLaterGoesBeforeTheUninstallation) {
    const LONG_PTR own = host_.Procedure();
    InstalledMenu menu(host_);
    PutOther();
    TakeOther();
    menu.Uninstall();
    ExpectHeard(false, "both gone");
    EXPECT_EQ(own, host_.Procedure());
}

TEST_F(MenuProcedures, ProcedureThatCameFirstIsTakenAwayFromBelow) {
    PutOther();
    InstalledMenu menu(host_);
    TakeOther(); // takes the hook away too
    ExpectHeard(false, "installed");
    menu.Uninstall();
    ExpectHeard(false, "it does not come back");
}

TEST_F(MenuProcedures, SubclassThatCameLaterGoesAfterTheUninstallation) {
    InstalledMenu menu(host_);
    AddSubclass();
    ExpectHeard(true, "both");
    menu.Uninstall();
    ExpectHeard(true, "the subclass stays");
    RemoveSubclass();
    ExpectHeard(false, "both gone");
}

TEST_F(MenuProcedures, SubclassThatCameLaterGoesBeforeTheUninstallation) {
    InstalledMenu menu(host_);
    AddSubclass();
    RemoveSubclass();
    ExpectHeard(false, "installed");
    menu.Uninstall();
    ExpectHeard(false, "both gone");
}

// Wine 10's RemoveWindowSubclass leaves a procedure that swallows everything where any other stands
// before it.
bool SubclassGoesFromBelowAnother() {
    MenuHost host;
    SetWindowSubclass(host.Window(), Subclass, 1, 0);
    below = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(host.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Other)));
    RemoveWindowSubclass(host.Window(), Subclass, 1);
    SendMessageW(host.Window(), WM_APP, 0, 0);
    return host.Seen(WM_APP) == 1;
}

TEST_F(MenuProcedures, SubclassThatCameFirstGoesBeforeTheUninstallation) {
    if (!SubclassGoesFromBelowAnother())
        GTEST_SKIP() << "the platform loses messages there without drawn menus too";
    AddSubclass();
    InstalledMenu menu(host_);
    RemoveSubclass();
    ExpectHeard(false, "installed");
    menu.Uninstall();
    ExpectHeard(false, "both gone");
}

TEST_F(MenuProcedures, SubclassThatCameFirstGoesAfterTheUninstallation) {
    AddSubclass();
    InstalledMenu menu(host_);
    ExpectHeard(true, "both");
    menu.Uninstall();
    ExpectHeard(true, "the subclass stays");
    RemoveSubclass();
    ExpectHeard(false, "both gone");
}

TEST_F(MenuProcedures, WindowIsInstalledAgainBelowWhatStayed) {
    InstalledMenu menu(host_);
    AddSubclass();
    menu.Uninstall();
    for (int i = 0; i < 2; ++i) {
        InstalledMenu again(host_);
        ExpectHeard(true, "again");
        EXPECT_TRUE(TypeOf(host_.Bar(), 0) & MFT_OWNERDRAW);
    }
    RemoveSubclass();
    ExpectHeard(false, "all gone");
    InstalledMenu last(host_);
    ExpectHeard(false, "once more");
    last.Uninstall();
    ExpectHeard(false, "and gone");
}

TEST_F(MenuProcedures, LibraryStaysWhileAnotherMayCallIt) {
    {
        InstalledMenu menu(host_);
        AddSubclass();
        menu.Uninstall();
    }
    EXPECT_HR(S_FALSE, CanUnload());
    DestroyWindow(host_.Window());
    EXPECT_HR(S_OK, CanUnload());
}

TEST(MenuThreadEnd, ThreadThatEndsWithAnInstalledWindowLeavesNothing) {
    using Ask = HRESULT WINAPI();
    {
        const MenuHost here;
        InstalledMenu{here};
    }
    const auto canUnload = reinterpret_cast<Ask*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"vndesk.dll"), "DllCanUnloadNow")));
    for (int i = 0; i < 3; ++i) {
        InThreads(1, COINIT_APARTMENTTHREADED, 20000, [](int) {
            // The window lives to the thread's end.
            auto* host = new MenuHost; // NOLINT
            VARIANT_BOOL done = VARIANT_FALSE;
            EXPECT_SUCCEEDED(CreateCoolMenu()->Install(host->Handle(), InstalledMenu::Missing(),
                                                       InstalledMenu::Missing(), &done));
            EXPECT_EQ(VARIANT_TRUE, done);
            SetWindowLongPtrW(host->Window(), GWLP_USERDATA, 0);
        });
        EXPECT_HR(S_OK, canUnload());
    }
}

} // namespace
} // namespace vndesk::test
