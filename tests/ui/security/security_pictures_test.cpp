// SPDX-License-Identifier: MIT
// Pictures of the administration forms with the sample database.
#include "support/forms/host.h"

#include "support/keys.h"
#include "support/sample_database.h"
#include "support/screenshot.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

class SecurityPictures : public testing::Test {
protected:
    // Runs one operation of clsLogon with the sample database while the script plays the user.
    template <class Operation> void Play(Operation operation, std::function<void()> script) {
        const auto logon = CreateLogon();
        _bstr_t connect(database_.ConnectionString().c_str());
        DialogDriver user(std::move(script));
        EXPECT_SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR()));
        user.Finish();
    }

    static void Picture(HWND form, const wchar_t* name) {
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(form, name));
    }

    SampleDatabase database_ = SampleDatabase::Embedded();
};

TEST_F(SecurityPictures, UserEditorForTheOwnPassword) {
    Play(
        [](ILogon& logon, BSTR* connect) {
            _bstr_t name(L"Admin");
            return logon.ShowUser(connect, &name.GetBSTR());
        },
        [] {
            const HWND form = WaitForForm(L"FrmInput");
            WaitForFocus(form, L"TxtPass");
            Picture(form, L"user-own-password");
            PressKey(VK_ESCAPE);
        });
}

TEST_F(SecurityPictures, UserListAndEditor) {
    Play([](ILogon& logon, BSTR* connect) { return logon.UserManager(connect); },
         [] {
             const HWND list = WaitForForm(L"FrmMenu");
             WaitForFocus(list, L"Lv");
             Picture(list, L"user-list");
             PressKey('S', kAlt);
             const HWND editor = WaitForForm(L"FrmInput");
             WaitForFocus(editor, L"TxtUser");
             Picture(editor, L"user-editor");
             PressKey(VK_ESCAPE);
             WaitForClose(editor);
             PressKey(VK_ESCAPE);
         });
}

TEST_F(SecurityPictures, GroupManagerAndPermissions) {
    Play([](ILogon& logon, BSTR* connect) { return logon.ShowGroup(connect); },
         [] {
             const HWND groups = WaitForForm(L"FmGrp");
             WaitForFocus(groups, L"Lv1");
             PressKey(VK_DOWN);
             Picture(groups, L"group-manager");
             PressKey('Q', kAlt);
             const HWND rights = WaitForForm(L"FrPms");
             WaitForFocus(rights, L"LstMenuBar");
             Picture(rights, L"permissions");
             PressKey(VK_ESCAPE);
             WaitForClose(rights);
             PressKey(VK_ESCAPE);
         });
}

} // namespace
} // namespace vndesk::test
