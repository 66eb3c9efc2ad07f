// SPDX-License-Identifier: MIT
// The user editor as administrators and users see it: from the user list, and alone for the own
// password.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

// The sample's accountant: code 1, group 2, stored number 1133116.
constexpr wchar_t kHung[] = L"Nguyễn Văn Hưng";
constexpr int kHungCode = 1;
constexpr int kFirstNewCode = 10;

class UserEditor : public Administration {
protected:
    // From the list to the editor and back; the script leaves it closed.
    void PlayAdding(std::function<void(HWND)> script) const {
        Test().PlayUsers([&](HWND list) {
            PressKey('H', kAlt);
            Edit(list, script);
        });
    }
    void PlayEditing(int row, std::function<void(HWND)> script) const {
        Test().PlayUsers([&](HWND list) {
            SelectRow(list, L"Lv", row);
            PressKey('S', kAlt);
            Edit(list, script);
        });
    }

    static void Fill(HWND editor, const wchar_t* name, int group, const wchar_t* password,
                     const wchar_t* confirmation) {
        SetBox(editor, L"TxtUser", name);
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, group, 0);
        SetBox(editor, L"TxtPass", password);
        SetBox(editor, L"txtConfirm", confirmation);
    }

    static void Ok() { PressKey('G', kAlt); }

    // Says no, and stands ready for another try.
    static void ExpectRefusal(HWND editor, const wchar_t* text, const wchar_t* title) {
        Ok();
        Answer(text, title);
        WaitReady(editor, L"TxtUser");
        EXPECT_TRUE(IsWhollySelected(editor, L"TxtUser"));
        PressKey(VK_ESCAPE);
    }

private:
    static void Edit(HWND list, const std::function<void(HWND)>& script) {
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        script(editor);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        PressKey(VK_ESCAPE);
    }
};

INSTANTIATE_ADMINISTRATION(UserEditor);

constexpr wchar_t kExists[] = L"Người sử dụng đã tồn tại";
constexpr wchar_t kBadPassword[] = L"Mật khẩu không hợp lệ";
constexpr wchar_t kAdding[] = L"User Infomation";
constexpr wchar_t kEditing[] = L"User Information";

TEST_P(UserEditor, AddingWritesTheUser) {
    StatementTrace trace;
    PlayAdding([&](HWND editor) {
        trace.Forget();
        Fill(editor, L"Đỗ Thị Hường", 3, L"abc", L"abc");
        SetBox(editor, L"TxtDes", L"Thủ kho 2");
        Ok();
    });
    ASSERT_FALSE(trace.All().empty());
    EXPECT_EQ(L"SELECT * FROM [User] WHERE [Name]=" + Q(L"Đỗ Thị Hường"), trace.All()[0]);
    EXPECT_EQ(Lines{L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values(" +
                    Q(L"Đỗ Thị Hường") + L"," + Q(L"Thủ kho 2") + L",5,1401)"},
              trace.Writing());
    EXPECT_EQ(L"Đỗ Thị Hường", Test().User(L"name", kFirstNewCode));
    EXPECT_EQ(L"Thủ kho 2", Test().User(L"\"dec\"", kFirstNewCode));
    EXPECT_EQ(L"5", Test().User(L"idgroup", kFirstNewCode));
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where code=10 and password=1401"));
}

TEST_P(UserEditor, AddingWithoutAGroupAsksForItBeforeTheDatabase) {
    const StatementTrace trace;
    PlayAdding([&](HWND editor) {
        TypeText(L"a");
        PressKey(VK_BACK);
        EXPECT_TRUE(WaitUntil([=] { return IsEnabled(editor, L"CmdOk"); }));
        EXPECT_TRUE(WaitUntil([=] { return TextOf(editor, L"TxtUser").empty(); }));
        const Lines before = trace.All();
        Ok();
        Answer(L"Bạn chưa chọn bộ phận.", L"Thông báo");
        WaitReady(editor, L"TxtIdGroup");
        EXPECT_EQ(before, trace.All());
        PressKey(VK_ESCAPE);
    });
}

TEST_P(UserEditor, AddingWithEmptyPasswordsIsRefused) {
    const std::wstring before = Test().Users();
    PlayAdding([](HWND editor) {
        Fill(editor, L"moi", 0, L"", L"");
        ExpectRefusal(editor, kBadPassword, kAdding);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, AddingWithPasswordsThatDifferIsRefused) {
    const std::wstring before = Test().Users();
    PlayAdding([](HWND editor) {
        Fill(editor, L"moi", 0, L"abc", L"abd");
        ExpectRefusal(editor, kBadPassword, kAdding);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, PasswordOutsideAsciiIsRefused) {
    PlayAdding([](HWND editor) {
        Fill(editor, L"moi", 0, L"caf\u00e9", L"caf\u00e9");
        ExpectRefusal(editor, kBadPassword, kAdding);
    });
    EXPECT_EQ(L"7", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(UserEditor, PasswordsThatDifferInCaseOnlyAgree) {
    PlayAdding([](HWND editor) {
        Fill(editor, L"moi", 0, L"Secret", L"SECRET");
        Ok();
    });
    EXPECT_EQ(L"1",
              Test().Read(L"select count(*) from \"user\" where name='moi' and password=110359"));
}

TEST_P(UserEditor, AddingATakenNameIsRefused) {
    const std::wstring before = Test().Users();
    PlayAdding([](HWND editor) {
        Fill(editor, L"Admin", 0, L"abc", L"abc");
        ExpectRefusal(editor, kExists, kAdding);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, SecondTryAfterARefusalSucceeds) {
    PlayAdding([](HWND editor) {
        Fill(editor, L"Admin", 0, L"abc", L"abc");
        Ok();
        Answer(kExists, kAdding);
        WaitReady(editor, L"TxtUser");
        TypeText(L"moi");
        Ok();
    });
    EXPECT_EQ(L"moi", Test().User(L"name", kFirstNewCode));
}

TEST_P(UserEditor, EditingShowsTheUserAsStored) {
    Test().database.Execute(L"update \"user\" set \"dec\"=null where code=1");
    PlayEditing(0, [](HWND editor) {
        EXPECT_EQ(kHung, TextOf(editor, L"TxtUser"));
        EXPECT_EQ(L"", TextOf(editor, L"TxtDes"));
        EXPECT_EQ(L"Kế toán-Phòng kế toán", TextOf(editor, L"TxtIdGroup"));
        EXPECT_EQ(L"1133116", TextOf(editor, L"TxtPass"));
        EXPECT_EQ(L"1133116", TextOf(editor, L"txtConfirm"));
        EXPECT_TRUE(IsEnabled(editor, L"CmdOk"));
        EXPECT_EQ(5u, ListTexts(Control(editor, L"TxtIdGroup")).size());
        PressKey(VK_ESCAPE);
    });
}

TEST_P(UserEditor, EditingWithoutTouchingThePasswordKeepsIt) {
    const StatementTrace trace;
    PlayEditing(0, [](HWND editor) {
        SetBox(editor, L"TxtDes", L"Kế toán");
        Ok();
    });
    EXPECT_EQ(Lines{L"UPDATE [User] Set [Name]=" + Q(kHung) + L",[Dec]=" + Q(L"Kế toán") +
                    L",IdGroup=2 Where [Name]=" + Q(kHung)},
              trace.Writing());
    EXPECT_EQ(L"1",
              Test().Read(L"select count(*) from \"user\" where code=1 and password=1133116"));
    EXPECT_EQ(L"Kế toán", Test().User(L"\"dec\"", kHungCode));
}

TEST_P(UserEditor, EditingMayKeepTheName) {
    StatementTrace trace;
    const std::wstring before = Test().Users();
    PlayEditing(0, [&](HWND) {
        trace.Forget();
        Ok();
    });
    ASSERT_GE(trace.All().size(), 2u);
    EXPECT_EQ(L"SELECT  *  FROM [User]  WHERE [Name]=" + Q(kHung), trace.All()[0]);
    EXPECT_EQ(L"Select  * From [User] Where [Name]=" + Q(kHung) + L" And [Name] <> " + Q(kHung),
              trace.All()[1]);
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, RenamingWritesTheNewName) {
    const StatementTrace trace;
    PlayEditing(0, [](HWND editor) {
        SetBox(editor, L"TxtUser", L"Hưng");
        SetBox(editor, L"TxtDes", L"");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 4, 0);
        Ok();
    });
    EXPECT_EQ(Lines{L"UPDATE [User] Set [Name]=" + Q(L"Hưng") + L",[Dec]=" + Q(L"") +
                    L",IdGroup=8 Where [Name]=" + Q(kHung)},
              trace.Writing());
    EXPECT_EQ(L"Hưng", Test().User(L"name", kHungCode));
    EXPECT_EQ(L"8", Test().User(L"idgroup", kHungCode));
}

TEST_P(UserEditor, RenamingToAnotherUsersNameIsRefused) {
    const std::wstring before = Test().Users();
    PlayEditing(0, [](HWND editor) {
        SetBox(editor, L"TxtUser", L"Admin");
        ExpectRefusal(editor, kExists, kEditing);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, EditingWithABadPasswordIsRefused) {
    const std::wstring before = Test().Users();
    PlayEditing(0, [](HWND editor) {
        SetBox(editor, L"txtConfirm", L"");
        ExpectRefusal(editor, kBadPassword, kEditing);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, UsersChangeTheirOwnPasswordAndNothingElse) {
    const StatementTrace trace;
    Test().PlayEditor(L"Admin", [](HWND editor) {
        WaitReady(editor, L"TxtPass");
        for (const wchar_t* shut : {L"TxtUser", L"TxtDes", L"TxtIdGroup"})
            EXPECT_FALSE(IsEnabled(editor, shut));
        for (const wchar_t* open : {L"TxtPass", L"txtConfirm", L"CmdOk", L"CMDCAN"})
            EXPECT_TRUE(IsEnabled(editor, open));
        TypeText(L"New1");
        PressKey(VK_RETURN);
        WaitReady(editor, L"txtConfirm");
        TypeText(L"new1");
        PressKey(VK_RETURN);
        WaitReady(editor, L"CmdOk");
        PressKey(VK_SPACE);
    });
    // N + E*4 + W*16 + 1*64
    EXPECT_EQ(Lines{L"UPDATE [User] Set [Name]=" + Q(L"Admin") + L",[Dec]=" +
                    Q(L"Quản trị chính của chương trình") +
                    L",IdGroup=1,[Password]=4882 Where [Name]=" + Q(L"Admin")},
              trace.Writing());
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where code=3 and password=4882 and "
                                L"name='Admin' and idgroup=1"));
}

TEST_P(UserEditor, OwnBadPasswordLeadsBackToThePasswordBox) {
    const std::wstring before = Test().Users();
    Test().PlayEditor(L"Admin", [](HWND editor) {
        WaitReady(editor, L"TxtPass");
        SetBox(editor, L"TxtPass", L"x");
        Ok();
        Answer(kBadPassword, kEditing);
        WaitReady(editor, L"TxtPass");
        EXPECT_TRUE(IsWhollySelected(editor, L"TxtPass"));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserEditor, UnknownUserShowsEmptyBoxes) {
    Test().PlayEditor(L"ai day", [](HWND editor) {
        EXPECT_EQ(L"", TextOf(editor, L"TxtUser"));
        EXPECT_FALSE(IsEnabled(editor, L"CmdOk"));
        PressKey(VK_ESCAPE);
    });
}

TEST_P(UserEditor, CancellingWritesNothing) {
    const std::wstring before = Test().Users();
    const StatementTrace trace;
    PlayEditing(0, [](HWND editor) {
        SetBox(editor, L"TxtUser", L"khac");
        PressKey('Q', kAlt);
    });
    EXPECT_TRUE(trace.Writing().empty());
    EXPECT_EQ(before, Test().Users());
}

class UserEditorForm : public testing::Test {
protected:
    void PlayAdding(std::function<void(HWND)> script) const {
        test_.PlayUsers([&](HWND list) {
            PressKey('H', kAlt);
            const HWND editor = WaitForForm(L"FrmInput");
            WaitReady(editor, L"TxtUser");
            script(editor);
            PressKey(VK_ESCAPE);
            WaitForClose(editor);
            WaitReady(list, L"Lv");
            PressKey(VK_ESCAPE);
        });
    }

    const AdministrationTest test_{false};
};

TEST_F(UserEditorForm, OkIsEnabledByTypingANameAndStaysSo) {
    PlayAdding([](HWND editor) {
        EXPECT_FALSE(IsEnabled(editor, L"CmdOk"));
        SetBox(editor, L"TxtDes", L"x");
        SetBox(editor, L"TxtPass", L"x");
        EXPECT_FALSE(IsEnabled(editor, L"CmdOk"));
        TypeText(L"a");
        EXPECT_TRUE(WaitUntil([&] { return IsEnabled(editor, L"CmdOk"); }));
        PressKey(VK_BACK);
        EXPECT_TRUE(WaitUntil([&] { return TextOf(editor, L"TxtUser").empty(); }));
        EXPECT_TRUE(IsEnabled(editor, L"CmdOk"));
    });
}

TEST_F(UserEditorForm, EnterMovesOnFromBoxToBox) {
    PlayAdding([](HWND editor) {
        TypeText(L"a");
        ExpectKeyWalks(editor, VK_RETURN,
                       {L"TxtDes", L"TxtIdGroup", L"TxtPass", L"txtConfirm", L"CmdOk"});
        EXPECT_TRUE(IsWindowVisible(editor));
    });
}

TEST_F(UserEditorForm, EnterOnAButtonPressesItAndMovesOn) {
    PlayAdding([](HWND editor) {
        TypeText(L"a");
        ExpectKeyWalks(editor, VK_RETURN,
                       {L"TxtDes", L"TxtIdGroup", L"TxtPass", L"txtConfirm", L"CmdOk"});
        PressKey(VK_RETURN);
        Answer(L"Bạn chưa chọn bộ phận.", L"Thông báo");
        WaitReady(editor, L"TxtIdGroup");
    });
}

TEST_F(UserEditorForm, EnterOnCancelLeaves) {
    test_.PlayUsers([](HWND list) {
        PressKey('H', kAlt);
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        PressKey(VK_TAB, kShift);
        WaitReady(editor, L"CMDCAN");
        PressKey(VK_RETURN);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        PressKey(VK_ESCAPE);
    });
}

TEST_F(UserEditorForm, TabGoesThereAndBack) {
    PlayAdding([](HWND editor) {
        TypeText(L"a");
        ExpectKeyWalks(
            editor, VK_TAB,
            {L"TxtDes", L"TxtIdGroup", L"TxtPass", L"txtConfirm", L"CmdOk", L"CMDCAN", L"TxtUser"});
        PressKey(VK_TAB, kShift);
        WaitReady(editor, L"CMDCAN");
    });
}

TEST_F(UserEditorForm, LettersBehindAltLeadToTheBoxes) {
    PlayAdding([](HWND editor) {
        EXPECT_EQ(L"BDGMNQT", Sorted(Mnemonics(editor)));
        const std::pair<WORD, const wchar_t*> boxes[] = {{'D', L"TxtDes"},
                                                         {'B', L"TxtIdGroup"},
                                                         {'M', L"TxtPass"},
                                                         {'N', L"txtConfirm"},
                                                         {'T', L"TxtUser"}};
        for (const auto& [letter, box] : boxes) {
            PressKey(letter, kAlt);
            WaitReady(editor, box);
        }
    });
}

TEST_F(UserEditorForm, GroupIsChosenByTheArrows) {
    PlayAdding([](HWND editor) {
        const HWND groups = Control(editor, L"TxtIdGroup");
        EXPECT_EQ(-1, ListSelection(groups));
        PressKey('B', kAlt);
        WaitReady(editor, L"TxtIdGroup");
        PressKey(VK_DOWN);
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups) == L"Kế toán-Phòng kế toán"; }));
    });
}

TEST_F(UserEditorForm, HidesPasswordsAndTheButtonWithoutBehaviour) {
    PlayAdding([](HWND editor) {
        for (const wchar_t* box : {L"TxtPass", L"txtConfirm"})
            EXPECT_EQ(L'*', SendMessageW(Control(editor, box), EM_GETPASSWORDCHAR, 0, 0));
        EXPECT_FALSE(IsShown(editor, L"Command1"));
    });
}

} // namespace
} // namespace vndesk::test
