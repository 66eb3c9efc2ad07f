// SPDX-License-Identifier: MIT
// Bad texts in the tables of users, groups and menus: every form shows them, works on, and writes
// back what it has read.
#include "reliability/bad_content.h"

namespace vndesk::test {
namespace {

class BadContentTexts : public BadContent {
protected:
    // Users and groups from code 100 on, one for each text.
    static constexpr int kFirst = 100;

    void AddUsers() const {
        for (size_t i = 0; i < std::size(kBadTexts); ++i)
            Change(L"insert into \"user\"(code,name,\"dec\",idgroup,password) values(" + Code(i) +
                   L"," + Text(kBadTexts[i].text) + L"," + Text(kBadTexts[i].text) + L",2,1401)");
    }
    void AddGroups() const {
        for (size_t i = 0; i < std::size(kBadTexts); ++i)
            Change(L"insert into groups(code,name,des,p1,p2,p3) values(" + Code(i) + L"," +
                   Text(kBadTexts[i].text) + L"," + Text(kBadTexts[i].text) + L",1,2,3)");
    }
    static std::wstring Code(size_t i) { return std::to_wstring(kFirst + i); }
    std::wstring UserRow(size_t i) const {
        return Rows(L"(select * from \"user\" where code=" + Code(i) + L") t");
    }
};

INSTANTIATE_ADMINISTRATION(BadContentTexts);

TEST_P(BadContentTexts, UsersLogOnUnderEveryNameThatAStatementCanHold) {
    AddUsers();
    for (size_t i = 0; i < std::size(kBadTexts); ++i) {
        const BadText& bad = kBadTexts[i];
        SCOPED_TRACE(bad.name);
        Lines told;
        const long code = LogOn(bad.text, L"abc", &told);
        // Blanks around a name do not count, and nobody logs on without one.
        const bool nameless = bad.text.find_first_not_of(L' ') == std::wstring::npos;
        EXPECT_EQ(nameless || bad.endsLiteral ? 0 : kFirst + static_cast<long>(i), code);
        EXPECT_EQ(!bad.endsLiteral, told.empty());
    }
}

TEST_P(BadContentTexts, UserEditorWritesBackWhatItHasRead) {
    AddUsers();
    const std::wstring before = Rows(L"\"user\"");
    PlayUsers([&](Walker& walker, HWND list) {
        EXPECT_EQ(7 + static_cast<int>(std::size(kBadTexts)), RowCount(list, L"Lv"));
        for (size_t i = 0; i < std::size(kBadTexts); ++i) {
            const BadText& bad = kBadTexts[i];
            SCOPED_TRACE(bad.name);
            SelectRow(list, L"Lv", RowWith(list, L"Lv", 2, Code(i)));
            const HWND editor = walker.Open(list, L"CmdEdit", L"FrmInput");
            ASSERT_TRUE(editor);
            if (!bad.endsLiteral) {
                EXPECT_EQ(bad.text, TextOf(editor, L"TxtUser"));
                EXPECT_EQ(bad.text, TextOf(editor, L"TxtDes"));
                EXPECT_TRUE(walker.Closes(editor, L"CmdOk"));
                EXPECT_EQ(Lines(), walker.TakeTold());
            } else {
                // It could not be read: nothing is in the boxes, and nothing can be written.
                walker.Leave(editor, L"CMDCAN");
                EXPECT_FALSE(walker.TakeTold().empty());
            }
        }
        walker.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(before, Rows(L"\"user\""));
}

TEST_P(BadContentTexts, UserListDeletesTheUserThatItShows) {
    AddUsers();
    PlayUsers([&](Walker& walker, HWND list) {
        for (size_t i = 0; i < std::size(kBadTexts); ++i) {
            SCOPED_TRACE(kBadTexts[i].name);
            SelectRow(list, L"Lv", RowWith(list, L"Lv", 2, Code(i)));
            walker.Do(list, L"CmdDel");
            EXPECT_EQ(kBadTexts[i].endsLiteral ? 2u : 1u, walker.TakeTold().size());
            EXPECT_EQ(!kBadTexts[i].endsLiteral, UserRow(i).empty());
        }
        walker.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(L"8", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(BadContentTexts, GroupManagerAndPermissionsWriteBackWhatTheyHaveRead) {
    AddGroups();
    const std::wstring masks = Rows(L"(select code,p1,p2,p3 from groups) t");
    PlayGroups([&](Walker& walker, HWND groups) {
        PostKey(groups, L"Lv1", VK_HOME);
        for (int row = 1; row < ListCount(groups, L"Lv1"); ++row) {
            walker.Down(groups, L"Lv1", row);
            if (row < 5)
                continue;
            const BadText& bad = kBadTexts[row - 5];
            SCOPED_TRACE(bad.name);
            EXPECT_EQ(bad.text, TextOf(groups, L"txtName"));
            EXPECT_EQ(bad.text, TextOf(groups, L"TxtDesc"));
            const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
            ASSERT_TRUE(rights);
            EXPECT_EQ(L"1000", Ticks(rights, L"LstSubMenu"));
            walker.Leave(rights, L"CmdOk");
            EXPECT_EQ(Lines(), walker.TakeTold());
            // Without a name the button is disabled.
            if (bad.text.empty())
                continue;
            walker.Do(groups, L"CmdWrite");
            EXPECT_EQ(bad.endsLiteral ? 1u : 0u, walker.TakeTold().size());
            EXPECT_EQ(bad.text, Test().Group(L"name", kFirst + row - 5));
        }
        walker.Leave(groups, L"CmdExit");
    });
    EXPECT_EQ(masks, Rows(L"(select code,p1,p2,p3 from groups) t"));
}

TEST_P(BadContentTexts, PermissionFormShowsBarsAndCommandsOfAnyText) {
    for (size_t i = 0; i < std::size(kBadTexts); ++i) {
        Change(L"update submenu set \"desc\"=" + Text(kBadTexts[i].text) + L" where id=" +
               std::to_wstring(i + 1));
        if (i < 3)
            Change(L"update menu set \"desc\"=" +
                   Text(kBadTexts[std::size(kBadTexts) - 1 - i].text) + L" where id=" +
                   std::to_wstring(i + 1));
    }
    const std::wstring before = Rows(L"groups");
    PlayGroups([&](Walker& walker, HWND groups) {
        const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
        ASSERT_TRUE(rights);
        EXPECT_EQ(kBadTexts[10].text, ListTexts(Control(rights, L"LstMenuBar"))[0]);
        EXPECT_EQ(4, RowCount(rights, L"LstSubMenu"));
        PostKey(rights, L"LstMenuBar", VK_HOME);
        walker.Down(rights, L"LstMenuBar", 1);
        EXPECT_EQ(6, RowCount(rights, L"LstSubMenu"));
        walker.Down(rights, L"LstMenuBar", 2);
        EXPECT_EQ(5, RowCount(rights, L"LstSubMenu"));
        walker.Leave(rights, L"CmdOk");
        walker.Leave(groups, L"CmdExit");
        EXPECT_EQ(Lines(), walker.TakeTold());
    });
    EXPECT_EQ(before, Rows(L"groups"));
}

} // namespace
} // namespace vndesk::test
