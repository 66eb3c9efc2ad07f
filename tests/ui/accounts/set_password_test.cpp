// SPDX-License-Identifier: MIT
// VerifyPassword, SetPassword and UnlockUser of clsLogon: what they write, and the errors that they
// raise.
#include "support/accounts.h"

#include "passwords/password_hash.h"
#include "support/event_listener.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr HRESULT kMissingTable = 0x80040210, kRefused = 0x80040211, kNoSuchUser = 0x80040212;
constexpr wchar_t kGood[] = L"Ngựa đúng pin ghim";

// The description of the error that the thread has been left.
std::wstring LastErrorText() {
    Microsoft::WRL::ComPtr<IErrorInfo> info;
    _bstr_t text;
    if (GetErrorInfo(0, &info) == S_OK)
        info->GetDescription(text.GetAddress());
    return {static_cast<const wchar_t*>(text) ? static_cast<const wchar_t*>(text) : L""};
}

class SetPassword : public Accounts {
protected:
    void SetUp() override {
        Accounts::SetUp();
        settings_.PasswordScheme = vnPasswordPbkdf2;
    }

    HRESULT Set(const wchar_t* password, long code = kThu, bool mustChange = false) const {
        return Set(*LogonWith(settings_).Get(), password, code, mustChange);
    }
    HRESULT Set(ILogon2& logon, const wchar_t* password, long code = kThu,
                bool mustChange = false) const {
        return logon.SetPassword(_bstr_t(Connect().c_str()), code, _bstr_t(password),
                                 mustChange ? VARIANT_TRUE : VARIANT_FALSE);
    }
    void ExpectRefused(const wchar_t* password, const std::wstring& reason) const {
        const std::wstring number = Number();
        EXPECT_HR(kRefused, Set(password)) << ToUtf8(password);
        EXPECT_EQ(reason, LastErrorText());
        EXPECT_EQ(number, Number());
    }
};

INSTANTIATE_ACCOUNTS_IN_DIALECTS(SetPassword);

TEST_P(SetPassword, WritesHashAndUnlocks) {
    settings_.LockAfter = 3;
    GiveHash(kThu, L"", kAbc);
    SetKept(kThu, L"failed=3,firstat=" + TimeLiteral(0) + L",lockeduntil=" + TimeLiteral(600));
    EXPECT_SUCCEEDED(Set(kGood, kThu, true));
    EXPECT_EQ(L"-1", Number());
    EXPECT_EQ(PasswordMatch::Yes, MatchPassword(kGood, Kept(L"passwordhash")));
    EXPECT_EQ(L"1", Kept(L"mustchange"));
    EXPECT_EQ(L"0", Kept(L"failed"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
}

TEST_P(SetPassword, WritesTheNumberOfTheOtherScheme) {
    settings_ = {};
    EXPECT_SUCCEEDED(Set(L"xyz"));
    EXPECT_EQ(L"1884", Number());
    EXPECT_EQ(L"", Kept(L"usercode"));
    settings_.LockAfter = 3;
    EXPECT_EQ(kThu, Verify(L"thu", L"XYZ"));
}

TEST_P(SetPassword, RulesRefuseWithTheirReasons) {
    settings_.MinPasswordLength = 6;
    ExpectRefused(L"ngắn", L"Mật khẩu phải có ít nhất 6 ký tự.");
    ExpectRefused(L"123456", L"Mật khẩu này quá dễ đoán.");
    settings_.MinPasswordLength = 0;
    ExpectRefused(L"THU", L"Mật khẩu không được trùng với tên người sử dụng.");
}

TEST_P(SetPassword, RulesHoldForNumbersTooWhereALengthIsAskedFor) {
    settings_ = {};
    EXPECT_SUCCEEDED(Set(L"abc"));
    settings_.MinPasswordLength = 6;
    ExpectRefused(L"ngan", L"Mật khẩu phải có ít nhất 6 ký tự.");
    ExpectRefused(L"123456", L"Mật khẩu này quá dễ đoán.");
}

TEST_P(SetPassword, PasswordThatIsNoneIsRefused) {
    ExpectRefused(L"", L"Mật khẩu không hợp lệ");
    settings_ = {};
    ExpectRefused(L"", L"Mật khẩu không hợp lệ");
    ExpectRefused(std::wstring(1000, L'x').c_str(), L"Mật khẩu không hợp lệ");
    // Every such password has the number of the empty one.
    ExpectRefused(L"caf\u00e9", L"Mật khẩu không hợp lệ");
}

TEST_P(SetPassword, UnknownUserIsAnError) {
    settings_ = {};
    EXPECT_HR(kNoSuchUser, Set(L"abc", 4711));
    EXPECT_NE(std::wstring::npos, LastErrorText().find(L"4711"));
    EXPECT_HR(kNoSuchUser, LogonWith(settings_)->UnlockUser(_bstr_t(Connect().c_str()), 4711));
}

TEST_P(SetPassword, MissingTableIsAnErrorThatNamesItsScript) {
    database_->Execute(L"drop table vnuser");
    const bool named = CurrentVariant().dialect == vnDialectSqlServer;
    const std::wstring script = std::wstring(L"schema/upgrade/accounts.") +
                                (named        ? L"sqlserver"
                                 : OnServer() ? L"postgresql"
                                              : L"sqlite") +
                                L".sql";
    const auto told = [&] {
        const std::wstring text = LastErrorText();
        return text.find(L"VnUser") != text.npos && text.find(script) != text.npos;
    };
    EXPECT_HR(kMissingTable, Set(kGood));
    EXPECT_TRUE(told());
    const _bstr_t connect(Connect().c_str());
    long code = -1;
    EXPECT_HR(kMissingTable,
              LogonWith(settings_)->VerifyPassword(connect, _bstr_t(L"thu"), _bstr_t(L""), &code));
    EXPECT_EQ(0, code);
    EXPECT_TRUE(told());
    EXPECT_HR(kMissingTable, LogonWith({})->UnlockUser(connect, kThu));
    EXPECT_TRUE(told());
    settings_ = {};
    settings_.LockAfter = 3;
    EXPECT_HR(kMissingTable,
              LogonWith(settings_)->VerifyPassword(connect, _bstr_t(L"thu"), _bstr_t(L""), &code));
    EXPECT_TRUE(told());
}

TEST_P(SetPassword, UnlockForgetsFailuresAndLock) {
    GiveHash(kThu, L"", kAbc);
    SetKept(kThu, L"failed=3,firstat=" + TimeLiteral(0) + L",lockeduntil=" + TimeLiteral(600));
    EXPECT_SUCCEEDED(LogonWith({})->UnlockUser(_bstr_t(Connect().c_str()), kThu));
    EXPECT_EQ(L"0", Kept(L"failed"));
    EXPECT_EQ(L"", Kept(L"firstat"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
    // Of a user without a row.
    EXPECT_SUCCEEDED(LogonWith({})->UnlockUser(_bstr_t(Connect().c_str()), 1));
}

// --- The host's own rules ---

// Asks for VARIANT_BOOL* and BSTR* as the type library says, and refuses.
class Refusing {
public:
    void operator()(DISPID event, DISPPARAMS& given) {
        EXPECT_EQ(1, event);
        ASSERT_EQ(4u, given.cArgs);
        name = V_BSTR(&given.rgvarg[3]);
        password = V_BSTR(&given.rgvarg[2]);
        ASSERT_EQ(VT_BOOL | VT_BYREF, V_VT(&given.rgvarg[1]));
        ASSERT_EQ(VT_BSTR | VT_BYREF, V_VT(&given.rgvarg[0]));
        *V_BOOLREF(&given.rgvarg[1]) = refuse;
        SysReAllocString(V_BSTRREF(&given.rgvarg[0]), reason);
    }
    std::wstring name, password;
    VARIANT_BOOL refuse = VARIANT_TRUE;
    const wchar_t* reason = L"Phải có chữ 'ơ' – ơ kìa!";
};

TEST_P(SetPassword, HostRefusesWithItsOwnReason) {
    settings_ = {};
    const auto logon = LogonWith(settings_);
    Refusing rule;
    const EventListener host(logon.Get(), __uuidof(DLogonEvents), std::ref(rule));
    EXPECT_HR(kRefused, Set(*logon.Get(), L"abcd"));
    EXPECT_EQ(L"Phải có chữ 'ơ' – ơ kìa!", LastErrorText());
    EXPECT_EQ(L"thu", rule.name);
    EXPECT_EQ(L"abcd", rule.password);
    EXPECT_EQ(L"1401", Number());
    rule.reason = L"";
    EXPECT_HR(kRefused, Set(*logon.Get(), L"abcd"));
    EXPECT_EQ(L"Mật khẩu không hợp lệ", LastErrorText());
    rule.refuse = VARIANT_FALSE;
    EXPECT_SUCCEEDED(Set(*logon.Get(), L"xyz"));
}

TEST_P(SetPassword, ScriptRefusesWithItsOwnReason) {
    ScriptRunner script;
    script.SetArguments({Connect()});
    script.RunOk(L"Set logon = CreateObject(\"VnDesk.clsLogon\")\r\n"
                 L"Set logon.Settings = CreateObject(\"VnDesk.clsSettings\")\r\n"
                 L"logon.Settings.Dialect = " +
                 std::to_wstring(CurrentVariant().dialect) +
                 L"\r\n"
                 L"Connect logon, \"L_\"\r\n"
                 L"Sub L_CheckPassword(Name, Password, Refuse, Reason)\r\n"
                 L"  Echo Name & \" \" & Password & \" \" & Refuse & \" [\" & Reason & \"]\"\r\n"
                 L"  Refuse = Len(Password) < 5\r\n"
                 L"  Reason = \"Ngắn\"\r\n"
                 L"End Sub\r\n"
                 L"On Error Resume Next\r\n"
                 L"logon.SetPassword WScript.Arguments(0), 901, \"abcd\"\r\n"
                 L"Echo Hex(Err.Number) & \" \" & Err.Description\r\n"
                 L"Err.Clear\r\n"
                 L"logon.SetPassword WScript.Arguments(0), 901, \"abcde\"\r\n"
                 L"Echo Err.Number\r\n");
    EXPECT_EQ((std::vector<std::wstring>{L"thu abcd False []", L"80040211 Ngắn",
                                         L"thu abcde False []", L"0"}),
              script.Lines());
}

// --- Databases that cannot be opened ---

TEST(PasswordsWithoutAWindow, UnopenableDatabaseRaisesTheProvidersErrorWithoutSecrets) {
    const _bstr_t nowhere(L"Driver={không có};Server=nowhere;UID=an;PWD=rat-bi-mat");
    SecuritySettings settings;
    settings.PasswordScheme = vnPasswordPbkdf2;
    const auto logon = LogonWith(settings);
    long code = -1;
    const auto expectRaised = [&](HRESULT hr) {
        EXPECT_FAILED(hr);
        const std::wstring text = LastErrorText();
        EXPECT_NE(L"", text);
        EXPECT_EQ(std::wstring::npos, text.find(L"rat-bi-mat")) << ToUtf8(text);
        EXPECT_TRUE(TopWindows().empty());
    };
    expectRaised(logon->VerifyPassword(nowhere, _bstr_t(L"an"), _bstr_t(L"x"), &code));
    EXPECT_EQ(0, code);
    expectRaised(logon->SetPassword(nowhere, 1, _bstr_t(L"x"), VARIANT_FALSE));
    expectRaised(logon->UnlockUser(nowhere, 1));
}

} // namespace
} // namespace vndesk::test
