// SPDX-License-Identifier: MIT
// Passwords kept as hashes in the user editor: users who change their own, logons that lead to the
// change, administrators. Present passwords are records that cost little.
#include "support/accounts.h"
#include "support/event_listener.h"
#include "support/forms/administration.h"

#include <functional>

#include "passwords/password_hash.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kOld[] = L"Cũ rồi", kNew[] = L"ngựa đúng pin ghim";
constexpr wchar_t kTitle[] = L"User Information", kAddTitle[] = L"User Infomation";

class OwnPassword : public Accounts {
protected:
    void SetUp() override {
        Accounts::SetUp();
        GiveHash(kThu, CheapHash(kOld));
        settings_.PasswordScheme = vnPasswordPbkdf2;
    }

    // The script leaves the form closed.
    void Play(const wchar_t* form, std::function<void(HWND)> script,
              const std::function<HRESULT(ILogon2&, BSTR*)>& operation) {
        const auto logon = LogonWith(settings_);
        std::unique_ptr<EventListener> listener;
        if (host)
            listener = std::make_unique<EventListener>(logon.Get(), __uuidof(DLogonEvents), host);
        _bstr_t connect(Connect().c_str());
        DialogDriver user([&] {
            const HWND window = WaitForForm(form);
            WaitReady(window);
            script(window);
        });
        EXPECT_SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR()));
        user.Finish();
    }
    void PlayOwn(std::function<void(HWND)> script) {
        Play(L"FrmInput", std::move(script), [](ILogon2& logon, BSTR* connect) {
            _bstr_t name(kThuName);
            return logon.ShowUser(connect, &name.GetBSTR());
        });
    }
    long PlayLogon(std::function<void(HWND)> script) {
        long code = -1;
        Play(L"FrmLogon", std::move(script),
             [&](ILogon2& logon, BSTR* connect) { return logon.ShowLogon(connect, &code); });
        return code;
    }
    void PlayUsers(std::function<void(HWND)> script) {
        Play(
            L"FrmMenu",
            [&](HWND list) {
                script(list);
                WaitReady(list);
                PressKey(VK_ESCAPE);
            },
            [](ILogon2& logon, BSTR* connect) { return logon.UserManager(connect); });
    }

    static void Fill(HWND editor, const wchar_t* current, const wchar_t* password,
                     const wchar_t* again) {
        SetBox(editor, L"TxtCurrent", current);
        SetBox(editor, L"TxtPass", password);
        SetBox(editor, L"txtConfirm", again);
    }
    static void Ok() { PressKey('G', kAlt); }
    static void ExpectRefusal(HWND editor, const std::wstring& text) {
        Ok();
        Answer(text, kTitle);
        WaitReady(editor, L"TxtCurrent");
        EXPECT_TRUE(IsWhollySelected(editor, L"TxtCurrent"));
    }
    // In the list, whose rows are sorted by code.
    HWND OpenEditorOf(HWND list, const wchar_t* name) {
        SelectRow(list, L"Lv", RowWith(list, L"Lv", 0, name));
        return OpenEditor('S');
    }
    bool HasHashOf(const wchar_t* password, long code = kThu) const {
        return MatchPassword(password, Kept(L"passwordhash", code)) == PasswordMatch::Yes;
    }

    EventListener::Handler host;
};

INSTANTIATE_ACCOUNTS(OwnPassword);
INSTANTIATE_DIALECTS(OwnPassword, "PostgreSqlBound");

bool IsTicked(HWND editor) {
    return SendMessageW(Control(editor, L"chkMustChange"), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// --- The user's own ---

TEST_P(OwnPassword, FormAsksForThePresentOneFirst) {
    PlayOwn([](HWND editor) {
        WaitForFocus(editor, L"TxtCurrent");
        EXPECT_EQ(L"", TextOf(editor, L"TxtCurrent"));
        EXPECT_EQ(L"", TextOf(editor, L"TxtPass"));
        EXPECT_EQ(L"Mật khẩu &hiện tại", TextOf(editor, L"lblCurrent"));
        EXPECT_EQ(L"&Mật khẩu mới", TextOf(editor, L"lblPass"));
        EXPECT_FALSE(FindControl(editor, L"chkMustChange"));
        ExpectKeyWalks(editor, VK_TAB, {L"TxtPass", L"txtConfirm", L"CmdOk", L"CMDCAN"});
        PressKey('H', kAlt);
        WaitForFocus(editor, L"TxtCurrent");
        // A box is named by the label before it.
        for (const auto& [label, box] :
             {std::pair(L"lblCurrent", L"TxtCurrent"), std::pair(L"lblPass", L"TxtPass")})
            EXPECT_EQ(Control(editor, box), GetWindow(Control(editor, label), GW_HWNDNEXT));
        const std::wstring letters = Sorted(Mnemonics(editor));
        EXPECT_EQ(letters.end(), std::adjacent_find(letters.begin(), letters.end()));
        PressKey(VK_ESCAPE);
    });
}

TEST_P(OwnPassword, RefusalsSayWhyAndChangeNothing) {
    settings_.MinPasswordLength = 8;
    const std::wstring before = Kept(L"passwordhash");
    std::wstring told;
    host = [&](DISPID, DISPPARAMS& given) {
        told = V_BSTR(&given.rgvarg[2]);
        *V_BOOLREF(&given.rgvarg[1]) = VARIANT_TRUE;
        SysReAllocString(V_BSTRREF(&given.rgvarg[0]), L"Chủ nói: chưa đủ “mạnh”.");
    };
    PlayOwn([&](HWND editor) {
        Fill(editor, L"cũ rồi", kNew, kNew);
        ExpectRefusal(editor, L"Mật khẩu hiện tại không đúng.");
        Fill(editor, kOld, kNew, L"Ngựa đúng pin ghim");
        ExpectRefusal(editor, L"Hai lần nhập mật khẩu không giống nhau.");
        Fill(editor, kOld, L"", L"");
        ExpectRefusal(editor, L"Bạn chưa nhập mật khẩu mới.");
        Fill(editor, kOld, L"bảy chữ", L"bảy chữ");
        ExpectRefusal(editor, L"Mật khẩu phải có ít nhất 8 ký tự.");
        Fill(editor, kOld, L"password", L"password");
        ExpectRefusal(editor, L"Mật khẩu này quá dễ đoán.");
        EXPECT_EQ(L"", told);
        Fill(editor, kOld, kNew, kNew);
        ExpectRefusal(editor, L"Chủ nói: chưa đủ “mạnh”.");
        EXPECT_EQ(kNew, told);
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Kept(L"passwordhash"));
    EXPECT_EQ(L"-1", Number());
}

TEST_P(OwnPassword, WrongPresentOnesCountLikeThoseOfALogon) {
    settings_.LockAfter = 2;
    PlayOwn([&](HWND editor) {
        Fill(editor, L"sai", kNew, kNew);
        ExpectRefusal(editor, L"Mật khẩu hiện tại không đúng.\r\nCòn 1 lần thử.");
        Ok();
        const HWND box = WaitForForm(L"MessageBox");
        EXPECT_TRUE(TextOf(box, L"Message").starts_with(L"Tài khoản bị khoá đến "));
        WaitForFocus(box, L"Cmd1");
        PressKey(VK_SPACE);
        WaitForClose(box);
        WaitReady(editor, L"TxtCurrent");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"2", Kept(L"failed"));
    EXPECT_TRUE(HasHashOf(kOld));
}

TEST_P(OwnPassword, NameOfTheUserIsNoPassword) {
    PlayOwn([](HWND editor) {
        Fill(editor, kOld, L"Thu", L"Thu");
        ExpectRefusal(editor, L"Mật khẩu không được trùng với tên người sử dụng.");
        PressKey(VK_ESCAPE);
    });
}

TEST_P(OwnPassword, NewOneIsWrittenAsItWasTyped) {
    const std::wstring typed = L" aBc" + std::wstring(100, L'ơ') + L" ";
    PlayOwn([&](HWND editor) {
        Fill(editor, kOld, typed.c_str(), typed.c_str());
        Ok();
    });
    EXPECT_TRUE(HasHashOf(typed.c_str()));
    EXPECT_EQ(L"-1", Number());
}

// --- At the logon ---

class MustChange : public OwnPassword {
protected:
    void SetUp() override {
        OwnPassword::SetUp();
        SetKept(kThu, L"mustchange=1");
    }
    static HWND LogOn(HWND dialog) {
        SetBox(dialog, L"TxtUser", kThuName);
        SetBox(dialog, L"TxtPass", kOld);
        ClickWindow(Control(dialog, L"CmdOk"));
        Answer(L"Bạn phải đổi mật khẩu trước khi dùng chương trình.", L"Thông báo");
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtCurrent");
        return editor;
    }
};

INSTANTIATE_ACCOUNTS_IN_DIALECTS(MustChange);

TEST_P(MustChange, LogonLeadsToTheChangeAndThenSucceeds) {
    EXPECT_EQ(kThu, PlayLogon([](HWND dialog) {
                  const HWND editor = LogOn(dialog);
                  EXPECT_EQ(kThuName, TextOf(editor, L"TxtUser"));
                  // The present one is no change, however it is typed.
                  Fill(editor, kOld, L"Cu\u0303 rồi", L"Cu\u0303 rồi");
                  ExpectRefusal(editor, L"Mật khẩu mới phải khác mật khẩu hiện tại.");
                  Fill(editor, kOld, kNew, kNew);
                  Ok();
                  WaitForClose(editor);
              }));
    EXPECT_TRUE(HasHashOf(kNew));
    EXPECT_EQ(L"0", Kept(L"mustchange"));
}

// Nobody could choose a group here.
TEST_P(MustChange, UserOfAGroupThatIsGoneKeepsItAndGetsIn) {
    database_->Execute(L"update \"user\" set idgroup=4711 where code=901");
    EXPECT_EQ(kThu, PlayLogon([](HWND dialog) {
                  const HWND editor = LogOn(dialog);
                  Fill(editor, kOld, kNew, kNew);
                  Ok();
                  WaitForClose(editor);
              }));
    EXPECT_EQ(L"4711", database_->ScalarText(L"select idgroup from \"user\" where code=901"));
}

TEST_P(MustChange, WhoDoesNotChangeIsNotLoggedOn) {
    EXPECT_EQ(0, PlayLogon([](HWND dialog) {
                  LogOn(dialog);
                  PressKey(VK_ESCAPE);
              }));
    EXPECT_EQ(L"1", Kept(L"mustchange"));
}

// --- Administrators ---

TEST_P(OwnPassword, AdministratorsSetOneWithoutThePresentOne) {
    PlayUsers([&](HWND list) {
        const HWND editor = OpenEditorOf(list, kThuName);
        EXPECT_FALSE(FindControl(editor, L"TxtCurrent"));
        EXPECT_EQ(L"", TextOf(editor, L"TxtPass"));
        EXPECT_FALSE(IsTicked(editor));
        SetBox(editor, L"TxtPass", kNew);
        SetBox(editor, L"txtConfirm", kNew);
        PressKey('P', kAlt);
        WaitForFocus(editor, L"chkMustChange");
        Ok();
        WaitForClose(editor);
    });
    EXPECT_TRUE(HasHashOf(kNew));
    EXPECT_EQ(L"1", Kept(L"mustchange"));
}

TEST_P(OwnPassword, EmptyBoxesKeepThePassword) {
    const std::wstring before = Kept(L"passwordhash");
    PlayUsers([&](HWND list) {
        const HWND editor = OpenEditorOf(list, kThuName);
        SetBox(editor, L"TxtPass", L"x");
        SetBox(editor, L"TxtPass", L"");
        SetBox(editor, L"TxtDes", L"thủ kho");
        Ok();
        WaitForClose(editor);
    });
    EXPECT_EQ(before, Kept(L"passwordhash"));
    EXPECT_EQ(L"-1", Number());
    EXPECT_EQ(L"thủ kho", database_->ScalarText(L"select \"dec\" from \"user\" where code=901"));
}

TEST_P(OwnPassword, TickAloneAsksForTheChangeAndTakesItBack) {
    const std::wstring before = Kept(L"passwordhash");
    const auto tick = [&](bool was) {
        PlayUsers([&](HWND list) {
            const HWND editor = OpenEditorOf(list, kThuName);
            EXPECT_EQ(was, IsTicked(editor));
            PressKey('P', kAlt);
            EXPECT_TRUE(WaitUntil([&] { return IsTicked(editor) != was; }));
            Ok();
            WaitForClose(editor);
        });
    };
    tick(false);
    EXPECT_EQ(L"1", Kept(L"mustchange"));
    tick(true);
    EXPECT_EQ(L"0", Kept(L"mustchange"));
    EXPECT_EQ(before, Kept(L"passwordhash"));
}

TEST_P(OwnPassword, NewUserGetsAHashAndNothingOfWhoHadTheCode) {
    database_->Execute(
        L"insert into vnuser(usercode,failed,mustchange,lockeduntil) values(902,9,1," +
        TimeLiteral(600) + L")");
    PlayUsers([&](HWND) {
        if (OnServer())
            database_->Execute(L"alter table \"user\" alter column code restart with 902");
        const HWND editor = OpenEditor('H');
        SetBox(editor, L"TxtUser", L"Đỗ Thị Hường");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 0, 0);
        Ok();
        Answer(L"Bạn chưa nhập mật khẩu mới.", kAddTitle);
        WaitReady(editor, L"TxtUser");
        SetBox(editor, L"TxtPass", kNew);
        SetBox(editor, L"txtConfirm", kNew);
        Ok();
        WaitForClose(editor);
    });
    EXPECT_EQ(L"-1", Number(902));
    EXPECT_TRUE(HasHashOf(kNew, 902));
    EXPECT_EQ(L"0", Kept(L"mustchange", 902));
    EXPECT_EQ(L"0", Kept(L"failed", 902));
    EXPECT_EQ(L"", Kept(L"lockeduntil", 902));
}

TEST_P(OwnPassword, DeletedUserLeavesNoRow) {
    GiveHash(1, CheapHash(kOld));
    PlayUsers([&](HWND list) {
        SelectRow(list, L"Lv", RowWith(list, L"Lv", 0, kThuName));
        PressKey('X', kAlt);
        Answer(L"Bạn chắc chắn xoá người sử dụng này", L"Thông báo");
        EXPECT_TRUE(WaitUntil([&] { return Kept(L"usercode").empty(); }));
    });
    EXPECT_EQ(L"", Kept(L"usercode"));
    EXPECT_EQ(L"1", Kept(L"usercode", 1));
}

} // namespace
} // namespace vndesk::test
