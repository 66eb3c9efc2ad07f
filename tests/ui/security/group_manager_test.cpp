// SPDX-License-Identifier: MIT
// The group manager as administrators see it.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kConfirm[] = L"Bạn có chắc chắn xoá các nhóm đã chọn không?";
constexpr int kFirstNewCode = 9;

Lines Items(HWND groups) {
    return ListTexts(Control(groups, L"Lv1"));
}

bool IsSelected(HWND groups, int item) {
    return SendMessageW(Control(groups, L"Lv1"), LB_GETSEL, item, 0) > 0;
}

// Clicks on items with Control held, so that just these are selected. The clicks are messages:
// real ones with Control held by SendInput arrive at Wine's list box without it.
void SelectItems(HWND groups, std::initializer_list<int> items) {
    const HWND list = Control(groups, L"Lv1");
    WPARAM keys = MK_LBUTTON;
    for (const int item : items) {
        RECT rect = {};
        SendMessageW(list, LB_GETITEMRECT, item, reinterpret_cast<LPARAM>(&rect));
        const LPARAM point = MAKELPARAM(rect.left + 8, (rect.top + rect.bottom) / 2);
        SendMessageW(list, WM_LBUTTONDOWN, keys, point);
        SendMessageW(list, WM_LBUTTONUP, keys & ~MK_LBUTTON, point);
        keys |= MK_CONTROL;
    }
    for (const int item : items)
        EXPECT_TRUE(IsSelected(groups, item));
}

class GroupManager : public Administration {
protected:
    void Play(std::function<void(HWND)> script) const {
        Test().PlayGroups([&](HWND groups) {
            script(groups);
            PressKey(VK_ESCAPE);
        });
    }

    // Presses the button and waits until the form is ready again.
    static void Write(HWND groups) {
        PressKey('G', kAlt);
        WaitReady(groups, L"txtName");
    }
};

INSTANTIATE_ADMINISTRATION(GroupManager);

TEST_P(GroupManager, OpensOnTheFirstGroupWithItsUsers) {
    const StatementTrace trace;
    Play([&](HWND groups) {
        WaitReady(groups, L"Lv1");
        EXPECT_EQ(
            (Lines{L"Quản trị-Toàn quyền trên chương trình", L"Kế toán-Phòng kế toán",
                   L"Bán hàng-Phòng kinh doanh", L"Kho-Bộ phận kho", L"Khách-Chỉ xem báo cáo"}),
            Items(groups));
        EXPECT_TRUE(IsSelected(groups, 0));
        EXPECT_EQ(L"Quản trị", TextOf(groups, L"txtName"));
        EXPECT_EQ(L"Toàn quyền trên chương trình", TextOf(groups, L"TxtDesc"));
        EXPECT_EQ(Lines{L"Admin"}, ListTexts(Control(groups, L"lvUser")));
        EXPECT_EQ((Lines{L"[Groups]", L"Select * From [Groups] Where Code=1",
                         L"SELECT * FROM [USER] WHERE IdGroup=1"}),
                  trace.All());
    });
}

TEST_P(GroupManager, ArrowsShowTheNextGroup) {
    Play([](HWND groups) {
        WaitReady(groups, L"Lv1");
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"Kế toán"; }));
        EXPECT_EQ(2u, ListTexts(Control(groups, L"lvUser")).size());
    });
}

TEST_P(GroupManager, AddingEntersSeveralGroupsOneAfterAnother) {
    const StatementTrace trace;
    Play([&](HWND groups) {
        EXPECT_EQ(L"T&hêm", TextOf(groups, L"CmdAdd"));
        PressKey('H', kAlt);
        WaitReady(groups, L"txtName");
        EXPECT_EQ(L"&Huỷ thêm", TextOf(groups, L"CmdAdd"));
        EXPECT_FALSE(IsEnabled(groups, L"FrDetail"));
        EXPECT_FALSE(IsEnabled(groups, L"Lv1"));
        // No name of the sample reads as a number.
        EXPECT_EQ(L"1", TextOf(groups, L"txtName"));
        EXPECT_EQ(L"", TextOf(groups, L"TxtDesc"));
        SetBox(groups, L"txtName", L"Vận tải");
        SetBox(groups, L"TxtDesc", L"Đội xe");
        Write(groups);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"1"; }));
        EXPECT_EQ(L"", TextOf(groups, L"TxtDesc"));
        EXPECT_EQ(L"Vận tải-Đội xe", Items(groups).back());
        Write(groups);
        EXPECT_TRUE(WaitUntil([=] { return Items(groups).size() == 7; }));
        EXPECT_EQ(L"1-", Items(groups).back());
        PressKey('H', kAlt);
        EXPECT_TRUE(WaitUntil([=] { return IsEnabled(groups, L"Lv1"); }));
        EXPECT_EQ(L"T&hêm", TextOf(groups, L"CmdAdd"));
        EXPECT_EQ(L"Quản trị", TextOf(groups, L"txtName"));
    });
    const std::wstring n = Test().server ? L"N" : L"";
    EXPECT_EQ((Lines{L"Insert Into [Groups]([Name],[Des]) Values('Vận tải'," + n + L"'Đội xe ')",
                     L"Insert Into [Groups]([Name],[Des]) Values('1'," + n + L"' ')"}),
              trace.Writing());
    const Lines all = trace.All();
    const auto write = std::find_if(all.begin(), all.end(), [](const std::wstring& line) {
        return line.starts_with(L"Insert ");
    });
    ASSERT_GT(all.end() - write, 2);
    EXPECT_EQ(L"Select  [Code]  from [[Groups]] Order by [Code]", write[1]);
    EXPECT_EQ(L"Select  [Name]  from [Groups] Order by [Name]", write[2]);
    EXPECT_EQ(L"Vận tải", Test().Group(L"name", kFirstNewCode));
    EXPECT_EQ(L"Đội xe ", Test().Group(L"des", kFirstNewCode));
    EXPECT_EQ(L"1", Test().Group(L"name", kFirstNewCode + 1));
}

TEST_P(GroupManager, NewNameFollowsTheLargestNumber) {
    Test().database.Execute(L"update groups set name='0' || code");
    Play([](HWND groups) {
        PressKey('H', kAlt);
        WaitReady(groups, L"txtName");
        EXPECT_EQ(L"9", TextOf(groups, L"txtName"));
    });
}

TEST_P(GroupManager, WritingRenamesTheGroupInTheList) {
    const StatementTrace trace;
    Play([](HWND groups) {
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"Kế toán"; }));
        SetBox(groups, L"txtName", L"Tài vụ");
        SetBox(groups, L"TxtDesc", L"Phòng \"tài vụ\"");
        Write(groups);
        EXPECT_EQ(L"Tài vụ-Phòng \"tài vụ\"", Items(groups)[1]);
        EXPECT_TRUE(IsSelected(groups, 1));
        EXPECT_EQ(5u, Items(groups).size());
    });
    const std::wstring n = Test().server ? L"N" : L"";
    EXPECT_EQ(Lines{L"Update [Groups] Set [Des]=" + n +
                    L"'Phòng \"\"tài vụ\"\" ',[Name]='Tài vụ' Where [Code]=2"},
              trace.Writing());
    EXPECT_EQ(L"Tài vụ", Test().Group(L"name", 2));
    EXPECT_EQ(L"Phòng \"\"tài vụ\"\" ", Test().Group(L"des", 2));
}

TEST_P(GroupManager, ProtectedGroupsMayBeRenamed) {
    Play([](HWND groups) {
        SetBox(groups, L"txtName", L"Ban quản trị");
        Write(groups);
    });
    EXPECT_EQ(L"Ban quản trị", Test().Group(L"name", 1));
}

TEST_P(GroupManager, DeletingProtectedGroupsTakesThemOffTheListOnly) {
    const std::wstring before = Test().Groups();
    const StatementTrace trace;
    Play([](HWND groups) {
        SelectItems(groups, {0, 4});
        PressKey('X', kAlt);
        Answer(kConfirm, L"Delete");
        Answer(L"2 danh mục đã bị xoá", L"Delete");
        EXPECT_EQ(3u, Items(groups).size());
        WaitReady(groups, L"Lv1");
        EXPECT_EQ(L"Kế toán", TextOf(groups, L"txtName"));
    });
    EXPECT_EQ(Lines{L"Delete From [Groups] Where Code In (1,8) and (Code Not In (1,8))"},
              trace.Writing());
    EXPECT_EQ(before, Test().Groups());
    Play([](HWND groups) { EXPECT_EQ(5u, Items(groups).size()); });
}

TEST_P(GroupManager, DeletingAMixedSelectionKeepsTheProtectedOnes) {
    const StatementTrace trace;
    Play([](HWND groups) {
        SelectItems(groups, {0, 2, 3});
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        Answer(L"3 danh mục đã bị xoá", L"Delete");
        EXPECT_EQ((Lines{L"Kế toán-Phòng kế toán", L"Khách-Chỉ xem báo cáo"}), Items(groups));
    });
    EXPECT_EQ(Lines{L"Delete From [Groups] Where Code In (1,3,5) and (Code Not In (1,8))"},
              trace.Writing());
    EXPECT_EQ(L"3", Test().Read(L"select count(*) from groups"));
    EXPECT_EQ(L"Quản trị", Test().Group(L"name", 1));
    EXPECT_EQ(L"", Test().Group(L"name", 5));
}

TEST_P(GroupManager, NextGroupTakesThePlaceOfADeletedOne) {
    Play([](HWND groups) {
        SelectItems(groups, {3});
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        Answer(L"1 danh mục đã bị xoá", L"Delete");
        EXPECT_TRUE(IsSelected(groups, 3));
        EXPECT_EQ(L"Khách", TextOf(groups, L"txtName"));
        EXPECT_EQ(Lines{L"Khách"}, ListTexts(Control(groups, L"lvUser")));
    });
}

TEST_P(GroupManager, DeletingAllPreparesANewGroup) {
    Play([](HWND groups) {
        PressKey(VK_END, kShift);
        EXPECT_TRUE(WaitUntil([=] { return IsSelected(groups, 4); }));
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        Answer(L"5 danh mục đã bị xoá", L"Delete");
        EXPECT_TRUE(Items(groups).empty());
        EXPECT_EQ(L"1", TextOf(groups, L"txtName"));
        EXPECT_TRUE(ListTexts(Control(groups, L"lvUser")).empty());
    });
    EXPECT_EQ(L"2", Test().Read(L"select count(*) from groups"));
}

TEST_P(GroupManager, AnsweringNoDeletesNothing) {
    const std::wstring before = Test().Groups();
    Play([](HWND groups) {
        PressKey('X', kAlt);
        Answer(kConfirm, L"Delete", 'K');
        EXPECT_EQ(5u, Items(groups).size());
    });
    EXPECT_EQ(before, Test().Groups());
}

TEST_P(GroupManager, DeletingWithNothingSelectedTellsNoCount) {
    const StatementTrace trace;
    Play([&](HWND groups) {
        SendMessageW(Control(groups, L"Lv1"), LB_SETSEL, FALSE, -1);
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        WaitReady(groups, L"Lv1");
        Sleep(100);
        EXPECT_EQ(groups, TopWindows().front());
        EXPECT_EQ(5u, Items(groups).size());
    });
    EXPECT_TRUE(trace.Writing().empty());
}

TEST_P(GroupManager, EmptyTablePreparesANewGroup) {
    Test().database.Execute(L"delete from groups");
    Play([](HWND groups) {
        EXPECT_TRUE(Items(groups).empty());
        EXPECT_EQ(L"1", TextOf(groups, L"txtName"));
        EXPECT_EQ(L"", TextOf(groups, L"TxtDesc"));
        EXPECT_TRUE(IsEnabled(groups, L"CmdWrite"));
        SetBox(groups, L"txtName", L"Quản trị");
        Write(groups);
        EXPECT_EQ(Lines{L"Quản trị-"}, Items(groups));
        EXPECT_TRUE(IsSelected(groups, 0));
        // What is written next changes the same group.
        SetBox(groups, L"TxtDesc", L"Toàn quyền");
        Write(groups);
        EXPECT_EQ(Lines{L"Quản trị-Toàn quyền"}, Items(groups));
    });
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from groups"));
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from groups where name='Quản trị'"));
}

TEST_P(GroupManager, EmptyNameCannotBeWritten) {
    Play([](HWND groups) {
        SetBox(groups, L"txtName", L"");
        EXPECT_TRUE(WaitUntil([=] { return !IsEnabled(groups, L"CmdWrite"); }));
        SetBox(groups, L"txtName", L" ");
        EXPECT_TRUE(WaitUntil([=] { return IsEnabled(groups, L"CmdWrite"); }));
    });
}

class GroupManagerForm : public testing::Test {
protected:
    void Play(std::function<void(HWND)> script) const {
        test_.PlayGroups([&](HWND groups) {
            WaitReady(groups, L"Lv1");
            script(groups);
            PressKey(VK_ESCAPE);
        });
    }

    const AdministrationTest test_{false};
};

TEST_F(GroupManagerForm, LettersBehindAltDifferInBothModes) {
    Play([](HWND groups) {
        EXPECT_EQ(L"Nhóm người sử dụng", TextOf(groups));
        EXPECT_EQ(L"DGHNOQSTX", Sorted(Mnemonics(groups)));
        PressKey('T', kAlt);
        WaitReady(groups, L"txtName");
        PressKey('D', kAlt);
        WaitReady(groups, L"TxtDesc");
        PressKey('N', kAlt);
        WaitReady(groups, L"lvUser");
        PressKey('S', kAlt);
        WaitReady(groups, L"Lv1");
        PressKey('H', kAlt);
        WaitReady(groups, L"txtName");
        EXPECT_EQ(L"DGHNOQSTX", Sorted(Mnemonics(groups)));
    });
}

TEST_F(GroupManagerForm, EnterAndTabLeadFromControlToControl) {
    Play([](HWND groups) {
        const std::initializer_list<const wchar_t*> order = {L"CmdDelete", L"CmdPms",   L"txtName",
                                                             L"TxtDesc",   L"CmdWrite", L"CmdAdd",
                                                             L"lvUser",    L"CmdExit",  L"Lv1"};
        ExpectKeyWalks(groups, VK_RETURN, order);
        ExpectKeyWalks(groups, VK_TAB, order);
        PressKey(VK_TAB, kShift);
        WaitReady(groups, L"CmdExit");
    });
}

TEST_F(GroupManagerForm, EnterNeitherWritesNorDeletes) {
    const std::wstring before = test_.Groups();
    Play([](HWND groups) {
        for (int i = 0; i < 9; ++i)
            PressKey(VK_RETURN);
        EXPECT_TRUE(IsWindowVisible(groups));
    });
    EXPECT_EQ(before, test_.Groups());
}

TEST_F(GroupManagerForm, DeleteKeyIsForTheListAndWithoutShiftOnly) {
    Play([](HWND groups) {
        PressKey(VK_DELETE, kShift);
        PressKey(VK_DELETE, kControl);
        PressKey('T', kAlt);
        WaitReady(groups, L"txtName");
        PressKey(VK_HOME);
        PressKey(VK_DELETE);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"uản trị"; }));
        EXPECT_EQ(groups, TopWindows().front());
        EXPECT_EQ(5u, Items(groups).size());
    });
}

TEST_F(GroupManagerForm, WritingKeepsTheOtherItemsSelected) {
    Play([](HWND groups) {
        SelectItems(groups, {1, 3});
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"Kho"; }));
        SetBox(groups, L"TxtDesc", L"x");
        PressKey('G', kAlt);
        EXPECT_TRUE(WaitUntil([=] { return Items(groups)[3] == L"Kho-x"; }));
        EXPECT_TRUE(IsSelected(groups, 1));
        EXPECT_TRUE(IsSelected(groups, 3));
    });
}

TEST_F(GroupManagerForm, ListsGrowWithTheForm) {
    Play([](HWND groups) {
        const SIZE form = SizeOf(groups);
        const SIZE list = SizeOf(Control(groups, L"Lv1"));
        const SIZE users = SizeOf(Control(groups, L"lvUser"));
        SetWindowPos(groups, nullptr, 0, 0, form.cx + 120, form.cy + 80, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_NEAR(SizeOf(Control(groups, L"Lv1")).cy, list.cy + 80, 1);
        EXPECT_NEAR(SizeOf(Control(groups, L"lvUser")).cy, users.cy + 80, 1);
        EXPECT_NEAR(SizeOf(Control(groups, L"lvUser")).cx, users.cx + 120, 1);
    });
}

TEST_F(GroupManagerForm, SelectedItemOfALongListStaysVisible) {
    test_.database.Execute(L"with recursive n(g) as (select 100 union all select g + 1 from n "
                           L"where g < 160) insert into groups(code,name,des) select g, 'nhom' || "
                           L"g, '' from n");
    Play([](HWND groups) {
        const HWND list = Control(groups, L"Lv1");
        PressKey(VK_END);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"nhom160"; }));
        const LRESULT top = SendMessageW(list, LB_GETTOPINDEX, 0, 0);
        EXPECT_GT(top, 30);
        SetBox(groups, L"TxtDesc", L"x");
        PressKey('G', kAlt);
        EXPECT_TRUE(WaitUntil([=] { return Items(groups).back() == L"nhom160-x"; }));
        EXPECT_EQ(top, SendMessageW(list, LB_GETTOPINDEX, 0, 0));
    });
}

// How far a line of black letters reaches, from the first to the last pixel.
int InkWidth(HDC dc, int width, int height) {
    int first = width, last = -1;
    for (int x = 0; x < width; ++x)
        for (int y = 0; y < height; ++y)
            if (GetPixel(dc, x, y) == RGB(0, 0, 0)) {
                first = std::min(first, x);
                last = x;
            }
    return last - first + 1;
}

int InkWidthOf(const std::wstring& text, HFONT font) {
    constexpr int kWidth = 400, kHeight = 40;
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ oldBitmap = SelectObject(dc, bitmap), oldFont = SelectObject(dc, font);
    RECT box = {0, 0, kWidth, kHeight};
    FillRect(dc, &box, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    DrawTextW(dc, text.c_str(), -1, &box, DT_SINGLELINE);
    const int width = InkWidth(dc, kWidth, kHeight);
    SelectObject(dc, oldFont);
    SelectObject(dc, oldBitmap);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return width;
}

TEST_F(GroupManagerForm, CaptionsOfTheFramesAreWhole) {
    Play([](HWND groups) {
        for (const wchar_t* name : {L"FrDetail", L"Frame1"}) {
            const HWND frame = Control(groups, name);
            const auto font = reinterpret_cast<HFONT>(SendMessageW(frame, WM_GETFONT, 0, 0));
            LOGFONTW face = {};
            GetObjectW(font, sizeof face, &face);
            const int whole = InkWidthOf(TextOf(frame), font);
            const HDC dc = GetDC(frame);
            int shown = 0;
            EXPECT_TRUE(WaitUntil([&] {
                return (shown = InkWidth(dc, SizeOf(frame).cx, -face.lfHeight)) == whole;
            })) << shown
                << " of " << whole;
            ReleaseDC(frame, dc);
        }
        EXPECT_EQ(L"Danh &sách nhóm", TextOf(groups, L"FrDetail"));
    });
}

} // namespace
} // namespace vndesk::test
