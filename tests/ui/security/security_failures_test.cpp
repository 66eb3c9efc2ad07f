// SPDX-License-Identifier: MIT
// What can go wrong between an administration form and its database: no crash, no hang, nothing
// written by halves, and the host's call succeeds.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

class SecurityFailures : public Administration {
protected:
    // From now on the database refuses every change.
    void MakeReadOnly() const {
        if (Test().server) {
            Test().database.Execute(
                L"do $$ begin execute 'alter database ' || current_database() || ' set "
                L"default_transaction_read_only = on'; end $$");
            return;
        }
        // SQLite only reads a file whose header names a later version for writing, whoever asks.
        constexpr long kWriteVersion = 18;
        WriteByte(kWriteVersion, 3);
        EXPECT_ANY_THROW(Test().database.Execute(L"delete from groups"));
    }

private:
    void WriteByte(long place, char byte) const {
        FILE* file = _wfopen(Test().database.File().c_str(), L"r+b");
        ASSERT_TRUE(file);
        fseek(file, place, SEEK_SET);
        EXPECT_EQ(1u, fwrite(&byte, 1, 1, file));
        EXPECT_EQ(0, fclose(file));
    }
};

INSTANTIATE_ADMINISTRATION(SecurityFailures);

void FillNew(HWND editor, const wchar_t* name) {
    SetBox(editor, L"TxtUser", name);
    SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 0, 0);
    SetBox(editor, L"TxtPass", L"abc");
    SetBox(editor, L"txtConfirm", L"abc");
}

std::wstring Doubled(std::wstring text) {
    for (size_t i = 0; (i = text.find(L'\'', i)) != std::wstring::npos; i += 2)
        text.insert(i, 1, L'\'');
    return text;
}

HWND OpenRights(HWND groups) {
    WaitReady(groups, L"Lv1");
    PressKey(VK_DOWN);
    PressKey('Q', kAlt);
    const HWND rights = WaitForForm(L"FrPms");
    WaitReady(rights, L"LstMenuBar");
    return rights;
}

// Closes plain messages, as many as there are, until the focus is in a control of the form.
void CloseMessagesUntil(HWND form, const wchar_t* control) {
    EXPECT_TRUE(WaitUntil([=] {
        if (WindowName(TopWindows().front()).empty())
            ClosePlainMessage();
        return TopWindows().front() == form && FocusName(form) == control;
    }));
}

TEST_P(SecurityFailures, ApostropheInANewUsersNameEndsTheEditorWithTheProvidersMessage) {
    const std::wstring before = Test().Users();
    Test().PlayUsers([](HWND list) {
        const HWND editor = OpenEditor('H');
        FillNew(editor, L"O'Brien");
        PressKey('G', kAlt);
        // The look-up tells its error first, then the insert.
        EXPECT_NE(L"", ClosePlainMessage());
        EXPECT_NE(L"", ClosePlainMessage());
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        EXPECT_EQ(7, RowCount(list, L"Lv"));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Users());
}

// Texts go into the statement as they are typed, where two apostrophes are one.
TEST_P(SecurityFailures, ApostrophesThatTheUserDoublesAreWritten) {
    Test().PlayUsers([](HWND list) {
        WaitReady(list, L"Lv");
        const HWND editor = OpenEditor('H');
        FillNew(editor, L"O''Brien");
        SetBox(editor, L"TxtDes", L"Kho 5'' - cũ");
        PressKey('G', kAlt);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        EXPECT_EQ(L"O'Brien", CellText(Control(list, L"Lv"), RowCount(list, L"Lv") - 1, 0));
        PressKey(VK_ESCAPE);
    });
    EXPECT_NE(std::wstring::npos, Test().Users().find(L"Kho 5' - cũ"));
}

TEST_P(SecurityFailures, ApostropheInARenamedUsersNameChangesNothing) {
    const std::wstring before = Test().Users();
    Test().PlayUsers([](HWND list) {
        const HWND editor = OpenEditor('S');
        SetBox(editor, L"TxtUser", L"O'Brien");
        PressKey('G', kAlt);
        EXPECT_NE(L"", ClosePlainMessage());
        EXPECT_NE(L"", ClosePlainMessage());
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        EXPECT_EQ(L"Nguyễn Văn Hưng", CellText(Control(list, L"Lv"), 0, 0));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Users());
}

// Deletes the first user: the error is told, and all stay.
void ExpectDeletionIsRefused(HWND list) {
    WaitReady(list, L"Lv");
    PressKey(VK_DELETE);
    Answer(L"Bạn chắc chắn xoá người sử dụng này", L"Thông báo");
    EXPECT_NE(L"", ClosePlainMessage(L""));
    WaitReady(list, L"Lv");
    EXPECT_EQ(7, RowCount(list, L"Lv"));
    PressKey(VK_ESCAPE);
}

TEST_P(SecurityFailures, UserWithAnApostropheIsNotDeletedAndTheErrorIsTold) {
    Test().database.Execute(L"update \"user\" set name='O''Brien' where code=1");
    const std::wstring before = Test().Users();
    Test().PlayUsers(ExpectDeletionIsRefused);
    EXPECT_EQ(before, Test().Users());
}

// OK ends the editor with one message, and the list goes on.
void ExpectOkIsRefused(HWND list, HWND editor) {
    PressKey('G', kAlt);
    EXPECT_NE(L"", ClosePlainMessage());
    WaitForClose(editor);
    WaitReady(list, L"Lv");
    PressKey(VK_ESCAPE);
}

// Names that end their literal and go on with a condition or a comment: they would speak of others.
constexpr const wchar_t* kCraftedNames[] = {L"x' or 'a'='a", L"x' or Code>0 --", L"Admin'--",
                                            L"x'' or ''a''=''a"};

TEST_P(SecurityFailures, OwnPasswordOfANameThatIsAConditionIsNobodysPassword) {
    const std::wstring before = Test().Users();
    for (const wchar_t* name : {L"x' or Code=3 or 'a'='b", L"Admin' --", L"x' or 'a'='a"})
        Test().PlayEditor(name, [](HWND editor) {
            EXPECT_EQ(L"", TextOf(editor, L"TxtUser"));
            EXPECT_EQ(L"", TextOf(editor, L"TxtPass"));
            EXPECT_FALSE(IsEnabled(editor, L"CmdOk"));
            PressKey(VK_ESCAPE);
        });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(SecurityFailures, UserWhoseNameIsAConditionIsNotDeletedWithTheOthers) {
    for (const std::wstring name : kCraftedNames) {
        Test().database.Execute(L"update \"user\" set name='" + Doubled(name) + L"' where code=1");
        const std::wstring before = Test().Users();
        Test().PlayUsers(ExpectDeletionIsRefused);
        EXPECT_EQ(before, Test().Users()) << ToUtf8(name);
    }
}

TEST_P(SecurityFailures, UserWhoseNameIsAConditionIsNotWrittenOverTheOthers) {
    for (const std::wstring name : kCraftedNames) {
        Test().database.Execute(L"update \"user\" set name='" + Doubled(name) + L"' where code=1");
        const std::wstring before = Test().Users();
        Test().PlayUsers([](HWND list) {
            WaitReady(list, L"Lv");
            const HWND editor = OpenEditor('S');
            EXPECT_EQ(L"", TextOf(editor, L"TxtUser"));
            FillNew(editor, L"moi");
            ExpectOkIsRefused(list, editor);
        });
        EXPECT_EQ(before, Test().Users()) << ToUtf8(name);
    }
}

TEST_P(SecurityFailures, TypedTextThatWouldCutTheUpdateShortWritesNothing) {
    const std::wstring before = Test().Users();
    const std::pair<const wchar_t*, const wchar_t*> typed[] = {
        {L"TxtDes", L"Kho 5' -- cũ"}, {L"TxtUser", L"x' where 'a'='a' --"}};
    for (const auto& [box, text] : typed)
        Test().PlayUsers([&, box = box, text = text](HWND list) {
            WaitReady(list, L"Lv");
            const HWND editor = OpenEditor('S');
            SetBox(editor, box, text);
            ExpectOkIsRefused(list, editor);
        });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(SecurityFailures, GroupsNameThatWouldCutTheUpdateShortWritesNothing) {
    const std::wstring before = Test().Groups();
    for (const wchar_t* name : {L"Kho 5' -- cũ", L"x' where 'a'='a"})
        Test().PlayGroups([&](HWND groups) {
            WaitReady(groups, L"Lv1");
            SetBox(groups, L"txtName", name);
            PressKey('G', kAlt);
            Answer(L"Không thể ghi dữ liệu vào bảng", L"Save Error");
            WaitReady(groups, L"txtName");
            PressKey(VK_ESCAPE);
        });
    EXPECT_EQ(before, Test().Groups());
}

TEST_P(SecurityFailures, ApostropheInAGroupsNameIsRefusedInBothModes) {
    const std::wstring before = Test().Groups();
    Test().PlayGroups([](HWND groups) {
        WaitReady(groups, L"Lv1");
        SetBox(groups, L"txtName", L"Kho'2");
        PressKey('G', kAlt);
        Answer(L"Không thể ghi dữ liệu vào bảng", L"Save Error");
        WaitReady(groups, L"txtName");
        EXPECT_EQ(L"Quản trị-Toàn quyền trên chương trình", ListTexts(Control(groups, L"Lv1"))[0]);
        PressKey('H', kAlt);
        SetBox(groups, L"txtName", L"Kho'2");
        PressKey('G', kAlt);
        Answer(L"Không thể thêm dữ liệu vào bảng", L"Save Error");
        WaitReady(groups, L"txtName");
        EXPECT_EQ(L"Kho'2", TextOf(groups, L"txtName"));
        EXPECT_EQ(5u, ListTexts(Control(groups, L"Lv1")).size());
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Groups());
}

TEST_P(SecurityFailures, ApostropheInAGroupsDescriptionIsWritten) {
    Test().PlayGroups([](HWND groups) {
        WaitReady(groups, L"Lv1");
        SetBox(groups, L"TxtDesc", L"Phòng 'A'");
        PressKey('G', kAlt);
        WaitReady(groups, L"txtName");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"Phòng 'A' ", Test().Group(L"des", 1));
}

TEST_P(SecurityFailures, TooFewMaskColumnsMakeTheWriteFailAsAWhole) {
    Test().database.Execute(L"alter table groups drop column p3");
    const std::wstring before = Test().Groups();
    Test().PlayGroups([](HWND groups) {
        const HWND rights = OpenRights(groups);
        EXPECT_EQ(L"1010", Ticks(rights, L"LstSubMenu"));
        PressKey(VK_DOWN);
        PressKey(VK_DOWN);
        // Nothing is granted in the bar without a column.
        EXPECT_TRUE(WaitUntil([=] { return Ticks(rights, L"LstSubMenu") == L"00000"; }));
        PressKey('G', kAlt);
        EXPECT_NE(L"", ClosePlainMessage());
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Groups());
}

TEST_P(SecurityFailures, BarWithThirtyTwoCommandsIsToldAndTheOtherBarsGoOn) {
    Test().database.Execute(L"delete from submenu where idmenubar=1");
    std::wstring rows;
    for (int i = 0; i < 32; ++i)
        rows += (i ? L",(" : L"(") + std::to_wstring(100 + i) + L",1,'lenh')";
    Test().database.Execute(L"insert into submenu(id,idmenubar,\"desc\") values" + rows);
    Test().PlayGroups([](HWND groups) {
        WaitReady(groups, L"Lv1");
        PressKey(VK_DOWN);
        PressKey('Q', kAlt);
        ClosePlainMessage(); // as the form opens on this bar
        const HWND rights = WaitForForm(L"FrPms");
        WaitReady(rights, L"LstMenuBar");
        EXPECT_EQ(L"101" + std::wstring(29, L'0'), Ticks(rights, L"LstSubMenu"));
        // The 31 others may be changed, the 32nd may not.
        PressKey(VK_TAB);
        WaitReady(rights, L"LstSubMenu");
        PressKey(VK_DOWN);
        PressKey(VK_SPACE);
        EXPECT_TRUE(WaitUntil([=] { return Ticks(rights, L"LstSubMenu").starts_with(L"111"); }));
        PressKey(VK_END);
        PressKey(VK_SPACE);
        ClosePlainMessage();
        WaitReady(rights, L"LstSubMenu");
        PressKey('T', kAlt);
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([=] { return Ticks(rights, L"LstSubMenu") == L"000011"; }));
        PressKey('G', kAlt);
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"7", Test().Group(L"p1", 2));
    EXPECT_EQ(L"48", Test().Group(L"p2", 2));
    EXPECT_EQ(L"31", Test().Group(L"p3", 2));
}

TEST_P(SecurityFailures, ReadOnlyDatabaseKeepsItsUsers) {
    MakeReadOnly();
    const std::wstring before = Test().Users();
    Test().PlayUsers([](HWND list) {
        const HWND adding = OpenEditor('H');
        FillNew(adding, L"moi");
        PressKey('G', kAlt);
        EXPECT_NE(L"", ClosePlainMessage());
        WaitForClose(adding);
        WaitReady(list, L"Lv");
        PressKey(VK_DELETE);
        Answer(L"Bạn chắc chắn xoá người sử dụng này", L"Thông báo");
        EXPECT_NE(L"", ClosePlainMessage(L""));
        WaitReady(list, L"Lv");
        EXPECT_EQ(7, RowCount(list, L"Lv"));
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Users());
}

TEST_P(SecurityFailures, ReadOnlyDatabaseKeepsItsGroups) {
    MakeReadOnly();
    const std::wstring before = Test().Groups();
    Test().PlayGroups([](HWND groups) {
        const HWND rights = OpenRights(groups);
        PressKey('G', kAlt);
        EXPECT_NE(L"", ClosePlainMessage());
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey('G', kAlt);
        Answer(L"Không thể ghi dữ liệu vào bảng", L"Save Error");
        WaitReady(groups, L"txtName");
        PressKey('X', kAlt);
        Answer(L"Bạn có chắc chắn xoá các nhóm đã chọn không?", L"Delete");
        // The failing statement is not reported.
        Answer(L"1 danh mục đã bị xoá", L"Delete");
        WaitReady(groups, L"Lv1");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(before, Test().Groups());
}

TEST_P(SecurityFailures, MissingTablesAreToldAndTheFormsOpenAllTheSame) {
    Test().database.Execute(L"alter table groups rename to oldgroups");
    Test().database.Execute(L"alter table \"user\" rename to olduser");
    const auto open = [](const wchar_t* form) {
        return [form](HWND window) {
            EXPECT_EQ(form, WindowName(window));
            PressKey(VK_ESCAPE);
        };
    };
    // The message comes before the form.
    {
        const auto logon = CreateLogon();
        _bstr_t connect(Test().database.ConnectionString().c_str());
        DialogDriver user([&] {
            EXPECT_NE(L"", ClosePlainMessage());
            open(L"FrmMenu")(WaitForForm(L"FrmMenu"));
        });
        EXPECT_SUCCEEDED(logon->UserManager(&connect.GetBSTR()));
        user.Finish();
    }
    const auto logon = CreateLogon();
    _bstr_t connect(Test().database.ConnectionString().c_str());
    DialogDriver user([&] {
        EXPECT_TRUE(WaitUntil([] {
            for (const HWND window : TopWindows())
                if (WindowName(window) == L"FmGrp" && FocusWindow(window))
                    return true;
            if (!TopWindows().empty() && WindowName(TopWindows().front()).empty())
                ClosePlainMessage();
            return false;
        }));
        open(L"FmGrp")(WaitForForm(L"FmGrp"));
    });
    EXPECT_SUCCEEDED(logon->ShowGroup(&connect.GetBSTR()));
    user.Finish();
}

// The server ends the session; the file of an embedded database is emptied, as when its share goes
// and comes back.
class LostConnection : public Administration {
protected:
    void SetUp() override {
        Administration::SetUp();
        if (test_)
            before_ = Test().Users() + Test().Groups();
    }

    void TearDown() override {
        if (test_) {
            EXPECT_EQ(before_, AfterReturn());
        }
    }

    void Cut() const {
        if (Test().server) {
            Test().database.Query(L"select pg_terminate_backend(pid) from pg_stat_activity where "
                                  L"datname=current_database() and pid<>pg_backend_pid()");
            return;
        }
        ASSERT_TRUE(CopyFileW(File().c_str(), Kept().c_str(), FALSE));
        FILE* file = _wfopen(File().c_str(), L"wb");
        ASSERT_TRUE(file);
        fclose(file);
    }

private:
    std::wstring File() const { return Test().database.File(); }
    std::wstring Kept() const { return File() + L".kept"; }

    // What is there once the database can be reached again.
    std::wstring AfterReturn() const {
        if (!Test().server) {
            WIN32_FILE_ATTRIBUTE_DATA file = {};
            EXPECT_TRUE(GetFileAttributesExW(File().c_str(), GetFileExInfoStandard, &file));
            EXPECT_EQ(0u, file.nFileSizeLow);
            EXPECT_TRUE(CopyFileW(Kept().c_str(), File().c_str(), FALSE));
        }
        return Test().Users() + Test().Groups();
    }

    std::wstring before_;
};

INSTANTIATE_ADMINISTRATION(LostConnection);

TEST_P(LostConnection, EndsTheUserEditorAndLeavesTheUsers) {
    Test().PlayUsers([&](HWND list) {
        const HWND editor = OpenEditor('S');
        SetBox(editor, L"TxtDes", L"khac");
        Cut();
        PressKey('G', kAlt);
        // The look-ups and the update tell their errors, and the list that it cannot read again.
        CloseMessagesUntil(list, L"Lv");
        EXPECT_FALSE(IsWindow(editor));
        EXPECT_EQ(7, RowCount(list, L"Lv"));
        PressKey(VK_ESCAPE);
    });
}

TEST_P(LostConnection, IsToldByTheGroupManagerAndLeavesTheGroups) {
    Test().PlayGroups([&](HWND groups) {
        WaitReady(groups, L"Lv1");
        SetBox(groups, L"TxtDesc", L"khac");
        Cut();
        PressKey('G', kAlt);
        Answer(L"Không thể ghi dữ liệu vào bảng", L"Save Error");
        WaitReady(groups, L"txtName");
        PressKey(VK_ESCAPE);
    });
}

TEST_P(LostConnection, LeavesTheRightsAndTheFormsClose) {
    Test().PlayGroups([&](HWND groups) {
        const HWND rights = OpenRights(groups);
        PressKey(VK_TAB);
        PressKey(VK_SPACE);
        Cut();
        PressKey('G', kAlt);
        EXPECT_NE(L"", ClosePlainMessage());
        // The names of the columns could not be read: the form stays open.
        WaitReady(rights, L"CmdOk");
        PressKey(VK_ESCAPE);
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
}

// Another workstation works on the same tables while a form stands open here.
TEST_P(SecurityFailures, TwoHostsEditingUsersLoseNothing) {
    const SampleDatabase& elsewhere = Test().database;
    Test().PlayUsers([&](HWND list) {
        const HWND editor = OpenEditor('S');
        SetBox(editor, L"TxtDes", L"o day");
        elsewhere.Execute(L"update \"user\" set \"dec\"='noi khac' where code=2");
        elsewhere.Execute(
            L"insert into \"user\"(name,\"dec\",idgroup,password) values('xa','',1,65)");
        PressKey('G', kAlt);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"o day", Test().User(L"\"dec\"", 1));
    EXPECT_EQ(L"noi khac", Test().User(L"\"dec\"", 2));
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where name='xa'"));
}

TEST_P(SecurityFailures, TwoHostsGivingRightsTheLastOneWins) {
    const SampleDatabase& elsewhere = Test().database;
    Test().PlayGroups([&](HWND groups) {
        const HWND rights = OpenRights(groups);
        elsewhere.Execute(L"update groups set p1=1,p2=1,des='noi khac' where code=2");
        elsewhere.Execute(L"update groups set p1=1 where code=3");
        PressKey('G', kAlt);
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"5", Test().Group(L"p1", 2));
    EXPECT_EQ(L"48", Test().Group(L"p2", 2));
    EXPECT_EQ(L"noi khac", Test().Group(L"des", 2));
    EXPECT_EQ(L"1", Test().Group(L"p1", 3));
}

TEST_P(SecurityFailures, GroupDeletedElsewhereMeanwhileStaysDeleted) {
    const SampleDatabase& elsewhere = Test().database;
    Test().PlayGroups([&](HWND groups) {
        const HWND rights = OpenRights(groups);
        elsewhere.Execute(L"delete from groups where code=2");
        PressKey('G', kAlt);
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey('G', kAlt);
        WaitReady(groups, L"txtName");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"4", Test().Read(L"select count(*) from groups"));
    EXPECT_EQ(L"", Test().Group(L"name", 2));
}

} // namespace
} // namespace vndesk::test
