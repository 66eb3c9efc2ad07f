// SPDX-License-Identifier: MIT
// The logon dialog as hosts see it: through the registered class, with real keys, on real
// databases.
#include "support/forms/host.h"

#include "support/keys.h"
#include "support/sample_database.h"
#include "support/screenshot.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

HWND Dialog() {
    const HWND dialog = WaitForForm(L"FrmLogon");
    WaitForFocus(dialog, L"TxtUser");
    return dialog;
}

// Types into the dialog from its first box on; Enter leads from box to box.
void Type(HWND dialog, const wchar_t* name, const wchar_t* password) {
    TypeText(name);
    PressKey(VK_RETURN);
    WaitForFocus(dialog, L"TxtPass");
    TypeText(password);
    PressKey(VK_RETURN);
}

void PressOk(HWND dialog) {
    WaitForFocus(dialog, L"CmdOk");
    PressKey(VK_SPACE);
}

// Closes the library's message after a failed try; the dialog must be ready for the next one.
void DismissFailure(HWND dialog) {
    const HWND box = WaitForForm(L"MessageBox");
    EXPECT_EQ(L"Mật khẩu hoặc người sử dụng không hợp lệ ", TextOf(box, L"Message"));
    EXPECT_EQ(L"Login", TextOf(box, L"label4"));
    EXPECT_FALSE(IsShown(box, L"Cmd2"));
    WaitForFocus(box, L"Cmd1");
    PressKey(VK_SPACE);
    WaitForClose(box);
    WaitForFocus(dialog, L"TxtUser");
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(Control(dialog, L"TxtUser"), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(0u, start);
    EXPECT_EQ(TextOf(dialog, L"TxtUser").size(), end);
}

std::function<void()> Trying(const wchar_t* name, const wchar_t* password) {
    return [name, password] {
        const HWND dialog = Dialog();
        Type(dialog, name, password);
        PressOk(dialog);
    };
}

// A try that fails, then the way out.
std::function<void()> Failing(const wchar_t* name, const wchar_t* password) {
    return [name, password] {
        const HWND dialog = Dialog();
        Type(dialog, name, password);
        PressOk(dialog);
        DismissFailure(dialog);
        PressKey(VK_ESCAPE);
    };
}

// The same with a text that takes long to type; `told` says whether the provider's words come
// first.
void FailWith(HWND dialog, const wchar_t* name, const wchar_t* password, bool told = false) {
    SetWindowTextW(Control(dialog, L"TxtUser"), name);
    SetWindowTextW(Control(dialog, L"TxtPass"), password);
    ClickWindow(Control(dialog, L"CmdOk"));
    if (told)
        ClosePlainMessage();
    DismissFailure(dialog);
}

// Each case runs on the embedded database and on the server.
class Logon : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const bool server = std::string_view(GetParam()) == "Server";
        if (server && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        database_ = std::make_unique<SampleDatabase>(server ? SampleDatabase::Server()
                                                            : SampleDatabase::Embedded());
        // Users of this test, beside those of the sample.
        AddUser(901, L"thu", 1401);
        AddUser(902, L"trong", 0);
    }

    void AddUser(int code, const std::wstring& name, double password) {
        const std::wstring values =
            std::to_wstring(code) + L",'" + name + L"','',1," + std::to_wstring(password);
        database_->Execute(L"insert into \"user\"(code,name,\"dec\",idgroup,password) values(" +
                           values + L")");
    }

    long Play(std::function<void()> script) {
        return PlayLogon(database_->ConnectionString(), std::move(script));
    }

    std::unique_ptr<SampleDatabase> database_;
};

INSTANTIATE_TEST_SUITE_P(Databases, Logon, testing::Values("Embedded", "Server"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(Logon, RightPasswordGivesTheCode) {
    EXPECT_EQ(901, Play(Trying(L"thu", L"abc")));
}

TEST_P(Logon, PasswordIgnoresCaseAndBlanksAround) {
    EXPECT_EQ(901, Play(Trying(L"thu", L"  aBc ")));
}

TEST_P(Logon, NameIsTrimmedAndIgnoresCase) {
    EXPECT_EQ(901, Play(Trying(L"  THU ", L"abc")));
}

TEST_P(Logon, WrongPasswordIsRefusedAndLeavesTheDialogOpen) {
    EXPECT_EQ(0, Play(Failing(L"thu", L"abd")));
}

TEST_P(Logon, UnknownUserIsRefused) {
    EXPECT_EQ(0, Play(Failing(L"ai day", L"abc")));
}

TEST_P(Logon, EmptyPasswordFitsCodeZeroOnly) {
    EXPECT_EQ(902, Play(Trying(L"trong", L"")));
    EXPECT_EQ(0, Play(Failing(L"thu", L"")));
}

TEST_P(Logon, PasswordOutsideAsciiHasCodeZero) {
    EXPECT_EQ(902, Play(Trying(L"trong", L"caf\u00e9")));
}

TEST_P(Logon, UnicodeNameIsFound) {
    AddUser(903, L"Đỗ Thị Hường", 1401);
    EXPECT_EQ(903, Play(Trying(L"Đỗ Thị Hường", L"abc")));
}

TEST_P(Logon, SecondTryAfterAWrongOneSucceeds) {
    EXPECT_EQ(901, Play([] {
                  const HWND dialog = Dialog();
                  Type(dialog, L"nguoi la", L"abc");
                  PressOk(dialog);
                  DismissFailure(dialog);
                  // The selected name is typed over.
                  TypeText(L"thu");
                  EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog, L"TxtUser") == L"thu"; }));
                  PressKey(VK_RETURN);
                  WaitForFocus(dialog, L"TxtPass");
                  PressKey(VK_RETURN);
                  PressOk(dialog);
              }));
}

TEST_P(Logon, ApostropheInTheNameShowsTheErrorAndTheNextTryWorks) {
    EXPECT_EQ(901, Play([] {
                  const HWND dialog = Dialog();
                  Type(dialog, L"O'Brien", L"abc");
                  PressOk(dialog);
                  ClosePlainMessage();
                  DismissFailure(dialog);
                  TypeText(L"thu");
                  PressKey(VK_RETURN);
                  PressKey(VK_RETURN);
                  PressOk(dialog);
              }));
}

// Texts that end their literal and go on with a condition of their own.
TEST_P(Logon, NameThatIsAConditionLogsNobodyOn) {
    EXPECT_EQ(0, Play([] {
                  const HWND dialog = Dialog();
                  for (const wchar_t* name :
                       {L"x') OR (Code=901) OR ('1'='2", L"thu') --", L"x' or 'a'='a",
                        L"x') Union Select * From [User] Where (Code=901) Or ('1'='2",
                        L"thu' and 'a'='a"})
                      FailWith(dialog, name, L"abc");
                  FailWith(dialog, L"O'Brien", L"abc", true);
                  PressKey(VK_ESCAPE);
              }));
}

TEST_P(Logon, NameThatHoldsASecondStatementChangesNothing) {
    const wchar_t* const kNames[] = {
        L"x'); update \"user\" set password=0 where (code=901",
        L"x'); update \"user\" set password=0 where code=901; --",
        L"x'; update \"user\" set password=0 where code=901; select 'a"};
    EXPECT_EQ(0, Play([&] {
                  const HWND dialog = Dialog();
                  for (const wchar_t* name : kNames)
                      FailWith(dialog, name, L"abc");
                  PressKey(VK_ESCAPE);
              }));
    EXPECT_EQ(L"1", database_->ScalarText(
                        L"select count(*) from \"user\" where code=901 and password=1401"));
}

// A driver that takes statements in the code page gets an apostrophe for it.
TEST_P(Logon, NameWithALetterThatTheCodePageTurnsIntoAnApostropheLogsNobodyOn) {
    const wchar_t prime = L'\u2032';
    char inCodePage = 0;
    WideCharToMultiByte(CP_ACP, 0, &prime, 1, &inCodePage, 1, nullptr, nullptr);
    if (inCodePage != '\'')
        GTEST_SKIP() << "this code page has no such letter";
    AddUser(904, L"kho 5\u2032", 1401);
    EXPECT_EQ(0, Play(Failing(L"kho 5\u2032", L"abc")));
    EXPECT_EQ(0, Play(Failing(L"x' or 'a'='a\u2032", L"abc")));
    // One that the code page has itself ends no literal.
    AddUser(905, L"O\u2019Brien", 1401);
    EXPECT_EQ(905, Play(Trying(L"O\u2019Brien", L"abc")));
}

TEST_P(Logon, FirstOfTwoMatchingRowsGivesTheCode) {
    AddUser(911, L"doi", 1401);
    AddUser(912, L"doi", 1401);
    EXPECT_EQ(911, Play(Trying(L"doi", L"abc")));
}

TEST_P(Logon, FirstColumnIsTheCodeWhateverItIs) {
    AddUser(0, L"khong", 1401);
    EXPECT_EQ(0, Play(Trying(L"khong", L"abc")));
    database_->Execute(L"alter table \"user\" rename to \"olduser\"");
    database_->Execute(L"create table \"user\" as select idgroup, code, name, password from "
                       L"\"olduser\" where code=901");
    EXPECT_EQ(1, Play(Trying(L"thu", L"abc")));
}

TEST_P(Logon, CodeThatIsNoNumberLeavesTheDialogOpen) {
    database_->Execute(L"alter table \"user\" rename to \"olduser\"");
    for (const wchar_t* code : {L"'abc'", L"null", L"'10000000000'"}) {
        database_->Execute(L"drop table if exists \"user\"");
        database_->Execute(L"create table \"user\" as select " + std::wstring(code) +
                           L" as code, name, password from \"olduser\" where code=901");
        EXPECT_EQ(0, Play([] {
                      const HWND dialog = Dialog();
                      Type(dialog, L"thu", L"abc");
                      PressOk(dialog);
                      // The stroke waits until the click is over.
                      PressKey(VK_RETURN);
                      WaitForFocus(dialog, L"CMDCAN");
                      EXPECT_TRUE(WaitUntil([=] { return TopWindows().front() == dialog; }));
                      PressKey(VK_ESCAPE);
                  }))
            << ToUtf8(code);
    }
}

TEST_P(Logon, MissingTableShowsTheErrorAndTheDialogStays) {
    database_->Execute(L"alter table \"user\" rename to \"olduser\"");
    EXPECT_EQ(0, Play([] {
                  const HWND dialog = Dialog();
                  Type(dialog, L"thu", L"abc");
                  PressOk(dialog);
                  ClosePlainMessage();
                  DismissFailure(dialog);
                  PressKey(VK_ESCAPE);
              }));
}

TEST_P(Logon, SessionEndsWithTheConnectionClosed) {
    EXPECT_EQ(901, Play(Trying(L"thu", L"abc")));
    // A second operation opens the database anew.
    EXPECT_EQ(902, Play(Trying(L"trong", L"")));
}

class LogonDialog : public testing::Test {
protected:
    long Play(std::function<void()> script) {
        return PlayLogon(database_.ConnectionString(), std::move(script));
    }

    SampleDatabase database_ = SampleDatabase::Embedded();
};

TEST_F(LogonDialog, SpeaksVietnamese) {
    Play([] {
        const HWND dialog = Dialog();
        EXPECT_EQ(L"Login", TextOf(dialog));
        EXPECT_EQ(L"Người sử dụng", TextOf(dialog, L"Label1"));
        EXPECT_EQ(L"Mật khẩu", TextOf(dialog, L"Label2"));
        EXPECT_EQ(L"Đồng ý", TextOf(dialog, L"CmdOk"));
        EXPECT_EQ(L"Thoát", TextOf(dialog, L"CMDCAN"));
        EXPECT_EQ(L"Hướng dẫn", TextOf(dialog, L"CmdHelp"));
        EXPECT_EQ(L'*', SendMessageW(Control(dialog, L"TxtPass"), EM_GETPASSWORDCHAR, 0, 0));
        TypeText(L"Nguyễn Văn Hưng");
        PressKey(VK_RETURN);
        TypeText(L"abc");
        Sleep(200);
        EXPECT_NE(L"", SaveWindow(dialog, L"logon"));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonDialog, EachBoxFollowsItsLabelForScreenReaders) {
    Play([] {
        const HWND dialog = Dialog();
        EXPECT_EQ(Control(dialog, L"Label1"), GetWindow(Control(dialog, L"TxtUser"), GW_HWNDPREV));
        EXPECT_EQ(Control(dialog, L"Label2"), GetWindow(Control(dialog, L"TxtPass"), GW_HWNDPREV));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonDialog, EveryControlIsInArialOfNinePoints) {
    const auto logon = CreateLogon();
    for (const wchar_t* font : {L"Courier New", L""}) {
        _bstr_t name(font);
        EXPECT_SUCCEEDED(logon->SetDfFont(&name.GetBSTR()));
        Play([] {
            const HWND dialog = Dialog();
            const HDC screen = GetDC(nullptr);
            const int height = -MulDiv(9, GetDeviceCaps(screen, LOGPIXELSY), 72);
            ReleaseDC(nullptr, screen);
            for (const wchar_t* control :
                 {L"Label1", L"TxtUser", L"Label2", L"TxtPass", L"CmdOk", L"CMDCAN", L"CmdHelp"}) {
                LOGFONTW font = {};
                const auto handle = reinterpret_cast<HFONT>(
                    SendMessageW(Control(dialog, control), WM_GETFONT, 0, 0));
                EXPECT_EQ(static_cast<int>(sizeof font), GetObjectW(handle, sizeof font, &font));
                EXPECT_STREQ(L"Arial", font.lfFaceName);
                EXPECT_EQ(height, font.lfHeight);
            }
            PressKey(VK_ESCAPE);
        });
    }
}

TEST_F(LogonDialog, OkIsEnabledByANameThatIsNotBlank) {
    Play([] {
        const HWND dialog = Dialog();
        EXPECT_FALSE(IsEnabled(dialog, L"CmdOk"));
        TypeText(L"   ");
        Sleep(100);
        EXPECT_FALSE(IsEnabled(dialog, L"CmdOk"));
        TypeText(L"a");
        EXPECT_TRUE(WaitUntil([&] { return IsEnabled(dialog, L"CmdOk"); }));
        PressKey(VK_BACK);
        EXPECT_TRUE(WaitUntil([&] { return !IsEnabled(dialog, L"CmdOk"); }));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonDialog, EnterMovesOnLikeTabAndPressesNothing) {
    const long code = Play([] {
        const HWND dialog = Dialog();
        TypeText(L"a");
        for (const wchar_t* next : {L"TxtPass", L"CmdOk", L"CMDCAN", L"CmdHelp", L"TxtUser"}) {
            PressKey(VK_RETURN);
            WaitForFocus(dialog, next);
        }
        EXPECT_TRUE(IsWindow(dialog));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(0, code);
}

TEST_F(LogonDialog, TabGoesThereAndBack) {
    Play([] {
        const HWND dialog = Dialog();
        PressKey(VK_TAB);
        WaitForFocus(dialog, L"TxtPass");
        PressKey(VK_TAB, kShift);
        WaitForFocus(dialog, L"TxtUser");
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonDialog, CancelButtonGivesZero) {
    EXPECT_EQ(0, Play([] { ClickWindow(Control(Dialog(), L"CMDCAN")); }));
}

TEST_F(LogonDialog, TitleBarCloseGivesZero) {
    EXPECT_EQ(0, Play([] { PostMessageW(Dialog(), WM_SYSCOMMAND, SC_CLOSE, 0); }));
    EXPECT_EQ(0, Play([] {
                  Dialog();
                  PressKey(VK_F4, kAlt);
              }));
}

TEST_F(LogonDialog, HelpButtonDoesNothing) {
    Play([] {
        const HWND dialog = Dialog();
        ClickWindow(Control(dialog, L"CmdHelp"));
        Sleep(200);
        EXPECT_EQ(dialog, TopWindows().front());
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonDialog, StandsInTheMiddleOfTheScreen) {
    Play([] {
        RECT rect;
        GetWindowRect(Dialog(), &rect);
        EXPECT_NEAR(rect.left + rect.right, GetSystemMetrics(SM_CXSCREEN), 3);
        EXPECT_NEAR(rect.top + rect.bottom, GetSystemMetrics(SM_CYSCREEN), 3);
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonDialog, VeryLongPasswordEndsTheTryQuietly) {
    EXPECT_EQ(0, Play([] {
                  const HWND dialog = Dialog();
                  TypeText(L"a");
                  SetWindowTextW(Control(dialog, L"TxtPass"), std::wstring(1000, L'x').c_str());
                  ClickWindow(Control(dialog, L"CmdOk"));
                  Sleep(300);
                  EXPECT_EQ(dialog, TopWindows().front());
                  PressKey(VK_ESCAPE);
              }));
}

TEST_F(LogonDialog, ToolTipOfOkAppears) {
    Play([] {
        const HWND dialog = Dialog();
        TypeText(L"a");
        const HWND ok = Control(dialog, L"CmdOk");
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(ok) != FALSE; }));
        RECT rect;
        GetWindowRect(ok, &rect);
        MoveMouseTo({rect.left + 10, rect.top + 10});
        const HWND tip = WaitForClass(L"tooltips_class32");
        EXPECT_EQ(L"Click here to Logon!", TextOf(tip));
        MoveMouseTo({0, 0});
        PressKey(VK_ESCAPE);
    });
}

TEST(LogonWithoutDatabase, ShowsTheConnectionStringThenTheDialogAllTheSame) {
    const wchar_t* connection = L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\khong "
                                L"co\\host.db;Jet OLEDB:Engine Type=5";
    EXPECT_EQ(0, PlayLogon(connection, [&] {
                  EXPECT_EQ(connection, ClosePlainMessage(L""));
                  const HWND dialog = Dialog();
                  Type(dialog, L"thu", L"abc");
                  PressOk(dialog);
                  ClosePlainMessage();
                  DismissFailure(dialog);
                  PressKey(VK_ESCAPE);
              }));
}

} // namespace
} // namespace vndesk::test
