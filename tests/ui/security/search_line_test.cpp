// SPDX-License-Identifier: MIT
// The lists of users and groups that shrink to what is typed into the line above them.
#include "support/forms/administration.h"
#include "support/screenshot.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kNone[] = L"Không có mục nào phù hợp";
constexpr wchar_t kConfirmUser[] = L"Bạn chắc chắn xoá người sử dụng này";
constexpr wchar_t kConfirmGroups[] = L"Bạn có chắc chắn xoá các nhóm đã chọn không?";

class SearchLine : public Administration {
protected:
    void SetUp() override {
        Administration::SetUp();
        if (!IsSkipped())
            test_->settings = kFindNames;
    }
    void Leave() const { PressKey(VK_ESCAPE); }
};

INSTANTIATE_ADMINISTRATION(SearchLine);

Lines Users(HWND list) {
    Lines names;
    for (int row = 0; row < RowCount(list, L"Lv"); ++row)
        names.push_back(CellText(Control(list, L"Lv"), row, 0));
    return names;
}

Lines Groups(HWND groups) {
    return ListTexts(Control(groups, L"Lv1"));
}

void Find(HWND form, const wchar_t* typed) {
    SetBox(form, L"TxtFind", typed);
}

void ExpectNone(HWND form, const wchar_t* list) {
    EXPECT_TRUE(IsShown(form, L"lblNone"));
    EXPECT_EQ(kNone, TextOf(form, L"lblNone"));
    EXPECT_FALSE(IsShown(form, list));
}

TEST_P(SearchLine, UsersAreFoundByNameAndDescriptionBestFirst) {
    const StatementTrace trace;
    Test().PlayUsers([&](HWND list) {
        WaitReady(list, L"TxtFind");
        const Lines all = Users(list);
        EXPECT_EQ(7u, all.size());
        EXPECT_EQ(0, SelectedRow(list, L"Lv"));
        TypeText(L"nguyen");
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") < 7; }));
        ASSERT_LT(0, RowCount(list, L"Lv"));
        EXPECT_EQ(L"Nguyễn Văn Hưng", Users(list)[0]);
        EXPECT_EQ(0, SelectedRow(list, L"Lv"));
        Find(list, L"ke toan");
        EXPECT_EQ(L"Kế toán trưởng", CellText(Control(list, L"Lv"), 0, 1));
        Find(list, L"không có ai");
        EXPECT_EQ(Lines{}, Users(list));
        ExpectNone(list, L"Lv");
        EXPECT_EQ(-1, SelectedRow(list, L"Lv"));
        Find(list, L"");
        EXPECT_EQ(all, Users(list));
        EXPECT_TRUE(IsShown(list, L"Lv"));
        EXPECT_FALSE(IsShown(list, L"lblNone"));
        // The keys of the list work from the line.
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 1; }));
        EXPECT_EQ(L"TxtFind", FocusName(list));
        // And the list itself goes to what is typed into it.
        PressKey(VK_TAB);
        WaitReady(list, L"Lv");
        TypeText(L"nguyen");
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 0; }));
        Leave();
    });
    EXPECT_EQ(Lines{L"Select Code,Name,Dec from [user] Order by Code"}, trace.All());
}

TEST_P(SearchLine, UserThatIsSelectedIsEditedAndDeleted) {
    Test().PlayUsers([&](HWND list) {
        WaitReady(list, L"TxtFind");
        Find(list, L"nguyen");
        const int found = RowCount(list, L"Lv");
        PressKey('S', kAlt);
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        EXPECT_EQ(L"Nguyễn Văn Hưng", TextOf(editor, L"TxtUser"));
        SetBox(editor, L"TxtUser", L"Nguyên Hà");
        PressKey('G', kAlt);
        WaitForClose(editor);
        EXPECT_TRUE(WaitUntil([&] { return Users(list)[0] == L"Nguyên Hà"; }));
        EXPECT_EQ(found, RowCount(list, L"Lv"));
        EXPECT_EQ(0, SelectedRow(list, L"Lv"));
        WaitReady(list, L"Lv");
        PressKey('X', kAlt);
        Answer(kConfirmUser, L"Thông báo");
        // The rest, or all where nobody is left of those who were looked for.
        EXPECT_TRUE(
            WaitUntil([&] { return RowCount(list, L"Lv") == (found > 1 ? found - 1 : 6); }));
        WaitReady(list, L"Lv");
        Leave();
    });
    EXPECT_EQ(L"0", Test().Read(L"select count(*) from \"user\" where code=1"));
    EXPECT_EQ(L"6", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(SearchLine, UserWhoIsAddedIsShown) {
    Test().PlayUsers([&](HWND list) {
        WaitReady(list, L"TxtFind");
        Find(list, L"nguyen");
        PressKey('H', kAlt);
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        SetBox(editor, L"TxtUser", L"moi");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 0, 0);
        SetBox(editor, L"TxtPass", L"abc");
        SetBox(editor, L"txtConfirm", L"abc");
        PressKey('G', kAlt);
        WaitForClose(editor);
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 8; }));
        EXPECT_EQ(L"", TextOf(list, L"TxtFind"));
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list, L"Lv") == 7; }));
        WaitReady(list, L"Lv");
        Leave();
    });
}

TEST_P(SearchLine, GroupsAreFoundAndTheFirstIsShown) {
    Test().PlayGroups([&](HWND groups) {
        WaitReady(groups, L"TxtFind");
        const Lines all = Groups(groups);
        EXPECT_EQ(5u, all.size());
        TypeText(L"kho");
        EXPECT_TRUE(WaitUntil([&] { return TextOf(groups, L"txtName") == L"Kho"; }));
        EXPECT_EQ(Lines{L"Kho-Bộ phận kho"}, Groups(groups));
        Find(groups, L"ke toan");
        EXPECT_EQ(Lines{L"Kế toán-Phòng kế toán"}, Groups(groups));
        EXPECT_EQ(L"Kế toán", TextOf(groups, L"txtName"));
        Find(groups, L"xyz");
        ExpectNone(groups, L"Lv1");
        EXPECT_EQ(L"Kế toán", TextOf(groups, L"txtName")) << "the details stay";
        // What is written now is written to the group that is shown.
        SetBox(groups, L"TxtDesc", L"Tài vụ");
        PressKey('G', kAlt);
        WaitReady(groups, L"txtName");
        Find(groups, L"tai vu");
        EXPECT_EQ(Lines{L"Kế toán-Tài vụ"}, Groups(groups));
        Find(groups, L"");
        EXPECT_EQ(all.size(), Groups(groups).size());
        EXPECT_EQ(L"Kế toán-Tài vụ", Groups(groups)[1]);
        EXPECT_EQ(L"Kế toán", TextOf(groups, L"txtName"));
        Leave();
    });
    EXPECT_EQ(L"5", Test().Read(L"select count(*) from groups"));
}

TEST_P(SearchLine, GroupThatIsFoundIsDeletedAndTheOthersComeBack) {
    Test().PlayGroups([&](HWND groups) {
        WaitReady(groups, L"TxtFind");
        Find(groups, L"bo phan");
        EXPECT_EQ(Lines{L"Kho-Bộ phận kho"}, Groups(groups));
        PressKey('X', kAlt);
        Answer(kConfirmGroups, L"Delete");
        Answer(L"1 danh mục đã bị xoá", L"Delete");
        EXPECT_EQ(L"", TextOf(groups, L"TxtFind"));
        EXPECT_EQ((Lines{L"Quản trị-Toàn quyền trên chương trình", L"Kế toán-Phòng kế toán",
                         L"Bán hàng-Phòng kinh doanh", L"Khách-Chỉ xem báo cáo"}),
                  Groups(groups));
        WaitReady(groups, L"Lv1");
        // A group that is added while others are looked for stands behind them.
        Find(groups, L"khach");
        PressKey('H', kAlt);
        WaitReady(groups, L"txtName");
        EXPECT_FALSE(IsEnabled(groups, L"TxtFind"));
        SetBox(groups, L"txtName", L"Mới");
        PressKey('G', kAlt);
        EXPECT_TRUE(WaitUntil([&] { return Groups(groups).size() == 2; }));
        EXPECT_EQ(L"Mới-", Groups(groups)[1].substr(0, 4));
        Leave();
    });
    EXPECT_EQ(L"0", Test().Read(L"select count(*) from groups where code=4"));
}

class SearchLinePictures : public testing::Test {
protected:
    static void Picture(HWND form, const wchar_t* name) {
        Sleep(300); // everything is painted
        EXPECT_NE(L"", SaveWindow(form, name));
    }
};

TEST_F(SearchLinePictures, UsersAndGroups) {
    AdministrationTest test(false);
    test.settings = kFindNames;
    test.PlayUsers([](HWND list) {
        WaitReady(list, L"TxtFind");
        TypeText(L"ke toan");
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") < 7; }));
        Picture(list, L"user-list-found");
        TypeText(L"x");
        EXPECT_TRUE(WaitUntil([&] { return IsShown(list, L"lblNone"); }));
        Picture(list, L"user-list-none");
        PressKey(VK_ESCAPE);
    });
    test.PlayGroups([](HWND groups) {
        WaitReady(groups, L"TxtFind");
        TypeText(L"phong");
        EXPECT_TRUE(WaitUntil([&] { return Groups(groups).size() < 5; }));
        Picture(groups, L"group-manager-found");
        PressKey(VK_ESCAPE);
    });
}

} // namespace
} // namespace vndesk::test
