// SPDX-License-Identifier: MIT
// Two host programs edit users and groups in one database at the same time.
#include "support/forms/host_process.h"

namespace vndesk::test {
namespace {

// Calls one operation of clsLogon and ends when that returns.
class Host {
public:
    Host(const char* operation, const AdministrationTest& test)
        : process_(L"vnscript.exe", {Script(operation), test.database.ConnectionString()}) {}

    HWND Form(const wchar_t* name) const { return process_.Form(name, kProcessStart); }

    // Opens a form by a button of another one.
    HWND Open(HWND form, const wchar_t* button, const wchar_t* opens) const {
        Press(form, button);
        return process_.Form(opens);
    }

    // Leaves; the call must have succeeded.
    void End(HWND form) {
        Press(form, L"CmdExit");
        EXPECT_EQ(0u, process_.ExitCode());
    }

private:
    std::wstring Script(const char* operation) const {
        std::wstring path = folder_.File(L"host.vbs");
        FILE* file = _wfopen(path.c_str(), L"wb");
        if (!file)
            Fail(L"cannot write " + path);
        fprintf(file, "CreateObject(\"VnDesk.clsLogon\").%s WScript.Arguments(0)\n", operation);
        fclose(file);
        return path;
    }

    TempDir folder_;
    HostProcess process_;
};

// A user as an administrator enters one.
void Fill(HWND editor, const std::wstring& name) {
    SetBox(editor, L"TxtUser", name.c_str());
    SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 0, 0);
    SetBox(editor, L"TxtPass", L"abc");
    SetBox(editor, L"txtConfirm", L"abc");
}

class TwoHosts : public Administration {
protected:
    // Both forms are there.
    struct Pair {
        Pair(const char* operation, const wchar_t* form, const AdministrationTest& test)
            : first(operation, test), second(operation, test), formOfFirst(first.Form(form)),
              formOfSecond(second.Form(form)) {}

        Host first, second;
        HWND formOfFirst, formOfSecond;
    };

    Pair UserLists() const { return {"UserManager", L"FrmMenu", Test()}; }
    Pair GroupManagers() const { return {"ShowGroup", L"FmGrp", Test()}; }
};

INSTANTIATE_ADMINISTRATION(TwoHosts);

TEST_P(TwoHosts, UsersAddedAtTheSameMomentAreAllKept) {
    constexpr int kRounds = 5;
    const std::wstring before = Test().Users();
    auto [first, second, list1, list2] = UserLists();
    for (int i = 0; i < kRounds; ++i) {
        const HWND editor1 = first.Open(list1, L"CmdAdd", L"FrmInput");
        const HWND editor2 = second.Open(list2, L"CmdAdd", L"FrmInput");
        Fill(editor1, L"mot" + std::to_wstring(i));
        Fill(editor2, L"hai" + std::to_wstring(i));
        Press(editor1, L"CmdOk");
        Press(editor2, L"CmdOk");
        WaitClosed(editor1);
        WaitClosed(editor2);
    }
    first.End(list1);
    second.End(list2);
    EXPECT_TRUE(Test().Users().starts_with(before));
    EXPECT_EQ(std::to_wstring(7 + 2 * kRounds), Test().Read(L"select count(*) from \"user\""));
    EXPECT_EQ(std::to_wstring(2 * kRounds),
              Test().Read(L"select count(distinct name) from \"user\" where name like 'mot%' or "
                          L"name like 'hai%'"));
}

TEST_P(TwoHosts, UserAddedByTheOtherAppearsWithTheOwnOne) {
    auto [first, second, list1, list2] = UserLists();
    const HWND editor1 = first.Open(list1, L"CmdAdd", L"FrmInput");
    const HWND editor2 = second.Open(list2, L"CmdAdd", L"FrmInput");
    Fill(editor1, L"mot");
    Press(editor1, L"CmdOk");
    WaitClosed(editor1);
    EXPECT_TRUE(WaitUntil([&] { return RowCount(list1, L"Lv") == 8; }, kProcessLimit));
    Fill(editor2, L"hai");
    Press(editor2, L"CmdOk");
    WaitClosed(editor2);
    EXPECT_TRUE(WaitUntil([&] { return RowCount(list2, L"Lv") == 9; }, kProcessLimit));
    first.End(list1);
    second.End(list2);
}

TEST_P(TwoHosts, NameTakenMeanwhileIsRefused) {
    auto [first, second, list1, list2] = UserLists();
    const HWND editor1 = first.Open(list1, L"CmdAdd", L"FrmInput");
    const HWND editor2 = second.Open(list2, L"CmdAdd", L"FrmInput");
    Fill(editor1, L"Lan");
    Fill(editor2, L"Lan");
    Press(editor1, L"CmdOk");
    WaitClosed(editor1);
    const HWND box = second.Open(editor2, L"CmdOk", L"MessageBox");
    EXPECT_EQ(L"Người sử dụng đã tồn tại", TextOf(box, L"Message"));
    Press(box, L"Cmd1");
    WaitClosed(box);
    Press(editor2, L"CMDCAN");
    WaitClosed(editor2);
    first.End(list1);
    second.End(list2);
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where name='Lan'"));
}

// An edit addresses its user by the name it was opened with.
TEST_P(TwoHosts, RenamedMeanwhileTheUserStaysAsTheFirstHostWroteIt) {
    auto [first, second, list1, list2] = UserLists();
    const HWND editor1 = first.Open(list1, L"CmdEdit", L"FrmInput");
    const HWND editor2 = second.Open(list2, L"CmdEdit", L"FrmInput");
    SetBox(editor1, L"TxtUser", L"Hưng");
    SetBox(editor2, L"TxtDes", L"khac");
    Press(editor1, L"CmdOk");
    WaitClosed(editor1);
    Press(editor2, L"CmdOk");
    WaitClosed(editor2);
    first.End(list1);
    second.End(list2);
    EXPECT_EQ(L"Hưng", Test().User(L"name", 1));
    EXPECT_EQ(L"Kế toán trưởng", Test().User(L"\"dec\"", 1));
    EXPECT_EQ(Test().server ? L"1133116" : L"1133116.0", Test().User(L"password", 1));
    EXPECT_EQ(L"7", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(TwoHosts, RightsOfTwoGroupsGivenAtTheSameMomentAreBothKept) {
    auto [first, second, groups1, groups2] = GroupManagers();
    SelectGroup(groups1, 1, L"Kế toán");
    SelectGroup(groups2, 2, L"Bán hàng");
    const HWND rights1 = first.Open(groups1, L"CmdPms", L"FrPms");
    const HWND rights2 = second.Open(groups2, L"CmdPms", L"FrPms");
    ToggleRight(rights1, 0, 1, L"1110");
    ToggleRight(rights2, 2, 4, L"10101");
    Press(rights1, L"CmdOk");
    Press(rights2, L"CmdOk");
    WaitClosed(rights1);
    WaitClosed(rights2);
    first.End(groups1);
    second.End(groups2);
    EXPECT_EQ(L"1|Quản trị|Toàn quyền trên chương trình|15|63|31|\n"
              L"2|Kế toán|Phòng kế toán|7|48|31|\n"
              L"3|Bán hàng|Phòng kinh doanh|1|3|21|\n"
              L"5|Kho|Bộ phận kho|7|0|1|\n"
              L"8|Khách|Chỉ xem báo cáo|0|0|1|\n",
              Test().Groups());
}

// All masks of a group are written at once, those of untouched bars too.
TEST_P(TwoHosts, LastWriterOfOneGroupsRightsWinsForEveryBar) {
    auto [first, second, groups1, groups2] = GroupManagers();
    SelectGroup(groups1, 1, L"Kế toán");
    SelectGroup(groups2, 1, L"Kế toán");
    const HWND rights1 = first.Open(groups1, L"CmdPms", L"FrPms");
    const HWND rights2 = second.Open(groups2, L"CmdPms", L"FrPms");
    ToggleRight(rights1, 0, 1, L"1110");
    ToggleRight(rights2, 1, 0, L"100011");
    Press(rights1, L"CmdOk");
    WaitClosed(rights1);
    EXPECT_EQ(L"7", Test().Group(L"p1", 2));
    Press(rights2, L"CmdOk");
    WaitClosed(rights2);
    first.End(groups1);
    second.End(groups2);
    EXPECT_EQ(L"5", Test().Group(L"p1", 2));
    EXPECT_EQ(L"49", Test().Group(L"p2", 2));
    EXPECT_EQ(L"31", Test().Group(L"p3", 2));
}

TEST_P(TwoHosts, GroupRenamedByOneAndGivenRightsByTheOtherHasBoth) {
    auto [first, second, groups1, groups2] = GroupManagers();
    SelectGroup(groups1, 1, L"Kế toán");
    SelectGroup(groups2, 1, L"Kế toán");
    const HWND rights2 = second.Open(groups2, L"CmdPms", L"FrPms");
    ToggleRight(rights2, 0, 1, L"1110");
    SetBox(groups1, L"txtName", L"Tài vụ");
    Press(groups1, L"CmdWrite");
    Press(rights2, L"CmdOk");
    WaitClosed(rights2);
    first.End(groups1);
    second.End(groups2);
    EXPECT_EQ(L"Tài vụ", Test().Group(L"name", 2));
    EXPECT_EQ(L"7", Test().Group(L"p1", 2));
}

TEST_P(TwoHosts, GroupsAddedAtTheSameMomentAreAllKept) {
    const std::wstring before = Test().Groups();
    auto [first, second, groups1, groups2] = GroupManagers();
    for (const HWND groups : {groups1, groups2}) {
        Press(groups, L"CmdAdd");
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"1"; }, kProcessLimit));
    }
    for (int i = 0; i < 5; ++i) {
        const size_t known1 = ListTexts(Control(groups1, L"Lv1")).size();
        const size_t known2 = ListTexts(Control(groups2, L"Lv1")).size();
        SetBox(groups1, L"txtName", (L"mot" + std::to_wstring(i)).c_str());
        SetBox(groups2, L"txtName", (L"hai" + std::to_wstring(i)).c_str());
        Press(groups1, L"CmdWrite");
        Press(groups2, L"CmdWrite");
        EXPECT_TRUE(WaitUntil(
            [&] {
                return ListTexts(Control(groups1, L"Lv1")).size() == known1 + 1 &&
                       ListTexts(Control(groups2, L"Lv1")).size() == known2 + 1;
            },
            kProcessLimit));
    }
    first.End(groups1);
    second.End(groups2);
    EXPECT_TRUE(Test().Groups().starts_with(before));
    EXPECT_EQ(L"10",
              Test().Read(L"select count(distinct name) from groups where name like 'mot%' or "
                          L"name like 'hai%'"));
}

} // namespace
} // namespace vndesk::test
