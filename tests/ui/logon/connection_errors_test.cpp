// SPDX-License-Identifier: MIT
// Databases that cannot be opened, for hosts that ask for reasons or for errors instead of the
// connection string.
#include <comutil.h>

#include <optional>

#include "support/forms/lookup_host.h"
#include "support/forms/search.h"
#include "support/last_error.h"
#include "support/screenshot.h"
#include "support/script_host.h"
#include "support/security_settings.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr HRESULT kNotConnected = static_cast<HRESULT>(0x80040214);
constexpr wchar_t kMissingFile[] =
    L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\khong co\\host.db;User ID=thungan;"
    L"Jet OLEDB:Database Password=rat-bi-mat;Jet OLEDB:Engine Type=5";
constexpr wchar_t kHeadline[] = L"Không kết nối được cơ sở dữ liệu.";
constexpr wchar_t kNoFile[] = L"Không kết nối được cơ sở dữ liệu.\r\n"
                              L"Không tìm thấy tệp cơ sở dữ liệu.";

ComPtr<ILogon2> LogonThat(ConnectionErrorModes mode) {
    return LogonWith({.ConnectionErrors = mode});
}

bool Contains(const std::wstring& text, std::wstring_view part) {
    return text.find(part) != std::wstring::npos;
}

void ExpectNoSecret(const std::wstring& text) {
    for (const wchar_t* secret : {L"rat-bi-mat", L"thungan"})
        EXPECT_FALSE(Contains(text, secret)) << ToUtf8(text);
}

HWND Box() {
    const HWND box = WaitForForm(L"NoticeBox");
    WaitReady(box, L"Cmd1");
    return box;
}

void CloseBox(HWND box) {
    PressKey(VK_RETURN);
    WaitForClose(box);
}

// Plays a call of which the user sees nothing but the box.
std::wstring TextShown(const std::function<HRESULT()>& call) {
    std::wstring text;
    DialogDriver user([&] {
        const HWND box = Box();
        EXPECT_EQ(1u, TopWindows().size());
        text = TextOf(box, L"Message");
        CloseBox(box);
    });
    EXPECT_SUCCEEDED(call());
    user.Finish();
    return text;
}

// --- vnErrorsShowReason ---

TEST(ConnectionErrors, EveryOperationTellsTheReasonAndEndsAsAfterCancel) {
    const auto logon = LogonThat(vnErrorsShowReason);
    _bstr_t connect(kMissingFile), name(L"Admin");
    long code = -1;
    const std::function<HRESULT()> operations[] = {
        [&] { return logon->ShowLogon(&connect.GetBSTR(), &code); },
        [&] { return logon->ShowUser(&connect.GetBSTR(), &name.GetBSTR()); },
        [&] { return logon->UserManager(&connect.GetBSTR()); },
        [&] { return logon->ShowGroup(&connect.GetBSTR()); },
    };
    for (const auto& operation : operations)
        EXPECT_EQ(kNoFile, TextShown(operation));
    EXPECT_EQ(0, code);
    long userCode = -1;
    EXPECT_SUCCEEDED(logon->get_UserCode(&userCode));
    EXPECT_EQ(0, userCode);
}

TEST(ConnectionErrors, TheProvidersWordsAreBehindAButtonWithoutSecrets) {
    const auto logon = LogonThat(vnErrorsShowReason);
    EXPECT_EQ(0, PlayLogon(*logon.Get(), kMissingFile, [] {
                  const HWND box = Box();
                  EXPECT_EQ(L"Thông báo", TextOf(box));
                  EXPECT_EQ(L"Chi t&iết", TextOf(box, L"CmdDetails"));
                  EXPECT_FALSE(IsShown(box, L"TxtDetails"));
                  RECT before, after, text;
                  GetWindowRect(box, &before);
                  PressKey('I', kAlt);
                  EXPECT_TRUE(WaitUntil([&] { return IsShown(box, L"TxtDetails"); }));
                  GetWindowRect(box, &after);
                  EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
                  GetWindowRect(Control(box, L"TxtDetails"), &text);
                  EXPECT_LT(text.bottom, after.bottom);
                  const std::wstring details = TextOf(box, L"TxtDetails");
                  EXPECT_TRUE(Contains(details, L"Could not find file")) << ToUtf8(details);
                  ExpectNoSecret(details);
                  // What screen readers call the text.
                  EXPECT_EQ(L"Nội dung chi tiết:", TextOf(box, L"LblDetails"));
                  EXPECT_EQ(Control(box, L"LblDetails"),
                            GetWindow(Control(box, L"TxtDetails"), GW_HWNDPREV));
                  WaitForFocus(box, L"CmdDetails");
                  PressKey(VK_TAB);
                  WaitForFocus(box, L"TxtDetails");
                  PressKey(VK_TAB);
                  WaitForFocus(box, L"Cmd1");
                  PressKey('I'); // the letter alone, as in every message
                  EXPECT_TRUE(WaitUntil([&] { return !IsShown(box, L"TxtDetails"); }));
                  PressKey(VK_ESCAPE);
                  WaitForClose(box);
              }));
}

TEST(ConnectionErrors, APictureOfTheBox) {
    const auto logon = LogonThat(vnErrorsShowReason);
    PlayLogon(*logon.Get(), L"Provider=SQLOLEDB;Data Source=srv;User ID=sa;Password=abc", [] {
        const HWND box = Box();
        EXPECT_NE(L"", SaveWindow(box, L"connection-error-closed"));
        PressKey('I', kAlt);
        EXPECT_TRUE(WaitUntil([&] { return IsShown(box, L"TxtDetails"); }));
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(box, L"connection-error"));
        PressKey('N', kAlt);
        WaitForClose(box);
    });
}

TEST(ConnectionErrors, SearchesTellTheReasonAndHaveNoCondition) {
    const auto search = CreateSearch();
    Govern(search.Get(), MakeSettings({.ConnectionErrors = vnErrorsShowReason}));
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(kMissingFile)));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    long modal = 1;
    EXPECT_EQ(kNoFile, TextShown([&] { return search->Show(&modal, Missing()); }));
    EXPECT_EQ(L"", ResultOf(*search.Get()));
}

TEST(ConnectionErrors, BoxesOfAHostTellTheReasonAndGoBackToTheirEntry) {
    for (const ConnectionErrorModes mode : {vnErrorsShowReason, vnErrorsRaise}) {
        const SampleDatabase database = SampleDatabase::Embedded();
        LookupHost host(database);
        Govern(host.item.Get(), MakeSettings({.ConnectionErrors = mode}));
        EXPECT_SUCCEEDED(host.item->put_ActiveConnection(_variant_t(kMissingFile)));
        host.form.Run([&] {
            host.form.Enter(L"TxtSel", L"Qu");
            PressKey(VK_RETURN);
            HWND box = Box();
            EXPECT_EQ(kNoFile, TextOf(box, L"Message"));
            CloseBox(box);
            WaitReady(host.form.Window(), L"TxtSel");
            host.form.Settle();
            EXPECT_EQ(L"", host.form.Text(L"TxtSel"));
            host.form.Enter(L"txtSelID", L"A1");
            PressKey(VK_TAB);
            box = Box();
            CloseBox(box);
            WaitReady(host.form.Window(), L"TxtOther");
            host.form.Settle();
            EXPECT_EQ(L"", host.form.Text(L"txtSelID"));
        });
        EXPECT_EQ(L"", host.SelID());
        EXPECT_EQ(0, host.Changes());
    }
}

TEST(ConnectionErrors, AMissingDriverIsNamedWithTheBitness) {
    const auto logon = LogonThat(vnErrorsShowReason);
    _bstr_t connect(L"Provider=KhongCo.1;Password=rat-bi-mat");
    long code = -1;
    const std::wstring bits = std::to_wstring(8 * sizeof(void*));
    EXPECT_EQ(std::wstring(kHeadline) +
                  L"\r\nMáy này thiếu trình điều khiển cơ sở dữ liệu cho chương trình " + bits +
                  L" bit.",
              TextShown([&] { return logon->ShowLogon(&connect.GetBSTR(), &code); }));
    EXPECT_EQ(0, code);
}

// The message about a logon for which the table of users is missing.
std::wstring MessageOfAFailedStatement(ConnectionErrorModes mode) {
    const SampleDatabase database = SampleDatabase::Embedded();
    database.Execute(L"drop table \"user\"");
    std::wstring text;
    PlayLogon(*LogonThat(mode).Get(),
              database.ConnectionString() + L";Jet OLEDB:Database Password=User", [&] {
                  const HWND form = WaitForForm(L"FrmLogon");
                  WaitReady(form, L"TxtUser");
                  SetBox(form, L"TxtUser", L"an");
                  ClickWindow(Control(form, L"CmdOk"));
                  text = ClosePlainMessage();
                  const HWND refusal = WaitForForm(L"MessageBox");
                  WaitReady(refusal, L"Cmd1");
                  PressKey(VK_SPACE);
                  WaitForClose(refusal);
                  WaitReady(form, L"TxtUser");
                  PressKey(VK_ESCAPE);
              });
    return text;
}

TEST(ConnectionErrors, WhatAProviderSaysOfAStatementHasNoSecretEither) {
    EXPECT_TRUE(Contains(MessageOfAFailedStatement(vnErrorsShowString), L"no such table: User"));
    for (const ConnectionErrorModes mode : {vnErrorsShowReason, vnErrorsRaise})
        EXPECT_TRUE(Contains(MessageOfAFailedStatement(mode), L"no such table: ***"));
}

// The error about a record that the table refuses, with words that are secrets of the connection.
std::wstring ErrorOfAFailedStatement(ConnectionErrorModes mode) {
    const SampleDatabase database = SampleDatabase::Embedded();
    Upgrade(database, L"audit");
    RefuseRecords(database);
    const std::wstring connection =
        database.ConnectionString() + L";Jet OLEDB:Database Password=duoc";
    EXPECT_TRUE(FAILED(LogonThat(mode)->WriteAudit(_bstr_t(connection.c_str()), _bstr_t(L"import"),
                                                   _bstr_t(), _bstr_t(), _bstr_t())));
    return LastErrorText();
}

TEST(ConnectionErrors, WhatAProviderSaysToAMemberWithoutAWindowHasNoSecretEither) {
    EXPECT_TRUE(Contains(ErrorOfAFailedStatement(vnErrorsShowString), L"khong ghi duoc"));
    for (const ConnectionErrorModes mode : {vnErrorsShowReason, vnErrorsRaise})
        EXPECT_TRUE(Contains(ErrorOfAFailedStatement(mode), L"khong ghi ***"));
}

TEST(ConnectionErrors, AnOpenDatabaseShowsItsForm) {
    const SampleDatabase database = SampleDatabase::Embedded();
    for (const ConnectionErrorModes mode : {vnErrorsShowReason, vnErrorsRaise})
        EXPECT_EQ(0, PlayLogon(*LogonThat(mode).Get(), database.ConnectionString(), [] {
                      WaitReady(WaitForForm(L"FrmLogon"), L"TxtUser");
                      PressKey(VK_ESCAPE);
                  }));
}

// --- vnErrorsRaise, and members without a window ---

void ExpectRaised(HRESULT hr) {
    EXPECT_HR(kNotConnected, hr);
    const std::wstring text = LastErrorText();
    EXPECT_EQ(0u, text.find(kNoFile)) << ToUtf8(text);
    EXPECT_TRUE(Contains(text, L"Could not find file")) << ToUtf8(text);
    ExpectNoSecret(text);
    EXPECT_TRUE(TopWindows().empty());
}

TEST(ConnectionErrors, AreRaisedByEveryOperationWhereTheHostAsks) {
    const auto logon = LogonThat(vnErrorsRaise);
    _bstr_t connect(kMissingFile), name(L"Admin");
    long code = -1, modal = 1;
    ExpectRaised(logon->ShowLogon(&connect.GetBSTR(), &code));
    EXPECT_EQ(0, code);
    ExpectRaised(logon->ShowUser(&connect.GetBSTR(), &name.GetBSTR()));
    ExpectRaised(logon->UserManager(&connect.GetBSTR()));
    ExpectRaised(logon->ShowGroup(&connect.GetBSTR()));
    const auto search = CreateSearch();
    Govern(search.Get(), MakeSettings({.ConnectionErrors = vnErrorsRaise}));
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(kMissingFile)));
    ExpectRaised(search->Show(&modal, Missing()));
}

TEST(ConnectionErrors, AreRaisedByMembersWithoutAWindowWithEither) {
    const _bstr_t connect(kMissingFile);
    for (const ConnectionErrorModes mode : {vnErrorsShowReason, vnErrorsRaise}) {
        const auto logon = LogonThat(mode);
        long code = -1;
        ExpectRaised(logon->VerifyPassword(connect, _bstr_t(L"an"), _bstr_t(L"x"), &code));
        EXPECT_EQ(0, code);
        ExpectRaised(logon->SetPassword(connect, 1, _bstr_t(L"x"), VARIANT_FALSE));
        ExpectRaised(logon->UnlockUser(connect, 1));
        ExpectRaised(
            logon->WriteAudit(connect, _bstr_t(L"x"), _bstr_t(L""), _bstr_t(L""), _bstr_t(L"")));
        const auto search = NewObject<ISearch2>(L"VnDesk.clsSearch");
        Govern(search.Get(), MakeSettings({.ConnectionErrors = mode}));
        ComPtr<IDispatch> command;
        ExpectRaised(
            search->CreateCommand(_bstr_t(L"Select 1"), _variant_t(kMissingFile), &command));
    }
}

TEST(ConnectionErrors, NumbersThatNameNoWayAreRefused) {
    const auto settings = MakeSettings({.ConnectionErrors = vnErrorsRaise});
    for (const long wrong : {-1, 3}) {
        EXPECT_HR(E_INVALIDARG,
                  settings->put_ConnectionErrors(static_cast<ConnectionErrorModes>(wrong)));
    }
    ConnectionErrorModes mode = vnErrorsShowString;
    EXPECT_SUCCEEDED(settings->get_ConnectionErrors(&mode));
    EXPECT_EQ(vnErrorsRaise, mode);
}

TEST(ConnectionErrors, TheRecommendedWayIsTheReason) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    ConnectionErrorModes mode = vnErrorsRaise;
    EXPECT_SUCCEEDED(settings->get_ConnectionErrors(&mode));
    EXPECT_EQ(vnErrorsShowString, mode);
    EXPECT_SUCCEEDED(settings->UseRecommended());
    EXPECT_SUCCEEDED(settings->get_ConnectionErrors(&mode));
    EXPECT_EQ(vnErrorsShowReason, mode);
}

// --- TestConnection ---

struct Tested {
    bool opened;
    std::wstring reason;
};

Tested Try(ILogon2& logon, const std::wstring& connectionString) {
    BSTR reason = SysAllocString(L"của lần trước");
    VARIANT_BOOL opened = VARIANT_FALSE;
    EXPECT_SUCCEEDED(logon.TestConnection(_bstr_t(connectionString.c_str()), &reason, &opened));
    const _bstr_t owner(reason, false);
    EXPECT_TRUE(TopWindows().empty());
    return {opened != VARIANT_FALSE, {reason ? reason : L"", SysStringLen(reason)}};
}

TEST(TestConnection, SaysWhetherAndWhyNotWithAnySettings) {
    const SampleDatabase database = SampleDatabase::Embedded();
    for (const auto mode : {vnErrorsShowString, vnErrorsShowReason, vnErrorsRaise}) {
        const auto logon = LogonThat(mode);
        const Tested well = Try(*logon.Get(), database.ConnectionString());
        EXPECT_TRUE(well.opened);
        EXPECT_EQ(L"", well.reason);
        const Tested missing = Try(*logon.Get(), kMissingFile);
        EXPECT_FALSE(missing.opened);
        EXPECT_EQ(0u, missing.reason.find(kNoFile)) << ToUtf8(missing.reason);
        ExpectNoSecret(missing.reason);
        EXPECT_FALSE(Try(*logon.Get(), L"").opened);
        EXPECT_FALSE(Try(*logon.Get(), L"không phải chuỗi kết nối; Pwd").opened);
    }
}

TEST(TestConnection, GivesItsReasonToAScript) {
    ScriptRunner script;
    script.SetArguments({kMissingFile});
    script.RunOk(L"Set logon = WScript.CreateObject(\"VnDesk.clsLogon\")\r\n"
                 L"opened = logon.TestConnection(WScript.Arguments(0), reason)\r\n"
                 L"Echo opened\r\n"
                 L"Echo TypeName(reason), InStr(reason, \"Không tìm thấy tệp\") > 0\r\n");
    EXPECT_EQ((Lines{L"False", L"String True"}), script.Lines());
}

std::wstring Replaced(std::wstring text, std::wstring_view key, std::wstring_view value) {
    const size_t at = text.find(std::wstring(key) + L"=") + key.size() + 1;
    EXPECT_LT(key.size(), at) << ToUtf8(text);
    return text.replace(at, text.find(L';', at) - at, value);
}

TEST(TestConnection, KnowsTheReasonsOfAServer) {
    if (!SampleDatabase::ServerAvailable())
        GTEST_SKIP() << "no server: scripts/with-postgres starts one";
    const SampleDatabase database = SampleDatabase::Server();
    const auto logon = LogonThat(vnErrorsShowString);
    const std::wstring string = database.ConnectionString() + L";";
    EXPECT_TRUE(Try(*logon.Get(), string).opened);
    const auto expect = [&](const wchar_t* key, const wchar_t* value, const wchar_t* sentence) {
        const Tested tested = Try(*logon.Get(), Replaced(string, key, value));
        EXPECT_FALSE(tested.opened);
        EXPECT_EQ(0u, tested.reason.find(std::wstring(kHeadline) + L"\r\n" + sentence + L"\r\n"))
            << ToUtf8(tested.reason);
        ExpectNoSecret(tested.reason);
    };
    expect(L"Pwd", L"rat-bi-mat", L"Tên hoặc mật khẩu dùng để vào cơ sở dữ liệu không đúng.");
    expect(L"Uid", L"thungan", L"Tên hoặc mật khẩu dùng để vào cơ sở dữ liệu không đúng.");
    expect(L"Database", L"khongco", L"Máy chủ không có cơ sở dữ liệu này.");
    expect(L"Port", L"1", L"Không tìm thấy máy chủ, hoặc máy chủ không trả lời.");
    expect(L"Server", L"khong-co.invalid", L"Không tìm thấy máy chủ, hoặc máy chủ không trả lời.");
    expect(L"Driver", L"{Khong co}",
           (L"Máy này thiếu trình điều khiển cơ sở dữ liệu cho chương trình " +
            std::to_wstring(8 * sizeof(void*)) + L" bit.")
               .c_str());
}

} // namespace
} // namespace vndesk::test
