// SPDX-License-Identifier: MIT
// Rows that the tables should not have: nulls, values of another type, names given twice. Every
// form opens, works on, and leaves the rows as they were.
#include "reliability/bad_content.h"

namespace vndesk::test {
namespace {

class BadContentRows : public BadContent {
protected:
    // Opens every form that reads the tables, looks at all rows and writes nothing.
    void LookAtEverything() const {
        LogOn(L"Admin", L"abc");
        PlayUsers([&](Walker& walker, HWND list) {
            EXPECT_EQ(Count(L"\"user\""), RowCount(list, L"Lv"));
            for (int row = 0; row < RowCount(list, L"Lv"); ++row) {
                SelectRow(list, L"Lv", row);
                if (const HWND editor = walker.Open(list, L"CmdEdit", L"FrmInput"))
                    walker.Leave(editor, L"CMDCAN");
            }
            walker.Leave(list, L"CmdExit");
        });
        PlayGroups([&](Walker& walker, HWND groups) {
            EXPECT_EQ(Count(L"groups"), ListCount(groups, L"Lv1"));
            PostKey(groups, L"Lv1", VK_HOME);
            for (int row = 0; row == 0 || row < ListCount(groups, L"Lv1"); ++row) {
                if (row > 0)
                    walker.Down(groups, L"Lv1", row);
                const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
                if (!rights)
                    continue;
                EXPECT_EQ(Count(L"menu"), ListCount(rights, L"LstMenuBar"));
                for (int bar = 1; bar < ListCount(rights, L"LstMenuBar"); ++bar)
                    Next(walker, rights, bar);
                walker.Leave(rights, L"Command1");
            }
            walker.Leave(groups, L"CmdExit");
        });
        Search(L"KhachHang");
        if (Full())
            Search(L"HangHoa");
    }

    // Every field of the catalogue with every operator, and the picker of each.
    void Search(const wchar_t* table) const {
        const auto search = CreateSearch();
        EXPECT_SUCCEEDED(
            search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
        EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(table)));
        long modal = 1;
        DialogDriver user([] {
            Walker walker;
            const HWND form = walker.Form(L"FrmFind");
            const auto count = ListTexts(ListOf(form, L"CmbFld(0)")).size();
            for (size_t field = 0; field < count; ++field) {
                ChooseIn(walker, form, L"CmbFld(0)", field);
                ChooseIn(walker, form, L"CmbPredicate(0)", 0);
                SetBox(form, L"MskValue(0)", L"");
                // A letter behind the key tells when the key has been handled.
                PostKey(form, L"MskValue(0)", VK_F2);
                PostMessageW(Control(form, L"MskValue(0)"), WM_CHAR, L'z', 1);
                walker.Await([=] { return TextOf(form, L"MskValue(0)") == L"z"; });
                const HWND picker = Walker::Find(L"FmSelHang");
                if (picker)
                    walker.Leave(picker, L"CmdQuit");
            }
            walker.Leave(form, L"CmdCancel");
        });
        EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
        user.Finish();
        EXPECT_EQ(L"", ResultOf(*search.Get()));
    }

    int Count(const wchar_t* table) const {
        return std::stoi(Test().Read(std::wstring(L"select count(*) from ") + table));
    }

    std::wstring Everything() const {
        std::wstring text;
        for (const wchar_t* table : {L"\"user\"", L"groups", L"menu", L"submenu", L"lstfld",
                                     L"operator", L"khachhang", L"hanghoa", L"options"})
            text += Rows(table);
        return text;
    }
    void ExpectNothingChanges() const {
        const std::wstring before = Everything();
        LookAtEverything();
        EXPECT_EQ(before, Everything());
    }

private:
    static void Next(Walker& walker, HWND rights, int bar) {
        PostKey(rights, L"LstMenuBar", VK_DOWN);
        walker.Await([&] { return ListSelection(Control(rights, L"LstMenuBar")) == bar; });
    }
    static void ChooseIn(Walker& walker, HWND form, const wchar_t* combo, size_t item) {
        const HWND list = ListOf(form, combo);
        SendMessageW(list, CB_SETCURSEL, item, 0);
        SendNotifyMessageW(GetParent(list), WM_COMMAND,
                           MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
                           reinterpret_cast<LPARAM>(list));
        walker.Await([=] { return IsWindowEnabled(form) != FALSE; });
    }
};

INSTANTIATE_ADMINISTRATION(BadContentRows);

TEST_P(BadContentRows, NullInEveryColumnOfARow) {
    Change(L"update \"user\" set name=null,\"dec\"=null,idgroup=null,password=null where code=2");
    Change(L"update groups set name=null,des=null,p1=null,p2=null,p3=null where code=3");
    Change(L"update menu set \"desc\"=null where id=2");
    Change(L"update submenu set idmenubar=null,\"desc\"=null where id=2");
    Change(L"update submenu set \"desc\"=null where id=6");
    Change(L"update lstfld set name=null,\"desc\"=null,type=null,relation=null where code in "
           L"(select min(code) from lstfld)");
    Change(
        L"update operator set name=null,des=null where code in (select min(code) from operator)");
    Change(L"update khachhang set name=null");
    Change(L"update tinhthanh set name=null where code='HN'");
    ExpectNothingChanges();
}

TEST_P(BadContentRows, NullInEveryRow) {
    for (const wchar_t* change :
         {L"update \"user\" set name=null,\"dec\"=null,idgroup=null,password=null",
          L"update groups set name=null,des=null,p1=null,p2=null,p3=null",
          L"update menu set \"desc\"=null", L"update submenu set idmenubar=null,\"desc\"=null",
          L"update lstfld set name=null,\"desc\"=null,type=null,relation=null",
          L"update operator set name=null,des=null,type=null"})
        Change(change);
    ExpectNothingChanges();
}

TEST_P(BadContentRows, NoRowsAtAll) {
    for (const wchar_t* table :
         {L"\"user\"", L"groups", L"menu", L"submenu", L"lstfld", L"operator"})
        Change(L"delete from " + std::wstring(table));
    ExpectNothingChanges();
}

TEST_P(BadContentRows, ValuesOfAnotherType) {
    if (Test().server)
        GTEST_SKIP() << "PostgreSQL keeps no value of another type";
    for (const wchar_t* change :
         {L"update user set idgroup='abc',password='xyz' where code=1",
          L"update user set name=x'00ff80',\"dec\"=x'',idgroup=2.5,password=1e300 where code=2",
          L"update user set idgroup=9223372036854775807,password=-1 where code=4",
          L"update groups set p1='abc',p2=2147483648,p3=-1 where code=2",
          L"update groups set p1=1e300,p2=2.5,p3=x'01',name=x'c0c1',des=3 where code=3",
          L"update menu set \"desc\"=x'ff' where id=1",
          L"update submenu set \"desc\"=42 where id=1",
          L"update submenu set idmenubar='x' where id=7",
          L"update lstfld set type='abc' where code=(select min(code) from lstfld)",
          L"update lstfld set type=1e300,relation=x'ff' where code=(select max(code) from lstfld)",
          L"update lstfld set type=99 where code=(select min(code)+1 from lstfld)",
          L"update operator set name=x'3d',des=7 where code=(select min(code) from operator)",
          L"update khachhang set ngaylap='no date',congno='much',name=x'ff'",
          L"update tinhthanh set name=5"})
        Change(change);
    ExpectNothingChanges();
}

TEST_P(BadContentRows, RelationsThatCannotBeRead) {
    const wchar_t* relations[] = {
        L"NoSuchTable",          L"select", L"'", L"[User", L"Select 1 From Menu Where 1",
        L"; drop table KhongCo", L"%s"};
    int code = 0;
    for (const wchar_t* relation : relations)
        Change(L"update lstfld set relation=" + Text(relation) + L" where code=(select min(code)+" +
               std::to_wstring(code++) + L" from lstfld)");
    ExpectNothingChanges();
}

// Edits and deletions address a user by name, so that those of one name are changed together.
TEST_P(BadContentRows, UsersOfOneNameAreEditedAndDeletedTogether) {
    Change(L"update \"user\" set name='Lan' where code in (1,2)");
    PlayUsers([&](Walker& walker, HWND list) {
        SelectRow(list, L"Lv", 0);
        HWND editor = walker.Open(list, L"CmdEdit", L"FrmInput");
        SetBox(editor, L"TxtDes", L"ca hai");
        walker.Leave(editor, L"CmdOk");
        EXPECT_EQ(L"2", Test().Read(L"select count(*) from \"user\" where \"dec\"='ca hai'"));
        walker.TakeTold();
        walker.Do(list, L"CmdDel");
        EXPECT_EQ(1u, walker.TakeTold().size());
        // The other row stays in sight until the form opens again.
        EXPECT_EQ(6, RowCount(list, L"Lv"));
        walker.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(L"5", Test().Read(L"select count(*) from \"user\""));
    Change(L"update groups set name='Kho',des='Kho'");
    LookAtEverything();
}

} // namespace
} // namespace vndesk::test
