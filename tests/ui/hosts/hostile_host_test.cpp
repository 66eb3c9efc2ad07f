// SPDX-License-Identifier: MIT
// What a host may do to a form while it waits for the user: end its own windows or the form's,
// quit, let the object and the library go, open another form. Asked of every form.
#include "support/forms/each_form.h"

#include <optional>

#include "support/check_hr.h"
#include "support/reliability.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr int kQuitCode = 7;

class HostileHost : public testing::TestWithParam<EachForm> {
protected:
    void SetUp() override { Upgrade(database_, L"accounts"); }

    // Opens the form and does something to it. What stays open then is closed as a user would.
    void Open(const std::function<void(HWND form)>& action) {
        _bstr_t connect(database_.ConnectionString().c_str());
        {
            const AtLastForm last(GetParam(), [&](HWND form) {
                action(form);
                closing_.emplace();
            });
            hr_ = GetParam().open(&connect.GetBSTR());
            EXPECT_TRUE(last.Done()) << "the form was there";
        }
        closing_.reset();
        for (const HWND window : TopWindows())
            EXPECT_EQ(kHostTitle, TextOf(window)) << "left open";
    }

    // Removes the message that ends the host, if there is one.
    static bool WasToldToQuit() {
        MSG message = {};
        return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) &&
               message.wParam == kQuitCode;
    }

    // The platform's own message box behaves as it does without the library.
    static bool IsPlatforms() { return *GetParam().path[0] == L'\0'; }

    struct Told {
        bool quit = true, enabled = true;
    };
    static Told ByThePlatform() {
        const HostMainWindow host;
        const AtLastForm last(GetParam(), [](HWND) { PostQuitMessage(kQuitCode); });
        MessageBoxW(host.Window(), L"abc", L"x", MB_OK);
        const bool enabled = IsWindowEnabled(host.Window()) != FALSE;
        return {WasToldToQuit(), enabled};
    }

    // The library works on.
    static void ExpectNextFormWorks() {
        EXPECT_EQ(L"1", PlayMessage({}, [] {
                      const HWND box = WaitForForm(L"MessageBox");
                      PostMessageW(box, WM_COMMAND, GetDlgCtrlID(Control(box, L"Cmd1")), 0);
                  }));
    }

    const SampleDatabase database_ = SampleDatabase::Embedded();
    std::optional<CloseTheRest> closing_;
    HRESULT hr_ = E_PENDING;
};
INSTANTIATE_TEST_SUITE_P(Forms, HostileHost, testing::ValuesIn(EveryForm()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(HostileHost, FormGoesWithTheHostsWindow) {
    HostMainWindow host;
    Open([&](HWND) { DestroyWindow(host.Window()); });
    ExpectNextFormWorks();
}

TEST_P(HostileHost, HostsWindowThatClosesWhileItWaitsTakesTheFormAlong) {
    HostMainWindow host;
    Open([&](HWND) { SendMessageW(host.Window(), WM_CLOSE, 0, 0); });
    ExpectNextFormWorks();
}

TEST_P(HostileHost, FormThatTheHostDestroysIsOver) {
    const HostMainWindow host;
    Open([&](HWND form) { DestroyWindow(form); });
    EXPECT_EQ(!IsPlatforms(), IsWindowEnabled(host.Window()) != FALSE)
        << "the platform's own message box leaves its owner disabled";
    ExpectNextFormWorks();
}

TEST_P(HostileHost, EveryWindowOfTheThreadDestroyedEndsTheCall) {
    const HostMainWindow host;
    Open([&](HWND) {
        for (const HWND window : TopWindows())
            if (IsWindow(window))
                DestroyWindow(window);
    });
    ExpectNextFormWorks();
}

TEST_P(HostileHost, ControlsDestroyedOneByOneLeaveAFormThatCloses) {
    const HostMainWindow host;
    Open([&](HWND form) {
        while (const HWND child = GetWindow(form, GW_CHILD))
            DestroyWindow(child);
    });
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    ExpectNextFormWorks();
}

TEST_P(HostileHost, QuitEndsEveryFormAndIsPassedOn) {
    Told wanted;
    if (IsPlatforms())
        wanted = ByThePlatform();
    const HostMainWindow host;
    Open([&](HWND) { PostQuitMessage(kQuitCode); });
    EXPECT_EQ(wanted.quit, WasToldToQuit());
    EXPECT_EQ(wanted.enabled, IsWindowEnabled(host.Window()) != FALSE);
    ExpectNextFormWorks();
}

TEST_P(HostileHost, EndOfTheUsersSessionIsNotRefused) {
    const HostMainWindow host;
    Open([&](HWND form) {
        EXPECT_NE(0, SendMessageW(form, WM_QUERYENDSESSION, 0, 0));
        SendMessageW(form, WM_ENDSESSION, TRUE, 0);
        SendMessageW(host.Window(), WM_ENDSESSION, TRUE, 0);
        PostQuitMessage(kQuitCode); // as hosts answer it
    });
    EXPECT_EQ(!IsPlatforms() || ByThePlatform().quit, WasToldToQuit());
    ExpectNextFormWorks();
}

TEST_P(HostileHost, ObjectsAndLibraryLetGoMeanwhileStayUntilTheCallReturns) {
    const HostMainWindow host;
    Open([&](HWND) { CoFreeUnusedLibrariesEx(0, 0); });
    ExpectNextFormWorks();
}

TEST_P(HostileHost, FormFromInsideAFormIsAnswered) {
    const HostMainWindow host;
    std::wstring answer;
    Open([&](HWND) {
        const CloseTheRest closing;
        const auto logon = CreateLogon();
        _bstr_t text(L"abc"), title(L"x"), pressed;
        EXPECT_SUCCEEDED(logon->MgBox(&text.GetBSTR(), vbOKOnly, &title.GetBSTR(), vbQuestion,
                                      VARIANT_FALSE, pressed.GetAddress()));
        _bstr_t connect(database_.ConnectionString().c_str());
        long code = -1;
        EXPECT_SUCCEEDED(logon->ShowLogon(&connect.GetBSTR(), &code));
        EXPECT_EQ(0, code);
    });
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    ExpectNextFormWorks();
}

TEST_P(HostileHost, SenselessMessagesDoNoHarm) {
    const HostMainWindow host;
    Open([&](HWND form) {
        // Not those whose parameters are addresses, nor those that end or hide windows.
        const UINT messages[] = {
            WM_COMMAND, WM_SIZE,         WM_ACTIVATE,      WM_NEXTDLGCTL, WM_TIMER,
            WM_HSCROLL, WM_VSCROLL,      WM_INITMENU,      WM_MOUSEMOVE,  WM_CHAR,
            WM_KEYUP,   WM_THEMECHANGED, WM_DISPLAYCHANGE, WM_FONTCHANGE, WM_SYSCOLORCHANGE,
            WM_USER,    WM_USER + 1,     WM_APP,           WM_APP + 1};
        for (const UINT message : messages)
            for (const WPARAM wParam : {WPARAM{0}, WPARAM{0xFFFF}, static_cast<WPARAM>(-1)})
                for (const LPARAM lParam : {LPARAM{0}, LPARAM{-1}})
                    if (IsWindow(form) && !(message == WM_COMMAND && wParam == 0))
                        PostMessageW(form, message, wParam, lParam);
    });
    ExpectNextFormWorks();
}

// --- what is held while a call runs ---

ILogon* released;

void CALLBACK ReleaseObject(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    EXPECT_LT(0u, released->Release()) << "the running call holds the object";
    CoFreeUnusedLibrariesEx(0, 0);
    for (const HWND window : TopWindows())
        PostMessageW(window, WM_CLOSE, 0, 0);
}

TEST(HostileCalls, LastReferenceLetGoDuringACallEndsTheObjectAfterIt) {
    released = CreateLogon().Detach();
    _bstr_t text(L"abc"), title(L"x"), pressed;
    const UINT_PTR timer = SetTimer(nullptr, 0, 200, ReleaseObject);
    ASSERT_NE(0u, timer);
    EXPECT_SUCCEEDED(released->MgBox(&text.GetBSTR(), vbOKOnly, &title.GetBSTR(), vbQuestion,
                                     VARIANT_FALSE, pressed.GetAddress()));
}

ISearch* search;

void CALLBACK ReleaseSearch(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    EXPECT_LT(0u, search->Release()) << "the running call holds the object";
    for (const HWND window : TopWindows())
        PostMessageW(window, WM_CLOSE, 0, 0);
}

TEST(HostileCalls, SearchLetGoDuringItsDialogEndsAfterIt) {
    const SampleDatabase database = SampleDatabase::Embedded();
    search = CreateSearch().Detach();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    const UINT_PTR timer = SetTimer(nullptr, 0, 500, ReleaseSearch);
    ASSERT_NE(0u, timer);
    long modal = 1;
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
}

TEST(HostileCalls, UnusedLibraryIsUnloadedAndLoadedAgain) {
    const int rounds = Rounds(50, 1000);
    int unloaded = 0;
    for (int i = 0; i < rounds; ++i) {
        CoFreeUnusedLibrariesEx(0, 0);
        unloaded += GetModuleHandleW(L"vndesk.dll") == nullptr;
        const auto logon = CreateLogon();
        _bstr_t font(L"Arial");
        EXPECT_SUCCEEDED(logon->SetDfFont(&font.GetBSTR()));
        CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_NE(nullptr, GetModuleHandleW(L"vndesk.dll")) << "an object is left";
    }
    EXPECT_EQ(rounds, unloaded);
}

} // namespace
} // namespace vndesk::test
