// SPDX-License-Identifier: MIT
// The permission form as administrators see it, opened from the group manager.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

// Items of the sample's groups: codes 1, 2, 3, 5, 8. Group 2 has the masks 5, 48 and 31.
constexpr int kAccountants = 1;
constexpr int kStore = 3;

// Opens the form for a group while the script plays the user; the script closes it.
void PlayRights(const AdministrationTest& test, int groupItem, std::function<void(HWND)> script) {
    test.PlayGroups([&](HWND groups) {
        WaitReady(groups, L"Lv1");
        for (int i = 0; i < groupItem; ++i)
            PressKey(VK_DOWN);
        PressKey('Q', kAlt);
        const HWND rights = WaitForForm(L"FrPms");
        WaitReady(rights, L"LstMenuBar");
        script(rights);
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
}

// Ticks or unticks a command by the keyboard.
void Toggle(HWND rights, int command) {
    PressKey('C', kAlt);
    WaitReady(rights, L"LstSubMenu");
    PressKey(VK_HOME);
    for (int i = 0; i < command; ++i)
        PressKey(VK_DOWN);
    PressKey(VK_SPACE);
}

void GoToBar(HWND rights, int bar) {
    PressKey('T', kAlt);
    WaitReady(rights, L"LstMenuBar");
    PressKey(VK_HOME);
    for (int i = 0; i < bar; ++i)
        PressKey(VK_DOWN);
}

bool HasTicks(HWND rights, const wchar_t* ticks) {
    if (WaitUntil([=] { return Ticks(rights, L"LstSubMenu") == ticks; }))
        return true;
    ADD_FAILURE() << ToUtf8(Ticks(rights, L"LstSubMenu"));
    return false;
}

class PermissionForm : public Administration {
protected:
    void Play(int groupItem, std::function<void(HWND)> script) const {
        PlayRights(Test(), groupItem, std::move(script));
    }
};

INSTANTIATE_ADMINISTRATION(PermissionForm);

TEST_P(PermissionForm, MaskFiveTicksCommandsZeroAndTwo) {
    StatementTrace trace;
    Play(kAccountants, [&](HWND rights) {
        EXPECT_EQ(L"Tên nhóm là:Kế toán-Phòng kế toán", TextOf(rights, L"LblTitle"));
        EXPECT_EQ((Lines{L"Hệ thống", L"Danh mục", L"Báo cáo"}),
                  ListTexts(Control(rights, L"LstMenuBar")));
        EXPECT_TRUE(HasTicks(rights, L"1010"));
        EXPECT_EQ(L"Người sử dụng", CellText(Control(rights, L"LstSubMenu"), 1, 0));
        const Lines all = trace.All();
        ASSERT_GE(all.size(), 3u);
        const Lines opening(all.end() - 3, all.end());
        EXPECT_EQ((Lines{L"Menu", L"Select * From Groups Where Code=2",
                         L"Select * From SubMenu Where IdMenuBar=1 Order By ID"}),
                  opening);
        PressKey(VK_ESCAPE);
    });
}

TEST_P(PermissionForm, TickingCommandOneWritesSevenIntoTheFourthColumn) {
    StatementTrace trace;
    Play(kAccountants, [&](HWND rights) {
        trace.Forget();
        Toggle(rights, 1);
        EXPECT_TRUE(HasTicks(rights, L"1110"));
        PressKey('G', kAlt);
    });
    const std::wstring p = Test().server ? L"p" : L"P";
    EXPECT_EQ((Lines{L"Groups", L"Update Groups Set " + p + L"1=7," + p + L"2=48," + p +
                                    L"3=31 Where Code=2"}),
              trace.All());
    EXPECT_EQ(L"7", Test().Group(L"p1", 2));
    EXPECT_EQ(L"48", Test().Group(L"p2", 2));
    EXPECT_EQ(L"31", Test().Group(L"p3", 2));
}

TEST_P(PermissionForm, ThreeMenuBarsAreWrittenInOneStatement) {
    const StatementTrace trace;
    Play(kStore, [](HWND) { PressKey('G', kAlt); });
    const std::wstring p = Test().server ? L"p" : L"P";
    EXPECT_EQ(Lines{L"Update Groups Set " + p + L"1=7," + p + L"2=0," + p + L"3=1 Where Code=5"},
              trace.Writing());
}

TEST_P(PermissionForm, ColumnsAreTakenByTheirPlace) {
    for (const wchar_t* change : {L"alter table groups rename column p1 to hethong",
                                  L"alter table groups rename column p3 to baocao"})
        Test().database.Execute(change);
    const StatementTrace trace;
    Play(kAccountants, [&](HWND rights) {
        EXPECT_TRUE(HasTicks(rights, L"1010"));
        Toggle(rights, 3);
        PressKey('G', kAlt);
    });
    EXPECT_EQ(L"13", Test().Group(L"hethong", 2));
    EXPECT_EQ(L"31", Test().Group(L"baocao", 2));
}

TEST_P(PermissionForm, ChangesOfOneBarStayWhileAnotherIsShown) {
    Play(kStore, [](HWND rights) {
        Toggle(rights, 0);
        EXPECT_TRUE(HasTicks(rights, L"0110"));
        GoToBar(rights, 1);
        EXPECT_TRUE(HasTicks(rights, L"000000"));
        Toggle(rights, 5);
        Toggle(rights, 0);
        GoToBar(rights, 0);
        EXPECT_TRUE(HasTicks(rights, L"0110"));
        GoToBar(rights, 1);
        EXPECT_TRUE(HasTicks(rights, L"100001"));
        PressKey('G', kAlt);
    });
    EXPECT_EQ(L"6", Test().Group(L"p1", 5));
    EXPECT_EQ(L"33", Test().Group(L"p2", 5));
    EXPECT_EQ(L"1", Test().Group(L"p3", 5));
}

TEST_P(PermissionForm, LeavingWithoutOkWritesNothing) {
    const std::wstring before = Test().Groups();
    const StatementTrace trace;
    Play(kAccountants, [](HWND rights) {
        Toggle(rights, 0);
        EXPECT_TRUE(HasTicks(rights, L"0010"));
        PressKey('Q', kAlt);
    });
    EXPECT_TRUE(trace.Writing().empty());
    EXPECT_EQ(before, Test().Groups());
}

TEST_P(PermissionForm, EmptyMenuReadsNoGroup) {
    Test().database.Execute(L"delete from menu");
    StatementTrace trace;
    Play(kAccountants, [&](HWND rights) {
        EXPECT_TRUE(ListTexts(Control(rights, L"LstMenuBar")).empty());
        EXPECT_EQ(0, RowCount(rights, L"LstSubMenu"));
        const Lines all = trace.All();
        ASSERT_FALSE(all.empty());
        EXPECT_EQ(L"Menu", all.back());
        EXPECT_EQ(0, std::count(all.begin(), all.end(), L"Select * From Groups Where Code=2"));
        PressKey(VK_ESCAPE);
    });
}

TEST_P(PermissionForm, BarWithANumberBeyond16BitsShowsNoCommands) {
    // Behind the others on both engines.
    Test().database.Execute(L"update menu set id=40000 where id=3");
    Play(kAccountants, [](HWND rights) {
        GoToBar(rights, 2);
        ClosePlainMessage();
        WaitReady(rights, L"LstMenuBar");
        EXPECT_TRUE(HasTicks(rights, L""));
        // Nothing is there to be ticked.
        PressKey(VK_TAB);
        WaitReady(rights, L"LstSubMenu");
        PressKey(VK_SPACE);
        PressKey('G', kAlt);
    });
    EXPECT_EQ(L"31", Test().Group(L"p3", 2));
}

TEST_P(PermissionForm, EmptyMasksCountAsNoRights) {
    Test().database.Execute(L"update groups set p1=null,p2=null where code=2");
    // The server lists a row that was updated last.
    Play(Test().server ? 4 : kAccountants, [](HWND rights) {
        EXPECT_TRUE(HasTicks(rights, L"0000"));
        GoToBar(rights, 2);
        EXPECT_TRUE(HasTicks(rights, L"11111"));
        PressKey('G', kAlt);
    });
    EXPECT_EQ(L"0", Test().Group(L"p1", 2));
    EXPECT_EQ(L"31", Test().Group(L"p3", 2));
}

class PermissionFormWindow : public testing::Test {
protected:
    const AdministrationTest test_{false};
};

TEST_F(PermissionFormWindow, TabLeadsThroughTheListsAndButtons) {
    PlayRights(test_, 0, [](HWND rights) {
        EXPECT_EQ(L"Phân quyền", TextOf(rights));
        EXPECT_EQ(L"CGQT", Sorted(Mnemonics(rights)));
        ExpectKeyWalks(rights, VK_TAB, {L"LstSubMenu", L"CmdOk", L"Command1", L"LstMenuBar"});
        PressKey(VK_ESCAPE);
    });
}

TEST_F(PermissionFormWindow, FirstBarStandsOpenAndSpaceTicksAtOnce) {
    PlayRights(test_, kAccountants, [](HWND rights) {
        EXPECT_EQ(0, ListSelection(Control(rights, L"LstMenuBar")));
        PressKey(VK_TAB);
        WaitReady(rights, L"LstSubMenu");
        PressKey(VK_SPACE);
        EXPECT_TRUE(HasTicks(rights, L"0010"));
        PressKey(VK_SPACE);
        EXPECT_TRUE(HasTicks(rights, L"1010"));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(PermissionFormWindow, ClickOnABoxTicksItsCommand) {
    PlayRights(test_, kAccountants, [](HWND rights) {
        const HWND commands = Control(rights, L"LstSubMenu");
        RECT item = {};
        item.left = LVIR_LABEL;
        SendMessageW(commands, LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
        POINT box = {item.left - 8, (item.top + item.bottom) / 2};
        ClientToScreen(commands, &box);
        ClickAt(box);
        EXPECT_TRUE(HasTicks(rights, L"1110"));
        PressKey('G', kAlt);
    });
    EXPECT_EQ(L"7", test_.Group(L"p1", 2));
}

TEST_F(PermissionFormWindow, EnterMovesOnLikeTabAndWritesNothing) {
    const std::wstring before = test_.Groups();
    PlayRights(test_, kAccountants, [](HWND rights) {
        Toggle(rights, 1);
        ExpectKeyWalks(rights, VK_RETURN,
                       {L"CmdOk", L"Command1", L"LstMenuBar", L"LstSubMenu", L"CmdOk"});
        EXPECT_TRUE(IsWindowVisible(rights));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, test_.Groups());
}

TEST_F(PermissionFormWindow, SpaceOnOkWrites) {
    PlayRights(test_, kAccountants, [](HWND rights) {
        Toggle(rights, 1);
        ExpectKeyWalks(rights, VK_RETURN, {L"CmdOk"});
        PressKey(VK_SPACE);
    });
    EXPECT_EQ(L"7", test_.Group(L"p1", 2));
}

TEST_F(PermissionFormWindow, ListsGrowWithTheForm) {
    PlayRights(test_, 0, [](HWND rights) {
        const SIZE form = SizeOf(rights);
        const SIZE bars = SizeOf(Control(rights, L"LstMenuBar"));
        const SIZE commands = SizeOf(Control(rights, L"LstSubMenu"));
        SetWindowPos(rights, nullptr, 0, 0, form.cx + 150, form.cy + 90, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_EQ(bars.cx, SizeOf(Control(rights, L"LstMenuBar")).cx);
        EXPECT_NEAR(SizeOf(Control(rights, L"LstMenuBar")).cy, bars.cy + 90, 1);
        EXPECT_NEAR(SizeOf(Control(rights, L"LstSubMenu")).cx, commands.cx + 150, 1);
        EXPECT_NEAR(SizeOf(Control(rights, L"LstSubMenu")).cy, commands.cy + 90, 1);
        EXPECT_GT(SendMessageW(Control(rights, L"LstSubMenu"), LVM_GETCOLUMNWIDTH, 0, 0),
                  commands.cx);
        PressKey(VK_ESCAPE);
    });
}

} // namespace
} // namespace vndesk::test
