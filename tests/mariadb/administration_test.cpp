// SPDX-License-Identifier: MIT
// Logon, users, groups and rights on MariaDB.
#include "mariadb/mariadb_fixture.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kRefused[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";
constexpr wchar_t kUsers[] = L"select Code,Name,`Dec`,IdGroup,Password from `User` order by Code";
constexpr wchar_t kGroups[] = L"select * from `Groups` order by Code";

class MariaDbAdministration : public MariaDbTest {
protected:
    void AddUserRow(const std::wstring& name) const {
        std::wstring literal;
        for (const wchar_t ch : name)
            literal += std::wstring(ch == L'\'' || ch == L'\\' ? 2 : 1, ch);
        Execute(L"insert into `User`(Name,`Dec`,IdGroup,Password) values('" + literal +
                L"','',2,1401)");
    }
    std::wstring Newest(const wchar_t* column) const {
        return Read(std::wstring(L"select ") + column + L" from `User` order by Code desc limit 1");
    }
};
ON_MARIADB(MariaDbAdministration);

TEST_P(MariaDbAdministration, LogonFindsNamesInAnyCaseAndPasswords) {
    EXPECT_EQ(3, LogOn(L" ADMIN ", L"abc"));
    EXPECT_EQ(1, LogOn(L"NGUYỄN văn HƯNG", L"hung2005"));
    EXPECT_EQ(7, LogOn(L"khách", L""));
    for (const wchar_t* name : {L"O'Brien", L"chéo\\' ngược\\", L"Mới Út Ộộ Ớớ ÙÚ"}) {
        AddUserRow(name);
        EXPECT_EQ(Newest(L"Code"), std::to_wstring(LogOn(name, L"abc"))) << ToUtf8(name);
    }
    EXPECT_EQ(Lines{}, walker_.Told());
}

TEST_P(MariaDbAdministration, NamesAndPasswordsThatAreStatementsLogNobodyOn) {
    Lines names = CraftedNames();
    names.insert(names.end(), {L"Nguyễn Văn Hùng", L"Khach"});
    EXPECT_EQ(0, PlayLogon(*Test().Host().Get(), Connection(), [&] {
                  const HWND form = walker_.Form(L"FrmLogon");
                  for (const std::wstring& name : names)
                      for (const bool isName : {true, false}) {
                          SetBox(form, L"TxtUser", isName ? name.c_str() : L"Admin");
                          SetBox(form, L"TxtPass", isName ? L"" : name.c_str());
                          walker_.Do(form, L"CmdOk");
                          EXPECT_EQ(Lines{kRefused}, walker_.TakeTold()) << ToUtf8(name);
                      }
                  walker_.Leave(form, L"CMDCAN");
              }));
}

TEST_P(MariaDbAdministration, UsersOfAnyNameAreAddedRenamedAndDeleted) {
    const Lines before = Rows(kUsers);
    Test().PlayUsers([&](HWND list) {
        for (const std::wstring& name : CraftedNames()) {
            HWND editor = walker_.Open(list, L"CmdAdd", L"FrmInput");
            SetBox(editor, L"TxtUser", name.c_str());
            SetBox(editor, L"TxtDes", name.c_str());
            SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 3, 0);
            SetBox(editor, L"TxtPass", L"abc");
            SetBox(editor, L"txtConfirm", L"abc");
            walker_.Leave(editor, L"CmdOk");
            EXPECT_EQ(name + L"|" + name + L"|5|1401",
                      Newest(L"concat(Name,'|',`Dec`,'|',IdGroup,'|',Password)"));
            walker_.Await([&] { return RowCount(list, L"Lv") == 8; });
            EXPECT_EQ(name, CellText(Control(list, L"Lv"), 7, 0));

            SelectRow(list, L"Lv", 7);
            editor = walker_.Open(list, L"CmdEdit", L"FrmInput");
            EXPECT_EQ(name, TextOf(editor, L"TxtDes"));
            SetBox(editor, L"TxtUser", (L"'" + name).c_str());
            walker_.Leave(editor, L"CmdOk");
            EXPECT_EQ(L"'" + name, Newest(L"Name"));

            EXPECT_EQ(Lines{}, walker_.TakeTold());
            SelectRow(list, L"Lv", 7);
            walker_.Do(list, L"CmdDel");
            EXPECT_EQ(Lines{L"Bạn chắc chắn xoá người sử dụng này"}, walker_.TakeTold());
            EXPECT_EQ(before, Rows(kUsers));
        }
        // A name that is there already, in another case.
        const HWND editor = walker_.Open(list, L"CmdAdd", L"FrmInput");
        SetBox(editor, L"TxtUser", L"TRẦN thị mai");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 3, 0);
        walker_.Do(editor, L"CmdOk");
        EXPECT_EQ(1u, walker_.TakeTold().size());
        walker_.Leave(editor, L"CMDCAN");
        walker_.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(before, Rows(kUsers));
}

TEST_P(MariaDbAdministration, UserChangesTheOwnPassword) {
    AddUserRow(L"chéo\\' ngược\\");
    Test().PlayEditor(L"chéo\\' ngược\\", [&](HWND editor) {
        SetBox(editor, L"TxtPass", L"ab");
        SetBox(editor, L"txtConfirm", L"ab");
        walker_.Leave(editor, L"CmdOk");
    });
    EXPECT_EQ(L"329", Read(L"select Password from `User` where Code=10"));
    EXPECT_EQ(L"1", Read(L"select count(*) from `User` where Password=329"));
}

TEST_P(MariaDbAdministration, GroupsAreAddedChangedAndDeleted) {
    const std::wstring trail = BindsValues() ? L"" : L" ";
    AddGroup();
    EXPECT_EQ(Lines{L"9|Vận tải|Đội xe" + trail + L"|(null)|(null)|(null)"},
              Rows(L"select * from `Groups` where Code=9"));
    EditGroup();
    EXPECT_EQ(L"Tài vụ|Phòng kế toán" + trail,
              Read(L"select concat(Name,'|',Des) from `Groups` where Code=2"));
    Execute(L"update `Groups` set Name='Kế toán' where Code=2");
    DeleteGroups();
    EXPECT_EQ((Lines{L"1", L"3", L"8", L"9"}), Rows(L"select Code from `Groups` order by Code"));
}

TEST_P(MariaDbAdministration, GroupsOfAnyNameAreWritten) {
    for (const std::wstring& name : CraftedNames())
        InGroups([&](HWND groups) {
            walker_.Do(groups, L"CmdAdd");
            SetBox(groups, L"txtName", name.c_str());
            SetBox(groups, L"TxtDesc", name.c_str());
            walker_.Do(groups, L"CmdWrite");
        });
    EXPECT_EQ(Lines{}, walker_.Told());
    EXPECT_EQ(CraftedNames(),
              Rows(L"select Name from `Groups` where Code>8 and Name=trim(Des) order by Code"));
}

TEST_P(MariaDbAdministration, RightsAreShownAndWritten) {
    EXPECT_EQ(L"5|48|31", Read(L"select concat(P1,'|',P2,'|',P3) from `Groups` where Code=2"));
    const Lines others = Rows(L"select * from `Groups` where Code<>2 order by Code");
    WriteRights();
    EXPECT_EQ(L"7|48|31", Read(L"select concat(P1,'|',P2,'|',P3) from `Groups` where Code=2"));
    EXPECT_EQ(others, Rows(L"select * from `Groups` where Code<>2 order by Code"));
    EXPECT_EQ(Lines{}, walker_.Told());
}

// The host names the columns.
TEST_P(MariaDbAdministration, RightsColumnsMayHaveAnyName) {
    Execute(L"alter table `Groups` change P1 `Quyền số ``1``` int, change P2 `Desc` int");
    WriteRights();
    EXPECT_EQ(
        L"7|48|31",
        Read(L"select concat(`Quyền số ``1```,'|',`Desc`,'|',P3) from `Groups` where Code=2"));
}

} // namespace
} // namespace vndesk::test
