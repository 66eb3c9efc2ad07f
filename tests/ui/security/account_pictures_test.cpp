// SPDX-License-Identifier: MIT
// Pictures of the forms that hashes and locks add to, for the documentation and to be looked at.
#include "support/accounts.h"
#include "support/forms/administration.h"
#include "support/screenshot.h"

namespace vndesk::test {
namespace {

class AccountPictures : public Accounts {
protected:
    void SetUp() override {
        Accounts::SetUp();
        settings_.PasswordScheme = vnPasswordPbkdf2;
        settings_.LockAfter = 5;
        // A user of the sample, locked, and the main administrator, delayed.
        GiveHash(4, CheapHash(L"abc"));
        SetKept(4, L"failed=5,firstat=" + TimeLiteral(-60) + L",lockeduntil=" + TimeLiteral(840));
        GiveHash(3, CheapHash(L"abc"));
        SetKept(3, L"failed=6,firstat=" + TimeLiteral(-60) + L",lockeduntil=" + TimeLiteral(29));
    }

    template <class Operation> void Play(Operation operation, std::function<void()> script) {
        const auto logon = LogonWith(settings_);
        _bstr_t connect(Connect().c_str());
        DialogDriver user(std::move(script));
        EXPECT_SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR()));
        user.Finish();
    }
    static void Picture(HWND form, const wchar_t* name) {
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(form, name));
    }
    // The message after a try.
    static void PictureOfAnswer(HWND dialog, const wchar_t* user, const wchar_t* name) {
        SetBox(dialog, L"TxtUser", user);
        SetBox(dialog, L"TxtPass", L"sai");
        ClickWindow(Control(dialog, L"CmdOk"));
        const HWND box = WaitForForm(L"MessageBox");
        WaitReady(box, L"Cmd1");
        Picture(box, name);
        PressKey(VK_SPACE);
        WaitForClose(box);
        WaitReady(dialog, L"TxtUser");
    }
};

INSTANTIATE_TEST_SUITE_P(Embedded, AccountPictures, testing::Values("Embedded"));

TEST_P(AccountPictures, EditorOfTheOwnPassword) {
    Play(
        [](ILogon2& logon, BSTR* connect) {
            _bstr_t name(L"Lê Quốc Việt");
            return logon.ShowUser(connect, &name.GetBSTR());
        },
        [] {
            const HWND form = WaitForForm(L"FrmInput");
            WaitReady(form, L"TxtCurrent");
            TypeText(L"abc");
            Picture(form, L"own-password");
            PressKey(VK_ESCAPE);
        });
}

TEST_P(AccountPictures, UserListAndTheEditorOfAdministrators) {
    Play([](ILogon2& logon, BSTR* connect) { return logon.UserManager(connect); },
         [] {
             const HWND form = WaitForForm(L"FrmMenu");
             WaitReady(form, L"Lv");
             SelectRow(form, L"Lv", RowWith(form, L"Lv", 0, L"Lê Quốc Việt"));
             Picture(form, L"user-list-locked");
             const HWND editor = OpenEditor('S');
             PressKey('P', kAlt);
             WaitForFocus(editor, L"chkMustChange");
             Picture(editor, L"user-editor-hash");
             PressKey(VK_ESCAPE);
             WaitForClose(editor);
             WaitReady(form, L"Lv");
             PressKey(VK_ESCAPE);
         });
}

TEST_P(AccountPictures, LogonThatIsRefusedLockedAndDelayed) {
    Play(
        [](ILogon2& logon, BSTR* connect) {
            long code = -1;
            return logon.ShowLogon(connect, &code);
        },
        [] {
            const HWND form = WaitForForm(L"FrmLogon");
            WaitReady(form, L"TxtUser");
            PictureOfAnswer(form, L"Khách", L"logon-tries-left");
            PictureOfAnswer(form, L"Lê Quốc Việt", L"logon-locked");
            SetBox(form, L"TxtUser", L"Admin");
            ClickWindow(Control(form, L"CmdOk"));
            WaitForFocus(form, L"CMDCAN");
            Picture(form, L"logon-delayed");
            PressKey(VK_ESCAPE);
        });
}

} // namespace
} // namespace vndesk::test
