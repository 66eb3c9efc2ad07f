// SPDX-License-Identifier: MIT
// The list of users as administrators see it.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

// Rows of the sample: codes 1, 2, 3, 4, 5, 7, 9.
constexpr int kAdminRow = 2;
constexpr int kLastRow = 6;

constexpr wchar_t kNotice[] = L"Thông báo";
constexpr wchar_t kConfirm[] = L"Bạn chắc chắn xoá người sử dụng này";

class UserList : public Administration {
protected:
    // The list stands open with the focus in it; the script leaves it, and Escape closes it.
    void Play(std::function<void(HWND)> script) const {
        Test().PlayUsers([&](HWND list) {
            WaitReady(list, L"Lv");
            script(list);
            WaitReady(list, L"Lv");
            PressKey(VK_ESCAPE);
        });
    }
};

INSTANTIATE_ADMINISTRATION(UserList);

TEST_P(UserList, ShowsEveryUserInTheOrderOfCodes) {
    const StatementTrace trace;
    Play([&](HWND list) {
        const HWND rows = Control(list, L"Lv");
        ASSERT_EQ(7, RowCount(list, L"Lv"));
        EXPECT_EQ(L"Nguyễn Văn Hưng", CellText(rows, 0, 0));
        EXPECT_EQ(L"Kế toán trưởng", CellText(rows, 0, 1));
        std::wstring codes;
        for (int row = 0; row < 7; ++row)
            codes += CellText(rows, row, 2) + L" ";
        EXPECT_EQ(L"1 2 3 4 5 7 9 ", codes);
        EXPECT_EQ(0, SelectedRow(list, L"Lv"));
        EXPECT_EQ(Lines{L"Select Code,Name,Dec from [user] Order by Code"}, trace.All());
    });
}

TEST_P(UserList, CancellingTheEditorAddsNoRow) {
    StatementTrace trace;
    Play([&](HWND list) {
        trace.Forget();
        const HWND editor = OpenEditor('H');
        SetBox(editor, L"TxtUser", L"moi");
        PressKey(VK_ESCAPE);
        WaitForClose(editor);
        EXPECT_TRUE(WaitUntil([&] { return trace.All().size() >= 3; }));
        // The list answers when it has done all that it does after the editor.
        EXPECT_EQ(7, RowCount(list, L"Lv"));
        EXPECT_EQ((Lines{L"Select  [Code]  from [User] Order by [Code]", L"[Groups]",
                         L"Select  [Code]  from [User] Order by [Code]"}),
                  trace.All());
    });
}

TEST_P(UserList, AddedUserStandsLastAndSelected) {
    StatementTrace trace;
    Play([&](HWND list) {
        const HWND editor = OpenEditor('H');
        SetBox(editor, L"TxtUser", L"Đỗ Thị Hường");
        SetBox(editor, L"TxtDes", L"Thủ kho 2");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 0, 0);
        SetBox(editor, L"TxtPass", L"abc");
        SetBox(editor, L"txtConfirm", L"abc");
        PressKey('G', kAlt);
        WaitForClose(editor);
        ASSERT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 8; }));
        const HWND rows = Control(list, L"Lv");
        EXPECT_EQ(L"Đỗ Thị Hường", CellText(rows, 7, 0));
        EXPECT_EQ(L"Thủ kho 2", CellText(rows, 7, 1));
        EXPECT_EQ(L"10", CellText(rows, 7, 2));
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 7; }));
        EXPECT_TRUE(RowIsVisible(list, L"Lv", 7));
        EXPECT_EQ(L"Select * From [User] Where Code >9", trace.All().back());
    });
}

TEST_P(UserList, UsersAddedElsewhereMeanwhileAppearToo) {
    Play([&](HWND list) {
        const HWND editor = OpenEditor('H');
        Test().database.Execute(
            L"insert into \"user\"(name,\"dec\",idgroup,password) values('xa','',1,65)");
        PressKey(VK_ESCAPE);
        WaitForClose(editor);
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 8; }));
        EXPECT_EQ(L"xa", CellText(Control(list, L"Lv"), 7, 0));
    });
}

TEST_P(UserList, RenamingUpdatesTheRowInPlace) {
    StatementTrace trace;
    Play([&](HWND list) {
        SelectRow(list, L"Lv", 3);
        const HWND editor = OpenEditor('S');
        SetBox(editor, L"TxtUser", L"Việt");
        SetBox(editor, L"TxtDes", L"Kho Hà Nội");
        PressKey('G', kAlt);
        WaitForClose(editor);
        const HWND rows = Control(list, L"Lv");
        EXPECT_TRUE(WaitUntil([&] { return CellText(rows, 3, 0) == L"Việt"; }));
        EXPECT_EQ(L"Kho Hà Nội", CellText(rows, 3, 1));
        EXPECT_EQ(L"4", CellText(rows, 3, 2));
        EXPECT_EQ(7, RowCount(list, L"Lv"));
        EXPECT_EQ(3, SelectedRow(list, L"Lv"));
        EXPECT_EQ(L"Select * From [User] Where Code=4", trace.All().back());
    });
    EXPECT_EQ(L"Việt", Test().User(L"name", 4));
}

TEST_P(UserList, UserWithCodeThreeIsNotDeletedWhateverItsName) {
    Test().database.Execute(L"update \"user\" set name='ai do' where code=3");
    const std::wstring before = Test().Users();
    Play([](HWND list) {
        SelectRow(list, L"Lv", kAdminRow);
        PressKey('X', kAlt);
        Answer(L"Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên.", kNotice);
        EXPECT_EQ(7, RowCount(list, L"Lv"));
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserList, LastRemainingUserIsNotDeleted) {
    Test().database.Execute(L"delete from \"user\" where code<>5");
    Play([](HWND list) {
        PressKey('X', kAlt);
        Answer(L"Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình", kNotice);
        EXPECT_EQ(1, RowCount(list, L"Lv"));
    });
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(UserList, DeletingAsksAndTakesTheRowAway) {
    const StatementTrace trace;
    Play([](HWND list) {
        SelectRow(list, L"Lv", 1);
        PressKey('X', kAlt);
        Answer(kConfirm, kNotice);
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 6; }));
        // The next one takes its place.
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 1; }));
        EXPECT_EQ(L"Admin", CellText(Control(list, L"Lv"), 1, 0));
    });
    EXPECT_EQ(Lines{L"Delete from [user] Where [Name]=" + Q(L"Trần Thị Mai")}, trace.Writing());
    EXPECT_EQ(L"6", Test().Read(L"select count(*) from \"user\""));
    EXPECT_EQ(L"", Test().User(L"name", 2));
}

TEST_P(UserList, DeletingTheLastRowSelectsTheOneBefore) {
    Play([](HWND list) {
        SelectRow(list, L"Lv", kLastRow);
        PressKey(VK_DELETE);
        Answer(kConfirm, kNotice);
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == kLastRow - 1; }));
    });
    EXPECT_EQ(L"", Test().User(L"name", 9));
}

// Tools press buttons of a form that waits for a message.
TEST_P(UserList, UserIsDeletedAlthoughTheListHasGrownWhileItAsked) {
    Play([&](HWND list) {
        SelectRow(list, L"Lv", 1);
        PressKey(VK_DELETE);
        const HWND question = WaitForForm(L"MessageBox");
        WaitReady(question, L"Cmd1");
        PostMessageW(list, WM_COMMAND,
                     MAKEWPARAM(GetDlgCtrlID(Control(list, L"CmdAdd")), BN_CLICKED), 0);
        const HWND editor = WaitForForm(L"FrmInput");
        for (const wchar_t* name : {L"xa", L"xb", L"xc"})
            Test().database.Execute(
                L"insert into \"user\"(name,\"dec\",idgroup,password) values('" +
                std::wstring(name) + L"','',1,65)");
        PostMessageW(editor, WM_CLOSE, 0, 0);
        WaitForClose(editor);
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 10; }));
        PostMessageW(question, WM_COMMAND,
                     MAKEWPARAM(GetDlgCtrlID(Control(question, L"Cmd1")), BN_CLICKED), 0);
        WaitForClose(question);
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 9; }));
        EXPECT_EQ(1, RowWith(list, L"Lv", 2, L"3"));
    });
    EXPECT_EQ(L"", Test().User(L"name", 2));
    EXPECT_EQ(L"9", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(UserList, AnsweringNoDeletesNothing) {
    const std::wstring before = Test().Users();
    Play([](HWND list) {
        PressKey(VK_DELETE);
        Answer(kConfirm, kNotice, 'K');
        EXPECT_EQ(7, RowCount(list, L"Lv"));
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(UserList, TwentyThousandUsersOpenAtOnce) {
    Test().database.Execute(
        Test().server
            ? L"insert into \"user\"(code,name,\"dec\",idgroup,password) select g, 'nv' || g, "
              L"'Nhân "
              L"viên số ' || g, 2, 65 from generate_series(1001, 21000) g"
            : L"with recursive n(g) as (select 1001 union all select g + 1 from n where g < 21000) "
              L"insert into \"user\"(code,name,\"dec\",idgroup,password) select g, 'nv' || g, "
              L"'Nhân "
              L"viên số ' || g, 2, 65 from n");
    const ULONGLONG start = GetTickCount64();
    Play([&](HWND list) {
        const auto opened = static_cast<int>(GetTickCount64() - start);
        RecordProperty("milliseconds", opened);
        printf("20,000 users opened in %d ms\n", opened);
        EXPECT_EQ(20007, RowCount(list, L"Lv"));
        PressKey(VK_END);
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 20006; }));
        EXPECT_TRUE(RowIsVisible(list, L"Lv", 20006));
        EXPECT_EQ(L"nv21000", CellText(Control(list, L"Lv"), 20006, 0));
        // Far above what it takes, far below what a user would call hanging.
        EXPECT_LT(opened, 15000);
    });
}

class UserListForm : public testing::Test {
protected:
    void Play(std::function<void(HWND)> script) const {
        test_.PlayUsers([&](HWND list) {
            WaitReady(list, L"Lv");
            script(list);
            WaitReady(list, L"Lv");
            PressKey(VK_ESCAPE);
        });
    }

    static void CloseEditorOf(HWND list, const wchar_t* user) {
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        EXPECT_EQ(user, TextOf(editor, L"TxtUser"));
        PressKey(VK_ESCAPE);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
    }

    const AdministrationTest test_{false};
};

TEST_F(UserListForm, ColumnsSpeakVietnameseAndFillTheList) {
    Play([](HWND list) {
        EXPECT_EQ(L"Danh sách người sử dụng", TextOf(list));
        const HWND rows = Control(list, L"Lv");
        RECT client = {};
        GetClientRect(rows, &client);
        int width = 0;
        const wchar_t* const captions[] = {L"Tên", L"Diễn giải", L"Mã số"};
        for (int i = 0; i < 3; ++i) {
            wchar_t text[64] = L"";
            LVCOLUMNW column = {};
            column.mask = LVCF_TEXT | LVCF_WIDTH;
            column.pszText = text;
            column.cchTextMax = 64;
            SendMessageW(rows, LVM_GETCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
            EXPECT_STREQ(captions[i], column.pszText);
            EXPECT_GT(column.cx, 40);
            width += column.cx;
        }
        EXPECT_LE(width, client.right);
        EXPECT_GT(width, client.right * 8 / 10);
    });
}

TEST_F(UserListForm, DoubleClickEditsTheSelectedUser) {
    Play([](HWND list) {
        ClickItem(Control(list, L"Lv"), kAdminRow, true);
        CloseEditorOf(list, L"Admin");
    });
}

TEST_F(UserListForm, EnterMovesOnLikeTabAndPressesNothing) {
    Play([](HWND list) {
        ExpectKeyWalks(list, VK_RETURN, {L"CmdAdd", L"CmdEdit", L"CmdDel", L"CmdExit", L"Lv"});
        EXPECT_EQ(list, TopWindows().front());
        ExpectKeyWalks(list, VK_RETURN, {L"CmdAdd", L"CmdEdit"});
        PressKey(VK_SPACE);
        CloseEditorOf(list, L"Nguyễn Văn Hưng");
    });
}

TEST_F(UserListForm, TypingTheBeginningOfANameFindsIt) {
    Play([](HWND list) {
        TypeText(L"ad");
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == kAdminRow; }));
    });
}

TEST_F(UserListForm, DeleteKeyWithShiftOrControlDoesNothing) {
    Play([](HWND list) {
        PressKey(VK_DELETE, kShift);
        PressKey(VK_DELETE, kControl);
        Sleep(100);
        EXPECT_EQ(list, TopWindows().front());
        EXPECT_EQ(7, RowCount(list, L"Lv"));
    });
}

TEST_F(UserListForm, TabLeadsThroughTheButtonsAndBack) {
    Play([](HWND list) {
        EXPECT_EQ(L"HOSX", Sorted(Mnemonics(list)));
        ExpectKeyWalks(list, VK_TAB, {L"CmdAdd", L"CmdEdit", L"CmdDel", L"CmdExit", L"Lv"});
    });
}

TEST_F(UserListForm, ExitButtonAndTitleBarCloseTheList) {
    test_.PlayUsers([](HWND) { PressKey('O', kAlt); });
    test_.PlayUsers([](HWND list) { PostMessageW(list, WM_SYSCOMMAND, SC_CLOSE, 0); });
}

TEST_F(UserListForm, GrowsWithTheFormAndShrinksNoFurtherThanDesigned) {
    Play([](HWND list) {
        const SIZE form = SizeOf(list);
        const SIZE rows = SizeOf(Control(list, L"Lv"));
        SetWindowPos(list, nullptr, 0, 0, form.cx + 200, form.cy + 100, SWP_NOMOVE | SWP_NOZORDER);
        const SIZE wide = SizeOf(Control(list, L"Lv"));
        EXPECT_NEAR(wide.cx, rows.cx + 200, 1);
        EXPECT_NEAR(wide.cy, rows.cy + 100, 1);
        EXPECT_GT(SendMessageW(Control(list, L"Lv"), LVM_GETCOLUMNWIDTH, 1, 0), rows.cx / 2);
        SetWindowPos(list, nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_EQ(form.cx, SizeOf(list).cx);
        EXPECT_EQ(form.cy, SizeOf(list).cy);
    });
}

TEST_F(UserListForm, EmptyTableAllowsAddingOnly) {
    test_.database.Execute(L"delete from \"user\"");
    Play([](HWND list) {
        EXPECT_EQ(0, RowCount(list, L"Lv"));
        PressKey(VK_RETURN);
        PressKey(VK_DELETE);
        Sleep(100);
        EXPECT_EQ(list, TopWindows().front());
        PressKey('H', kAlt);
        CloseEditorOf(list, L"");
    });
}

} // namespace
} // namespace vndesk::test
