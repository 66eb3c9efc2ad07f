// SPDX-License-Identifier: MIT
// Tables of a size that nobody expects: the forms open, show every row, and can be used. How long
// that takes is printed, not judged.
#include "reliability/bad_content.h"

namespace vndesk::test {
namespace {

class LargeTables : public BadContent {
protected:
    // Rows from code 1000 on, numbered by the engine.
    void Fill(const wchar_t* into, const wchar_t* values, int count) const {
        const std::wstring last = std::to_wstring(count);
        Change(Test().server
                   ? std::wstring(L"insert into ") + into + L" select " + values +
                         L" from generate_series(1," + last + L") as s(n)"
                   : std::wstring(L"with recursive s(n) as (select 1 union all select n+1 from s "
                                  L"where n<") +
                         last + L") insert into " + into + L" select " + values + L" from s");
    }

    void Print(const char* what, ULONGLONG since) const {
        std::printf("figures: %s, %s: %llu ms\n", what, GetParam(), GetTickCount64() - since);
    }
};

INSTANTIATE_ADMINISTRATION(LargeTables);

TEST_P(LargeTables, UserListHoldsManyUsers) {
    const int users = Full() ? 100000 : 10000;
    Fill(L"\"user\"(code,name,\"dec\",idgroup,password)", L"999+n,'Người '||n,'Số '||n,2,1401",
         users);
    const ULONGLONG start = GetTickCount64();
    PlayUsers([&](Walker& walker, HWND list) {
        Print(Full() ? "user list with 100,000 users" : "user list with 10,000 users", start);
        EXPECT_EQ(7 + users, RowCount(list, L"Lv"));
        SelectRow(list, L"Lv", 6 + users);
        const HWND editor = walker.Open(list, L"CmdEdit", L"FrmInput");
        EXPECT_EQ(L"Người " + std::to_wstring(users), TextOf(editor, L"TxtUser"));
        SetBox(editor, L"TxtDes", L"cuối");
        walker.Leave(editor, L"CmdOk");
        walker.Do(list, L"CmdDel");
        EXPECT_EQ(6 + users, RowCount(list, L"Lv"));
        walker.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(std::to_wstring(6 + users), Test().Read(L"select count(*) from \"user\""));
    const ULONGLONG groupsStart = GetTickCount64();
    PlayGroups([&](Walker& walker, HWND groups) {
        PostKey(groups, L"Lv1", VK_HOME);
        walker.Down(groups, L"Lv1", 1);
        Print("group manager on the group of them all", groupsStart);
        EXPECT_EQ(1 + users, ListCount(groups, L"lvUser"));
        walker.Leave(groups, L"CmdExit");
    });
}

TEST_P(LargeTables, FormsHoldManyGroups) {
    const int groupCount = Full() ? 5000 : 1000;
    Fill(L"groups(code,name,des,p1,p2,p3)", L"999+n,'Nhóm '||n,'Số '||n,1,2,3", groupCount);
    const ULONGLONG start = GetTickCount64();
    PlayGroups([&](Walker& walker, HWND groups) {
        Print(Full() ? "group manager with 5,000 groups" : "group manager with 1,000 groups",
              start);
        EXPECT_EQ(5 + groupCount, ListCount(groups, L"Lv1"));
        PostKey(groups, L"Lv1", VK_END);
        walker.Await(
            [&] { return TextOf(groups, L"txtName") == L"Nhóm " + std::to_wstring(groupCount); });
        walker.Leave(groups, L"CmdExit");
    });
    PlayUsers([&](Walker& walker, HWND list) {
        const ULONGLONG opened = GetTickCount64();
        const HWND editor = walker.Open(list, L"CmdAdd", L"FrmInput");
        Print("user editor with those groups", opened);
        EXPECT_EQ(5 + groupCount, SendMessageW(Control(editor, L"TxtIdGroup"), CB_GETCOUNT, 0, 0));
        walker.Leave(editor, L"CMDCAN");
        walker.Leave(list, L"CmdExit");
    });
}

// 64 bars with 31 commands each, as many as a mask holds.
TEST_P(LargeTables, PermissionFormHoldsManyBars) {
    constexpr int kBars = 64, kCommands = 31;
    for (int bar = 4; bar <= kBars; ++bar)
        Change(L"alter table groups add column p" + std::to_wstring(bar) + L" integer");
    Fill(L"menu(id,\"desc\")", L"999+n,'Thực đơn '||n", kBars - 3);
    Fill(L"submenu(id,idmenubar,\"desc\")",
         (L"9999+n,1000+(n-1)/" + std::to_wstring(kCommands) + L",'Lệnh '||n").c_str(),
         (kBars - 3) * kCommands);
    PlayGroups([&](Walker& walker, HWND groups) {
        const ULONGLONG start = GetTickCount64();
        const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
        Print("permission form with 64 bars", start);
        EXPECT_EQ(kBars, ListCount(rights, L"LstMenuBar"));
        PostKey(rights, L"LstMenuBar", VK_END);
        walker.Await([&] { return RowCount(rights, L"LstSubMenu") == kCommands; });
        LVITEMW item = {};
        item.stateMask = LVIS_STATEIMAGEMASK;
        item.state = INDEXTOSTATEIMAGEMASK(2);
        SendMessageW(Control(rights, L"LstSubMenu"), LVM_SETITEMSTATE, kCommands - 1,
                     reinterpret_cast<LPARAM>(&item));
        walker.Leave(rights, L"CmdOk");
        walker.Leave(groups, L"CmdExit");
        EXPECT_EQ(Lines(), walker.TakeTold());
    });
    EXPECT_EQ(L"1073741824", Test().Group(L"p64", 1));
    EXPECT_EQ(L"15", Test().Group(L"p1", 1));
    EXPECT_EQ(L"0", Test().Group(L"p63", 1));
}

} // namespace
} // namespace vndesk::test
