// SPDX-License-Identifier: MIT
// Logon and administration with BindParameters: whatever is typed is data. Many names go through
// one form, which is then worked by messages.
#include "support/forms/walker.h"

namespace vndesk::test {
namespace {

const Lines& CraftedTexts() {
    static const Lines texts = {L"O'Brien",
                                L"x') OR (Code=3) OR ('1'='2",
                                L"x' OR 1=1) --",
                                L"'; DROP TABLE groups; --",
                                L"\"hai\" [ba] `bốn` {ts}",
                                L"a;b?c:d@e$1#f%g_h/*i*/",
                                L"chéo\\' ngược\\",
                                L"Đỗ Thị Hường ẰẴỶỲ ₫",
                                std::wstring(5000, L'ằ') + L"'"};
    return texts;
}

class BoundValues : public Administration {
protected:
    void SetUp() override {
        Administration::SetUp();
        if (test_)
            test_->settings = SecuritySettings{.BindParameters = true};
    }

    // Codes are counted on from the sample's.
    std::wstring NewestUser(const wchar_t* column) const {
        return Test().Read(L"select " + std::wstring(column) +
                           L" from \"user\" order by code desc limit 1");
    }
    void AddUser(const std::wstring& name) const {
        std::wstring doubled;
        for (const wchar_t ch : name)
            doubled += std::wstring(ch == L'\'' ? 2 : 1, ch);
        Test().database.Execute(L"insert into \"user\"(name,\"dec\",idgroup,password) values('" +
                                doubled + L"','',2,1401)");
    }
    long LogOn(const std::wstring& name, const wchar_t* password) const {
        Walker walker;
        return PlayLogon(*Test().Host().Get(), Test().database.ConnectionString(), [&] {
            const HWND form = walker.Form(L"FrmLogon");
            SetBox(form, L"TxtUser", name.c_str());
            SetBox(form, L"TxtPass", password);
            if (!walker.Closes(form, L"CmdOk"))
                walker.Leave(form, L"CMDCAN");
        });
    }
};

INSTANTIATE_ADMINISTRATION(BoundValues);
// In the language of an engine, what is typed is data in literals, too.
INSTANTIATE_DIALECTS(BoundValues, "PostgreSql", "PostgreSqlBound", "SqlServer");

void FillUser(HWND editor, const std::wstring& name) {
    SetBox(editor, L"TxtUser", name.c_str());
    SetBox(editor, L"TxtDes", name.c_str());
    SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 1, 0);
    SetBox(editor, L"TxtPass", L"abc");
    SetBox(editor, L"txtConfirm", L"abc");
}

TEST_P(BoundValues, UserWithAnApostropheIsAddedRenamedAndDeletedByKeys) {
    const std::wstring before = Test().Users();
    Test().PlayUsers([&](HWND list) {
        WaitReady(list, L"Lv");
        HWND editor = OpenEditor('H');
        TypeText(L"O'Brien");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 1, 0);
        SetBox(editor, L"TxtPass", L"abc");
        SetBox(editor, L"txtConfirm", L"abc");
        PressKey('G', kAlt);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        EXPECT_EQ(7, SelectedRow(list, L"Lv"));
        EXPECT_EQ(L"O'Brien", CellText(Control(list, L"Lv"), 7, 0));
        EXPECT_EQ(L"O'Brien", NewestUser(L"name"));

        editor = OpenEditor('S');
        EXPECT_EQ(L"O'Brien", TextOf(editor, L"TxtUser"));
        SetBox(editor, L"TxtUser", L"D'Arc");
        PressKey('G', kAlt);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        EXPECT_EQ(L"D'Arc", CellText(Control(list, L"Lv"), 7, 0));
        EXPECT_EQ(L"D'Arc", NewestUser(L"name"));

        PressKey(VK_DELETE);
        Answer(L"Bạn chắc chắn xoá người sử dụng này", L"Thông báo");
        EXPECT_TRUE(WaitUntil([&] { return RowCount(list, L"Lv") == 7; }));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(BoundValues, UsersOfAnyNameAreAddedRenamedAndDeletedAndNobodyElseChanges) {
    const std::wstring before = Test().Users();
    Walker walker;
    Test().PlayUsers([&](HWND list) {
        for (const std::wstring& name : CraftedTexts()) {
            HWND editor = walker.Open(list, L"CmdAdd", L"FrmInput");
            FillUser(editor, name);
            walker.Leave(editor, L"CmdOk");
            EXPECT_EQ(name, NewestUser(L"name"));
            EXPECT_EQ(name, NewestUser(L"\"dec\""));
            walker.Await([&] { return RowCount(list, L"Lv") == 8; });

            SelectRow(list, L"Lv", 7);
            editor = walker.Open(list, L"CmdEdit", L"FrmInput");
            EXPECT_EQ(name, TextOf(editor, L"TxtUser"));
            EXPECT_EQ(name, TextOf(editor, L"TxtDes"));
            SetBox(editor, L"TxtUser", (L"'" + name).c_str());
            walker.Leave(editor, L"CmdOk");
            EXPECT_EQ(L"'" + name, NewestUser(L"name"));
            EXPECT_EQ(name, NewestUser(L"\"dec\""));

            // Deleting asks, and says nothing else.
            EXPECT_EQ(Lines{}, walker.TakeTold());
            SelectRow(list, L"Lv", 7);
            walker.Do(list, L"CmdDel");
            EXPECT_EQ(Lines{L"Bạn chắc chắn xoá người sử dụng này"}, walker.TakeTold());
            EXPECT_EQ(before, Test().Users());
        }
        walker.Leave(list, L"CmdExit");
    });
}

TEST_P(BoundValues, NamesAndPasswordsThatAreStatementsLogNobodyOn) {
    const std::wstring before = Test().Users() + Test().Groups();
    Walker walker;
    const long code = PlayLogon(*Test().Host().Get(), Test().database.ConnectionString(), [&] {
        const HWND form = walker.Form(L"FrmLogon");
        const auto expectRefusal = [&](const std::wstring& name, const std::wstring& password) {
            SetBox(form, L"TxtUser", name.c_str());
            SetBox(form, L"TxtPass", password.c_str());
            walker.Do(form, L"CmdOk");
            EXPECT_EQ(Lines{L"Mật khẩu hoặc người sử dụng không hợp lệ "}, walker.TakeTold())
                << ToUtf8(name.substr(0, 100));
        };
        for (const std::wstring& text : CraftedTexts()) {
            expectRefusal(text, L"abc");
            if (text.size() < 100)
                expectRefusal(L"Admin", text);
        }
        walker.Leave(form, L"CMDCAN");
    });
    EXPECT_EQ(0, code);
    EXPECT_EQ(before, Test().Users() + Test().Groups());
}

TEST_P(BoundValues, UsersOfAnyNameLogOnAsThemselves) {
    for (const std::wstring& name : CraftedTexts())
        AddUser(name);
    long code = 9;
    for (const std::wstring& name : CraftedTexts())
        EXPECT_EQ(++code, LogOn(name, L"abc")) << ToUtf8(name.substr(0, 100));
}

TEST_P(BoundValues, UserOfAnyNameChangesTheOwnPassword) {
    for (const std::wstring& name : CraftedTexts()) {
        AddUser(name);
        Walker walker;
        Test().PlayEditor(name.c_str(), [&](HWND editor) {
            EXPECT_EQ(name, TextOf(editor, L"TxtUser"));
            SetBox(editor, L"TxtPass", L"ab");
            SetBox(editor, L"txtConfirm", L"ab");
            walker.Leave(editor, L"CmdOk");
        });
        EXPECT_EQ(Lines{}, walker.Told());
        EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where password=329"));
        EXPECT_EQ(name, Test().Read(L"select name from \"user\" where password=329"));
        Test().database.Execute(L"update \"user\" set password=1 where password=329");
    }
}

// Numbers of long passwords have more digits than 1.0 writes into its statements.
TEST_P(BoundValues, LongPasswordsAreTheSameForHostsWithAndWithoutTheSetting) {
    constexpr const wchar_t* kPasswords[] = {L"the quick brown fox jumps over the lazy dog",
                                             L"SPHINX OF BLACK QUARTZ, JUDGE MY VOW"};
    const auto with = test_->settings;
    for (const bool written : {false, true}) {
        test_->settings = written ? with : std::nullopt;
        Walker walker;
        Test().PlayEditor(L"Admin", [&](HWND editor) {
            SetBox(editor, L"TxtPass", kPasswords[written]);
            SetBox(editor, L"txtConfirm", kPasswords[written]);
            walker.Leave(editor, L"CmdOk");
        });
        EXPECT_EQ(Lines{}, walker.Told());
        for (const bool read : {false, true}) {
            test_->settings = read ? with : std::nullopt;
            EXPECT_EQ(3, LogOn(L"Admin", kPasswords[written]))
                << "written with the setting: " << written << ", read with it: " << read;
        }
    }
}

// As the engine compares: SQLite knows the case of ASCII letters only, citext that of all.
TEST_P(BoundValues, LetterCaseOfNamesCountsAsMuchAsInLiterals) {
    const auto with = test_->settings;
    for (const wchar_t* name : {L"ADMIN", L"admin", L"đặng ngọc sơn", L"ĐẶNG NGỌC SƠN"}) {
        const bool ascii = name[0] < 128;
        Test().database.Execute(L"update \"user\" set password=1401 where code=9");
        test_->settings = std::nullopt;
        const long literal = LogOn(name, L"abc");
        test_->settings = with;
        EXPECT_EQ(literal, LogOn(name, L"abc")) << ToUtf8(name);
        EXPECT_EQ(ascii ? 3 : Test().server ? 9 : 0, literal) << ToUtf8(name);
    }
}

TEST_P(BoundValues, NameThatDiffersInCaseOnlyIsTaken) {
    const std::wstring before = Test().Users();
    Walker walker;
    Test().PlayUsers([&](HWND list) {
        const HWND editor = walker.Open(list, L"CmdAdd", L"FrmInput");
        FillUser(editor, L"ADMIN");
        walker.Do(editor, L"CmdOk");
        EXPECT_EQ(Lines{L"Người sử dụng đã tồn tại"}, walker.TakeTold());
        walker.Leave(editor, L"CMDCAN");
        walker.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(before, Test().Users());
}

// --- Groups ---

TEST_P(BoundValues, GroupsOfAnyNameAreAddedEditedAndDeletedAtOnce) {
    const std::wstring before = Test().Groups();
    Walker walker;
    Test().PlayGroups([&](HWND groups) {
        const HWND list = Control(groups, L"Lv1");
        for (const std::wstring& name : CraftedTexts()) {
            walker.Do(groups, L"CmdAdd");
            SetBox(groups, L"txtName", name.c_str());
            SetBox(groups, L"TxtDesc", name.c_str());
            walker.Do(groups, L"CmdWrite");
            walker.Do(groups, L"CmdAdd");
            const std::wstring newest = L" from groups order by code desc limit 1";
            EXPECT_EQ(name, Test().Read(L"select name" + newest));
            // As literals, descriptions have the blank of older rows behind them.
            const std::wstring described = BindsValues() ? name : name + L" ";
            EXPECT_EQ(described, Test().Read(L"select des" + newest));

            // The item has its code at once.
            const int item = static_cast<int>(ListTexts(list).size()) - 1;
            EXPECT_EQ(Test().Read(L"select code" + newest),
                      std::to_wstring(SendMessageW(list, LB_GETITEMDATA, item, 0)));
            ChooseGroup(groups, name);
            EXPECT_EQ(name, TextOf(groups, L"txtName"));
            EXPECT_EQ(described, TextOf(groups, L"TxtDesc"));
            SetBox(groups, L"txtName", (L"'" + name).c_str());
            walker.Do(groups, L"CmdWrite");
            EXPECT_EQ(L"'" + name, Test().Read(L"select name" + newest));

            EXPECT_EQ(Lines{}, walker.TakeTold());
            walker.Do(groups, L"CmdDelete");
            EXPECT_EQ(
                (Lines{L"Bạn có chắc chắn xoá các nhóm đã chọn không?", L"1 danh mục đã bị xoá"}),
                walker.TakeTold());
            EXPECT_EQ(before, Test().Groups());
        }
        walker.Leave(groups, L"CmdExit");
    });
}

TEST_P(BoundValues, RightsOfTheGroupAloneAreWritten) {
    const std::wstring before = Test().Groups();
    Walker walker;
    Test().PlayGroups([&](HWND groups) {
        ChooseGroup(groups, L"Kế toán");
        const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
        EXPECT_EQ(L"1010", Ticks(rights, L"LstSubMenu"));
        TickCommand(rights, 1);
        walker.Leave(rights, L"CmdOk");
        walker.Leave(groups, L"CmdExit");
    });
    EXPECT_EQ(L"7", Test().Group(L"p1", 2));
    Test().database.Execute(L"update groups set p1=5 where code=2");
    EXPECT_EQ(before, Test().Groups());
}

// --- What is sent ---

class SentStatements : public Administration {
protected:
    // A round through the forms; what the engine got.
    Lines PlayAll() const {
        const StatementTrace trace;
        Walker walker;
        PlayLogon(*Test().Host().Get(), Test().database.ConnectionString(), [&] {
            const HWND form = walker.Form(L"FrmLogon");
            SetBox(form, L"TxtUser", L"Admin");
            SetBox(form, L"TxtPass", L"xyz");
            walker.Do(form, L"CmdOk");
            SetBox(form, L"TxtPass", L"abc");
            walker.Leave(form, L"CmdOk");
        });
        Test().PlayUsers([&](HWND list) {
            HWND editor = walker.Open(list, L"CmdAdd", L"FrmInput");
            FillUser(editor, L"Mới");
            walker.Leave(editor, L"CmdOk");
            SelectRow(list, L"Lv", 7);
            editor = walker.Open(list, L"CmdEdit", L"FrmInput");
            SetBox(editor, L"TxtUser", L"Cũ");
            walker.Leave(editor, L"CmdOk");
            SelectRow(list, L"Lv", 7);
            walker.Do(list, L"CmdDel");
            walker.Leave(list, L"CmdExit");
        });
        Test().PlayEditor(L"Admin", [&](HWND editor) {
            SetBox(editor, L"TxtPass", L"abc");
            SetBox(editor, L"txtConfirm", L"abc");
            walker.Leave(editor, L"CmdOk");
        });
        Test().PlayGroups([&](HWND groups) {
            walker.Do(groups, L"CmdAdd");
            SetBox(groups, L"txtName", L"Mới");
            walker.Do(groups, L"CmdWrite");
            walker.Do(groups, L"CmdAdd");
            ChooseGroup(groups, L"Kế toán");
            SetBox(groups, L"TxtDesc", L"khác");
            walker.Do(groups, L"CmdWrite");
            const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
            TickCommand(rights, 1);
            walker.Leave(rights, L"CmdOk");
            ChooseGroup(groups, L"Khách");
            walker.Do(groups, L"CmdDelete");
            walker.Leave(groups, L"CmdExit");
        });
        return trace.All();
    }

    static bool Mentions(const Lines& lines, const wchar_t* part) {
        return std::any_of(lines.begin(), lines.end(), [&](const std::wstring& line) {
            return FindLower(line, part) != std::wstring::npos;
        });
    }
    static size_t FindLower(std::wstring text, const wchar_t* part) {
        CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
        return text.find(part);
    }
};

INSTANTIATE_ADMINISTRATION(SentStatements);

TEST_P(SentStatements, OfASwitchThatIsNotSetThereAreNone) {
    const Lines plain = PlayAll();
    EXPECT_EQ(plain.end(), std::find_if(plain.begin(), plain.end(), [](const std::wstring& line) {
                  return line.find(L'?') != std::wstring::npos;
              }));
    EXPECT_FALSE(Mentions(plain, L"vnuser"));
    EXPECT_FALSE(Mentions(plain, L"vnaudit"));

    // Settings of which none is set are none.
    test_ = std::make_unique<AdministrationTest>(Test().server);
    test_->settings = SecuritySettings();
    EXPECT_EQ(plain, PlayAll());
}

TEST_P(SentStatements, AreTheSameWithAMarkForEachValue) {
    const Lines plain = PlayAll();
    test_ = std::make_unique<AdministrationTest>(Test().server);
    test_->settings = SecuritySettings{.BindParameters = true};
    const Lines bound = PlayAll();
    ASSERT_EQ(plain.size(), bound.size());
    for (const auto& [literal, marked] :
         {std::pair<const wchar_t*, const wchar_t*>{L"SELECT  *  FROM [User] WHERE ([Name]=",
                                                    L"SELECT  *  FROM [User] WHERE ([Name]=?) "
                                                    L"And ( [Password]=?)"},
          {L"Insert Into [User]",
           L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values(?,?,?,?)"},
          {L"Insert Into [Groups]", L"Insert Into [Groups]([Name],[Des]) Values(?,?)"},
          {L"Delete from [user]", L"Delete from [user] Where [Name]=?"}}) {
        const auto at = std::find_if(plain.begin(), plain.end(), [&](const std::wstring& line) {
            return line.starts_with(literal);
        });
        ASSERT_NE(plain.end(), at);
        EXPECT_EQ(marked, bound[static_cast<size_t>(at - plain.begin())]);
    }
    // Nothing that was typed stands in a statement.
    for (const wchar_t* typed : {L"mới", L"cũ", L"khác", L"admin"})
        EXPECT_FALSE(Mentions(bound, typed));
    EXPECT_FALSE(Mentions(bound, L"vnuser"));
    EXPECT_FALSE(Mentions(bound, L"vnaudit"));
}

} // namespace
} // namespace vndesk::test
