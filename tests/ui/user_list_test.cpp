// SPDX-License-Identifier: MIT
// The list of users as administrators see it.
#include "ui/administration.h"

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
        ASSERT_EQ(RowCount(list, L"Lv"), 7);
        EXPECT_EQ(CellText(rows, 0, 0), L"Nguyễn Văn Hưng");
        EXPECT_EQ(CellText(rows, 0, 1), L"Kế toán trưởng");
        std::wstring codes;
        for (int row = 0; row < 7; ++row)
            codes += CellText(rows, row, 2) + L" ";
        EXPECT_EQ(codes, L"1 2 3 4 5 7 9 ");
        EXPECT_EQ(SelectedRow(list, L"Lv"), 0);
        EXPECT_EQ(trace.All(), Lines{L"Select Code,Name,Dec from [user] Order by Code"});
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
        EXPECT_EQ(RowCount(list, L"Lv"), 7);
        EXPECT_EQ(trace.All(), (Lines{L"Select  [Code]  from [User] Order by [Code]", L"[Groups]",
                                      L"Select  [Code]  from [User] Order by [Code]"}));
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
        EXPECT_EQ(CellText(rows, 7, 0), L"Đỗ Thị Hường");
        EXPECT_EQ(CellText(rows, 7, 1), L"Thủ kho 2");
        EXPECT_EQ(CellText(rows, 7, 2), L"10");
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 7; }));
        EXPECT_TRUE(RowIsVisible(list, L"Lv", 7));
        EXPECT_EQ(trace.All().back(), L"Select * From [User] Where Code >9");
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
        EXPECT_EQ(CellText(Control(list, L"Lv"), 7, 0), L"xa");
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
        EXPECT_EQ(CellText(rows, 3, 1), L"Kho Hà Nội");
        EXPECT_EQ(CellText(rows, 3, 2), L"4");
        EXPECT_EQ(RowCount(list, L"Lv"), 7);
        EXPECT_EQ(SelectedRow(list, L"Lv"), 3);
        EXPECT_EQ(trace.All().back(), L"Select * From [User] Where Code=4");
    });
    EXPECT_EQ(Test().User(L"name", 4), L"Việt");
}

TEST_P(UserList, UserWithCodeThreeIsNotDeletedWhateverItsName) {
    Test().database.Execute(L"update \"user\" set name='ai do' where code=3");
    const std::wstring before = Test().Users();
    Play([](HWND list) {
        SelectRow(list, L"Lv", kAdminRow);
        PressKey('X', kAlt);
        Answer(L"Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên.", kNotice);
        EXPECT_EQ(RowCount(list, L"Lv"), 7);
    });
    EXPECT_EQ(Test().Users(), before);
}

TEST_P(UserList, LastRemainingUserIsNotDeleted) {
    Test().database.Execute(L"delete from \"user\" where code<>5");
    Play([](HWND list) {
        PressKey('X', kAlt);
        Answer(L"Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình", kNotice);
        EXPECT_EQ(RowCount(list, L"Lv"), 1);
    });
    EXPECT_EQ(Test().Read(L"select count(*) from \"user\""), L"1");
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
        EXPECT_EQ(CellText(Control(list, L"Lv"), 1, 0), L"Admin");
    });
    EXPECT_EQ(trace.Writing(), Lines{L"Delete from [user] Where [Name]=" + Q(L"Trần Thị Mai")});
    EXPECT_EQ(Test().Read(L"select count(*) from \"user\""), L"6");
    EXPECT_EQ(Test().User(L"name", 2), L"");
}

TEST_P(UserList, DeletingTheLastRowSelectsTheOneBefore) {
    Play([](HWND list) {
        SelectRow(list, L"Lv", kLastRow);
        PressKey(VK_DELETE);
        Answer(kConfirm, kNotice);
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == kLastRow - 1; }));
    });
    EXPECT_EQ(Test().User(L"name", 9), L"");
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
        EXPECT_EQ(RowWith(list, L"Lv", 2, L"3"), 1);
    });
    EXPECT_EQ(Test().User(L"name", 2), L"");
    EXPECT_EQ(Test().Read(L"select count(*) from \"user\""), L"9");
}

TEST_P(UserList, AnsweringNoDeletesNothing) {
    const std::wstring before = Test().Users();
    Play([](HWND list) {
        PressKey(VK_DELETE);
        Answer(kConfirm, kNotice, 'K');
        EXPECT_EQ(RowCount(list, L"Lv"), 7);
    });
    EXPECT_EQ(Test().Users(), before);
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
        EXPECT_EQ(RowCount(list, L"Lv"), 20007);
        PressKey(VK_END);
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 20006; }));
        EXPECT_TRUE(RowIsVisible(list, L"Lv", 20006));
        EXPECT_EQ(CellText(Control(list, L"Lv"), 20006, 0), L"nv21000");
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
        EXPECT_EQ(TextOf(editor, L"TxtUser"), user);
        PressKey(VK_ESCAPE);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
    }

    const AdministrationTest test_{false};
};

TEST_F(UserListForm, ColumnsSpeakVietnameseAndFillTheList) {
    Play([](HWND list) {
        EXPECT_EQ(TextOf(list), L"Danh sách người sử dụng");
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
            EXPECT_STREQ(column.pszText, captions[i]);
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
        EXPECT_EQ(TopWindows().front(), list);
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
        EXPECT_EQ(TopWindows().front(), list);
        EXPECT_EQ(RowCount(list, L"Lv"), 7);
    });
}

TEST_F(UserListForm, TabLeadsThroughTheButtonsAndBack) {
    Play([](HWND list) {
        EXPECT_EQ(Sorted(Mnemonics(list)), L"HOSX");
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
        EXPECT_EQ(SizeOf(list).cx, form.cx);
        EXPECT_EQ(SizeOf(list).cy, form.cy);
    });
}

TEST_F(UserListForm, EmptyTableAllowsAddingOnly) {
    test_.database.Execute(L"delete from \"user\"");
    Play([](HWND list) {
        EXPECT_EQ(RowCount(list, L"Lv"), 0);
        PressKey(VK_RETURN);
        PressKey(VK_DELETE);
        Sleep(100);
        EXPECT_EQ(TopWindows().front(), list);
        PressKey('H', kAlt);
        CloseEditorOf(list, L"");
    });
}

} // namespace
} // namespace vndesk::test
