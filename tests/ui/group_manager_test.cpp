// SPDX-License-Identifier: MIT
// The group manager as administrators see it.
#include "ui/administration.h"

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
        EXPECT_EQ(Items(groups), (Lines{L"Quản trị-Toàn quyền trên chương trình",
                                        L"Kế toán-Phòng kế toán", L"Bán hàng-Phòng kinh doanh",
                                        L"Kho-Bộ phận kho", L"Khách-Chỉ xem báo cáo"}));
        EXPECT_TRUE(IsSelected(groups, 0));
        EXPECT_EQ(TextOf(groups, L"txtName"), L"Quản trị");
        EXPECT_EQ(TextOf(groups, L"TxtDesc"), L"Toàn quyền trên chương trình");
        EXPECT_EQ(ListTexts(Control(groups, L"lvUser")), Lines{L"Admin"});
        EXPECT_EQ(trace.All(), (Lines{L"[Groups]", L"Select * From [Groups] Where Code=1",
                                      L"SELECT * FROM [USER] WHERE IdGroup=1"}));
    });
}

TEST_P(GroupManager, ArrowsShowTheNextGroup) {
    Play([](HWND groups) {
        WaitReady(groups, L"Lv1");
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"Kế toán"; }));
        EXPECT_EQ(ListTexts(Control(groups, L"lvUser")).size(), 2u);
    });
}

TEST_P(GroupManager, AddingEntersSeveralGroupsOneAfterAnother) {
    const StatementTrace trace;
    Play([&](HWND groups) {
        EXPECT_EQ(TextOf(groups, L"CmdAdd"), L"T&hêm");
        PressKey('H', kAlt);
        WaitReady(groups, L"txtName");
        EXPECT_EQ(TextOf(groups, L"CmdAdd"), L"&Huỷ thêm");
        EXPECT_FALSE(IsEnabled(groups, L"FrDetail"));
        EXPECT_FALSE(IsEnabled(groups, L"Lv1"));
        // No name of the sample reads as a number.
        EXPECT_EQ(TextOf(groups, L"txtName"), L"1");
        EXPECT_EQ(TextOf(groups, L"TxtDesc"), L"");
        SetBox(groups, L"txtName", L"Vận tải");
        SetBox(groups, L"TxtDesc", L"Đội xe");
        Write(groups);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"1"; }));
        EXPECT_EQ(TextOf(groups, L"TxtDesc"), L"");
        EXPECT_EQ(Items(groups).back(), L"Vận tải-Đội xe");
        Write(groups);
        EXPECT_TRUE(WaitUntil([=] { return Items(groups).size() == 7; }));
        EXPECT_EQ(Items(groups).back(), L"1-");
        PressKey('H', kAlt);
        EXPECT_TRUE(WaitUntil([=] { return IsEnabled(groups, L"Lv1"); }));
        EXPECT_EQ(TextOf(groups, L"CmdAdd"), L"T&hêm");
        EXPECT_EQ(TextOf(groups, L"txtName"), L"Quản trị");
    });
    const std::wstring n = Test().server ? L"N" : L"";
    EXPECT_EQ(trace.Writing(),
              (Lines{L"Insert Into [Groups]([Name],[Des]) Values('Vận tải'," + n + L"'Đội xe ')",
                     L"Insert Into [Groups]([Name],[Des]) Values('1'," + n + L"' ')"}));
    const Lines all = trace.All();
    const auto write = std::find_if(all.begin(), all.end(), [](const std::wstring& line) {
        return line.starts_with(L"Insert ");
    });
    ASSERT_GT(all.end() - write, 2);
    EXPECT_EQ(write[1], L"Select  [Code]  from [[Groups]] Order by [Code]");
    EXPECT_EQ(write[2], L"Select  [Name]  from [Groups] Order by [Name]");
    EXPECT_EQ(Test().Group(L"name", kFirstNewCode), L"Vận tải");
    EXPECT_EQ(Test().Group(L"des", kFirstNewCode), L"Đội xe ");
    EXPECT_EQ(Test().Group(L"name", kFirstNewCode + 1), L"1");
}

TEST_P(GroupManager, NewNameFollowsTheLargestNumber) {
    Test().database.Execute(L"update groups set name='0' || code");
    Play([](HWND groups) {
        PressKey('H', kAlt);
        WaitReady(groups, L"txtName");
        EXPECT_EQ(TextOf(groups, L"txtName"), L"9");
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
        EXPECT_EQ(Items(groups)[1], L"Tài vụ-Phòng \"tài vụ\"");
        EXPECT_TRUE(IsSelected(groups, 1));
        EXPECT_EQ(Items(groups).size(), 5u);
    });
    const std::wstring n = Test().server ? L"N" : L"";
    EXPECT_EQ(trace.Writing(), Lines{L"Update [Groups] Set [Des]=" + n +
                                     L"'Phòng \"\"tài vụ\"\" ',[Name]='Tài vụ' Where [Code]=2"});
    EXPECT_EQ(Test().Group(L"name", 2), L"Tài vụ");
    EXPECT_EQ(Test().Group(L"des", 2), L"Phòng \"\"tài vụ\"\" ");
}

TEST_P(GroupManager, ProtectedGroupsMayBeRenamed) {
    Play([](HWND groups) {
        SetBox(groups, L"txtName", L"Ban quản trị");
        Write(groups);
    });
    EXPECT_EQ(Test().Group(L"name", 1), L"Ban quản trị");
}

TEST_P(GroupManager, DeletingProtectedGroupsTakesThemOffTheListOnly) {
    const std::wstring before = Test().Groups();
    const StatementTrace trace;
    Play([](HWND groups) {
        SelectItems(groups, {0, 4});
        PressKey('X', kAlt);
        Answer(kConfirm, L"Delete");
        Answer(L"2 danh mục đã bị xoá", L"Delete");
        EXPECT_EQ(Items(groups).size(), 3u);
        WaitReady(groups, L"Lv1");
        EXPECT_EQ(TextOf(groups, L"txtName"), L"Kế toán");
    });
    EXPECT_EQ(trace.Writing(),
              Lines{L"Delete From [Groups] Where Code In (1,8) and (Code Not In (1,8))"});
    EXPECT_EQ(Test().Groups(), before);
    Play([](HWND groups) { EXPECT_EQ(Items(groups).size(), 5u); });
}

TEST_P(GroupManager, DeletingAMixedSelectionKeepsTheProtectedOnes) {
    const StatementTrace trace;
    Play([](HWND groups) {
        SelectItems(groups, {0, 2, 3});
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        Answer(L"3 danh mục đã bị xoá", L"Delete");
        EXPECT_EQ(Items(groups), (Lines{L"Kế toán-Phòng kế toán", L"Khách-Chỉ xem báo cáo"}));
    });
    EXPECT_EQ(trace.Writing(),
              Lines{L"Delete From [Groups] Where Code In (1,3,5) and (Code Not In (1,8))"});
    EXPECT_EQ(Test().Read(L"select count(*) from groups"), L"3");
    EXPECT_EQ(Test().Group(L"name", 1), L"Quản trị");
    EXPECT_EQ(Test().Group(L"name", 5), L"");
}

TEST_P(GroupManager, NextGroupTakesThePlaceOfADeletedOne) {
    Play([](HWND groups) {
        SelectItems(groups, {3});
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        Answer(L"1 danh mục đã bị xoá", L"Delete");
        EXPECT_TRUE(IsSelected(groups, 3));
        EXPECT_EQ(TextOf(groups, L"txtName"), L"Khách");
        EXPECT_EQ(ListTexts(Control(groups, L"lvUser")), Lines{L"Khách"});
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
        EXPECT_EQ(TextOf(groups, L"txtName"), L"1");
        EXPECT_TRUE(ListTexts(Control(groups, L"lvUser")).empty());
    });
    EXPECT_EQ(Test().Read(L"select count(*) from groups"), L"2");
}

TEST_P(GroupManager, AnsweringNoDeletesNothing) {
    const std::wstring before = Test().Groups();
    Play([](HWND groups) {
        PressKey('X', kAlt);
        Answer(kConfirm, L"Delete", 'K');
        EXPECT_EQ(Items(groups).size(), 5u);
    });
    EXPECT_EQ(Test().Groups(), before);
}

TEST_P(GroupManager, DeletingWithNothingSelectedTellsNoCount) {
    const StatementTrace trace;
    Play([&](HWND groups) {
        SendMessageW(Control(groups, L"Lv1"), LB_SETSEL, FALSE, -1);
        PressKey(VK_DELETE);
        Answer(kConfirm, L"Delete");
        WaitReady(groups, L"Lv1");
        Sleep(100);
        EXPECT_EQ(TopWindows().front(), groups);
        EXPECT_EQ(Items(groups).size(), 5u);
    });
    EXPECT_TRUE(trace.Writing().empty());
}

TEST_P(GroupManager, EmptyTablePreparesANewGroup) {
    Test().database.Execute(L"delete from groups");
    Play([](HWND groups) {
        EXPECT_TRUE(Items(groups).empty());
        EXPECT_EQ(TextOf(groups, L"txtName"), L"1");
        EXPECT_EQ(TextOf(groups, L"TxtDesc"), L"");
        EXPECT_TRUE(IsEnabled(groups, L"CmdWrite"));
        SetBox(groups, L"txtName", L"Quản trị");
        Write(groups);
        EXPECT_EQ(Items(groups), Lines{L"Quản trị-"});
        EXPECT_TRUE(IsSelected(groups, 0));
        // What is written next changes the same group.
        SetBox(groups, L"TxtDesc", L"Toàn quyền");
        Write(groups);
        EXPECT_EQ(Items(groups), Lines{L"Quản trị-Toàn quyền"});
    });
    EXPECT_EQ(Test().Read(L"select count(*) from groups"), L"1");
    EXPECT_EQ(Test().Read(L"select count(*) from groups where name='Quản trị'"), L"1");
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
        EXPECT_EQ(TextOf(groups), L"Nhóm người sử dụng");
        EXPECT_EQ(Sorted(Mnemonics(groups)), L"DGHNOQSTX");
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
        EXPECT_EQ(Sorted(Mnemonics(groups)), L"DGHNOQSTX");
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
    EXPECT_EQ(test_.Groups(), before);
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
        EXPECT_EQ(TopWindows().front(), groups);
        EXPECT_EQ(Items(groups).size(), 5u);
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
        EXPECT_EQ(SendMessageW(list, LB_GETTOPINDEX, 0, 0), top);
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
        EXPECT_EQ(TextOf(groups, L"FrDetail"), L"Danh &sách nhóm");
    });
}

} // namespace
} // namespace vndesk::test
