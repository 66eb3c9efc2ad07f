// SPDX-License-Identifier: MIT
// What a dialog of the library does to the host around it.
#include "support/forms/host.h"

#include "support/keys.h"
#include "support/sample_database.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

// A host's window with an edit box, visible and active.
class HostWindow {
public:
    HostWindow()
        : window_(CreateWindowExW(0, L"#32770", L"Chương trình chủ",
                                  WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400, 200, nullptr,
                                  nullptr, nullptr, nullptr)),
          edit_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 10, 100,
                                24, window_, nullptr, nullptr, nullptr)) {
        SetForegroundWindow(window_);
        SetFocus(edit_);
    }
    ~HostWindow() { DestroyWindow(window_); }
    HWND Window() const { return window_; }
    HWND Edit() const { return edit_; }

private:
    HWND window_;
    HWND edit_;
};

TEST(Modality, HostWindowWaitsAndGetsItsFocusBack) {
    const HostWindow host;
    ASSERT_EQ(host.Edit(), GetFocus());
    PlayMessage({}, [&] {
        const HWND box = WaitForForm(L"MessageBox");
        EXPECT_FALSE(IsWindowEnabled(host.Window()));
        // It stays in front of the host's window.
        EXPECT_EQ(host.Window(), GetWindow(box, GW_OWNER));
        WaitForFocus(box, L"Cmd1");
        PressKey(VK_SPACE);
    });
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == host.Edit(); }));
}

TEST(Modality, WindowDisabledBeforeStaysDisabled) {
    const HostWindow host;
    const HostWindow busy;
    EnableWindow(busy.Window(), FALSE);
    PlayMessage({}, [] { ClickWindow(Control(WaitForForm(L"MessageBox"), L"Cmd1")); });
    EXPECT_FALSE(IsWindowEnabled(busy.Window()));
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST(Modality, MessageOverTheLogonDialogBlocksItUntilAnswered) {
    const SampleDatabase database = SampleDatabase::Embedded();
    PlayLogon(database.ConnectionString(), [] {
        const HWND dialog = WaitForForm(L"FrmLogon");
        WaitForFocus(dialog, L"TxtUser");
        TypeText(L"x");
        ClickWindow(Control(dialog, L"CmdOk"));
        const HWND box = WaitForForm(L"MessageBox");
        EXPECT_FALSE(IsWindowEnabled(dialog));
        WaitForFocus(box, L"Cmd1");
        PressKey(VK_SPACE);
        WaitForClose(box);
        EXPECT_TRUE(IsWindowEnabled(dialog));
        WaitForFocus(dialog, L"TxtUser");
        PressKey(VK_ESCAPE);
    });
}

// Another program's window is active: the message has no owner.
TEST(Modality, MessageOfTheDatabaseBlocksTheWindowsOfAHostInTheBackground) {
    const HostWindow host;
    const HostWindow other;
    SetActiveWindow(nullptr);
    SetForegroundWindow(GetDesktopWindow());
    ASSERT_TRUE(PumpUntil([] { return GetActiveWindow() == nullptr; }));
    const wchar_t* connection = L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\khong "
                                L"co\\host.db;Jet OLEDB:Engine Type=5";
    PlayLogon(connection, [&] {
        WaitForClass(L"#32770");
        HWND box = nullptr;
        EXPECT_TRUE(WaitUntil([&] {
            for (const HWND window : TopWindows())
                if (ClassName(window) == L"#32770" && window != host.Window() &&
                    window != other.Window())
                    box = window;
            return box != nullptr;
        }));
        EXPECT_EQ(nullptr, GetWindow(box, GW_OWNER));
        EXPECT_FALSE(IsWindowEnabled(host.Window()));
        EXPECT_FALSE(IsWindowEnabled(other.Window()));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        WaitForClose(box);
        const HWND dialog = WaitForForm(L"FrmLogon");
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    EXPECT_TRUE(IsWindowEnabled(other.Window()));
}

void CALLBACK DestroyHost(HWND window, UINT, UINT_PTR, DWORD) {
    KillTimer(window, 1);
    DestroyWindow(window);
}

TEST(Modality, HostWindowDestroyedMeanwhileEndsTheDialog) {
    auto host = std::make_unique<HostWindow>();
    const UINT_PTR timer = SetTimer(host->Window(), 1, 300, DestroyHost);
    ASSERT_NE(0u, timer);
    EXPECT_EQ(L"", PlayMessage({}, [] { WaitForClose(WaitForForm(L"MessageBox")); }));
}

TEST(Modality, QuitMessageEndsTheDialogAndReachesTheHost) {
    const auto logon = CreateLogon();
    const DWORD hostThread = GetCurrentThreadId();
    _bstr_t text(L"abc");
    _bstr_t title(L"");
    _bstr_t pressed;
    DialogDriver user([&] {
        const HWND box = WaitForForm(L"MessageBox");
        WaitForFocus(box, L"Cmd1");
        PostThreadMessageW(hostThread, WM_QUIT, 7, 0);
        WaitForClose(box);
    });
    EXPECT_SUCCEEDED(logon->MgBox(&text.GetBSTR(), vbOKOnly, &title.GetBSTR(), vbQuestion,
                                  VARIANT_FALSE, pressed.GetAddress()));
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(7u, message.wParam);
    EXPECT_EQ(0u, pressed.length());
    user.Finish();
}

const SampleDatabase* nested;

void CALLBACK LogOnInside(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    _bstr_t connect(nested->ConnectionString().c_str());
    long code = -1;
    CreateLogon()->ShowLogon(&connect.GetBSTR(), &code);
}

TEST(Modality, SecondLogonFromInsideTheFirstLeavesItsConnectionAlone) {
    const SampleDatabase outer = SampleDatabase::Embedded();
    const SampleDatabase inner = SampleDatabase::Embedded();
    outer.Execute(
        L"insert into [user](code,name,[dec],idgroup,password) values(950,'ngoai','',1,1401)");
    nested = &inner;
    const UINT_PTR timer = SetTimer(nullptr, 0, 300, LogOnInside);
    ASSERT_NE(0u, timer);
    EXPECT_EQ(950, PlayLogon(outer.ConnectionString(), [] {
                  const HWND first = WaitForForm(L"FrmLogon");
                  EXPECT_TRUE(WaitUntil([&] { return !IsWindowEnabled(first); }));
                  const HWND second = TopWindows().front();
                  EXPECT_EQ(L"FrmLogon", WindowName(second));
                  WaitForFocus(second, L"TxtUser");
                  PressKey(VK_ESCAPE);
                  WaitForClose(second);
                  WaitForFocus(first, L"TxtUser");
                  TypeText(L"ngoai");
                  PressKey(VK_TAB);
                  TypeText(L"abc");
                  ClickWindow(Control(first, L"CmdOk"));
              }));
}

} // namespace
} // namespace vndesk::test
