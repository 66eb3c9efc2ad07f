// SPDX-License-Identifier: MIT
// Records of logons and changes in VnAudit: one for each, in the right name, or the change is
// undone. The forms are worked by messages.
#include "support/forms/administrator.h"

namespace vndesk::test {
namespace {

constexpr long kAdmin = 3;
constexpr wchar_t kRefused[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";

class AuditTest : public Administration, public Administrator {
protected:
    const AdministrationTest& Test() const override { return *test_; }
    void SetUp() override {
        Administration::SetUp();
        if (!test_)
            return;
        test_->settings = SecuritySettings{.Audit = true};
        test_->userCode = kAdmin;
    }

    Lines Records() const { return AuditLines(Test().database); }
    std::wstring Everything() const { return Test().Users() + Test().Groups(); }

    void Refuse() {
        RefuseRecords(Test().database);
        isRefused_ = true;
    }
};

// With the table.
class Audit : public AuditTest {
protected:
    void SetUp() override {
        AuditTest::SetUp();
        if (test_)
            Upgrade(Test().database, L"audit");
    }
};

INSTANTIATE_ADMINISTRATION(Audit);
INSTANTIATE_DIALECTS(Audit, "PostgreSqlBound", "SqlServerBound");

TEST_P(Audit, TellsWhoLogsOnAndWhoTries) {
    test_->userCode = 0;
    EXPECT_EQ(0, LogOn(L"Admin", L"sai"));
    EXPECT_EQ(0, LogOn(L"x' OR 1=1) --", L"abc"));
    EXPECT_EQ(3, LogOn(L"ADMIN", L"abc"));
    EXPECT_EQ((Lines{kRefused, kRefused}), walker_.Told());
    EXPECT_EQ((Lines{L"logon-failed|Admin||", L"logon-failed|x' OR 1=1) --||", L"logon|Admin||"}),
              Records());
    const auto records = AuditRecords(Test().database);
    ASSERT_EQ(3u, records.size());
    EXPECT_EQ(L"3 Admin", records[0].userCode + L" " + records[0].userName);
    EXPECT_EQ(L"(null) x' OR 1=1) --", records[1].userCode + L" " + records[1].userName);
    EXPECT_EQ(L"3 Admin", records[2].userCode + L" " + records[2].userName);
}

TEST_P(Audit, TellsOfLogonsWithoutAWindow) {
    const auto host = Test().Host();
    Microsoft::WRL::ComPtr<ILogon2> logon;
    ASSERT_SUCCEEDED(host.As(&logon));
    long code = -1;
    const _bstr_t connection(Test().database.ConnectionString().c_str());
    EXPECT_SUCCEEDED(logon->VerifyPassword(connection, _bstr_t(L"Khách"), _bstr_t(L"sai"), &code));
    EXPECT_EQ(0, code);
    EXPECT_SUCCEEDED(logon->VerifyPassword(connection, _bstr_t(L"Khách"), _bstr_t(L""), &code));
    EXPECT_EQ(7, code);
    EXPECT_EQ((Lines{L"logon-failed|Khách||", L"logon|Khách||"}), Records());
    EXPECT_EQ(L"7", AuditRecords(Test().database).back().userCode);
}

TEST_P(Audit, ChangesOfUsersHaveOneRecordEach) {
    AddUser();
    EditUser(L"Nguyễn Hưng");
    ChangePassword();
    DeleteUser(1);
    EXPECT_EQ(
        (Lines{L"user-add|O'Brien||Name=O'Brien; Dec=Thủ kho; IdGroup=5",
               L"user-edit|Nguyễn Hưng|Name=Nguyễn Văn Hưng; Dec=Kế toán trưởng; IdGroup=2|"
               L"Name=Nguyễn Hưng; Dec=Kế toán trưởng; IdGroup=2",
               L"user-password|Admin||",
               L"user-delete|Trần Thị Mai|Name=Trần Thị Mai; Dec=Nhân viên bán hàng; IdGroup=3|"}),
        Records());
    EXPECT_EQ(Lines{L"Bạn chắc chắn xoá người sử dụng này"}, walker_.Told());
}

TEST_P(Audit, ChangesOfGroupsHaveOneRecordEach) {
    AddGroup();
    WriteRights();
    DeleteGroups();
    const std::wstring p = Test().server ? L"p" : L"P";
    Lines records = Records();
    // Groups that go together, in the order of the database.
    ASSERT_EQ(4u, records.size());
    std::sort(records.begin() + 2, records.end());
    EXPECT_EQ((Lines{L"group-add|Vận tải||Name=Vận tải; Des=Đội xe",
                     L"rights|Kế toán|" + p + L"1=5; " + p + L"2=48; " + p + L"3=31|" + p +
                         L"1=7; " + p + L"2=48; " + p + L"3=31",
                     L"group-delete|Kho|Name=Kho; Des=Bộ phận kho|",
                     L"group-delete|Kế toán|Name=Kế toán; Des=Phòng kế toán|"}),
              records);
}

TEST_P(Audit, EditedGroupHasARecordOfBeforeAndAfter) {
    EditGroup();
    EXPECT_EQ(Lines{L"group-edit|Tài vụ|Name=Kế toán; Des=Phòng kế toán|Name=Tài vụ; Des=Phòng kế "
                    L"toán"},
              Records());
}

TEST_P(Audit, RecordsHaveTheUserTheMachineAndTheServersTimeInUtc) {
    EditUser(L"Hưng");
    const auto records = AuditRecords(Test().database);
    ASSERT_EQ(1u, records.size());
    wchar_t name[256] = L"";
    DWORD size = 256;
    GetComputerNameW(name, &size);
    EXPECT_EQ(name, records[0].pc);
    size = 256;
    GetUserNameW(name, &size);
    EXPECT_EQ(name, records[0].winUser);
    EXPECT_EQ(L"3", records[0].userCode);
    EXPECT_EQ(L"Admin", records[0].userName);
    const std::wstring age =
        Test().server ? L"select abs(extract(epoch from (now() at time zone 'UTC') - \"at\")) < 60 "
                        L"from vnaudit"
                      : L"select abs(julianday('now') - julianday(\"at\")) * 86400 < 60 from "
                        L"vnaudit";
    EXPECT_EQ(L"1", Test().Read(age)) << ToUtf8(records[0].at);
}

TEST_P(Audit, WhoHasLoggedOnChangesInTheOwnName) {
    test_->userCode = 0;
    const auto host = Test().Host();
    const std::wstring& connection = Test().database.ConnectionString();
    EXPECT_EQ(7, PlayLogon(*host.Get(), connection, [&] {
                  const HWND form = walker_.Form(L"FrmLogon");
                  SetBox(form, L"TxtUser", L"khách");
                  walker_.Leave(form, L"CmdOk");
              }));
    Microsoft::WRL::ComPtr<ILogon2> logon;
    ASSERT_SUCCEEDED(host.As(&logon));
    EXPECT_SUCCEEDED(
        logon->WriteAudit(_bstr_t(connection.c_str()), _bstr_t(L"x"), nullptr, nullptr, nullptr));
    const auto records = AuditRecords(Test().database);
    ASSERT_EQ(2u, records.size());
    EXPECT_EQ(L"7 Khách", records[1].userCode + L" " + records[1].userName);
}

TEST_P(Audit, PasswordsThatHostsSetHaveARecordOrAreNotSet) {
    const auto logon = LogonWith(*Test().settings, kAdmin);
    const _bstr_t connection(Test().database.ConnectionString().c_str());
    EXPECT_SUCCEEDED(logon->SetPassword(connection, 1, _bstr_t(L"abc"), VARIANT_FALSE));
    EXPECT_EQ(Lines{L"user-password|Nguyễn Văn Hưng||"}, Records());
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where code=1 and password=1401"));
    RefuseRecords(Test().database);
    EXPECT_FAILED(logon->SetPassword(connection, 1, _bstr_t(L"xyz"), VARIANT_FALSE));
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where code=1 and password=1401"));
}

TEST_P(Audit, WithoutAUserTheRecordsHaveNoneAndHostsMaySetOne) {
    test_->userCode = 0;
    EditUser(L"Hưng");
    test_->userCode = 5;
    EditUser(L"Nguyễn Văn Hưng");
    const auto records = AuditRecords(Test().database);
    ASSERT_EQ(2u, records.size());
    EXPECT_EQ(L"(null)", records[0].userCode);
    EXPECT_EQ(L"5 Phạm Thu Hà", records[1].userCode + L" " + records[1].userName);
}

TEST_P(Audit, ChangesOfTheOwnNameAreInTheNameFromBefore) {
    WithUser(2, L"CmdEdit", [](HWND editor) { SetBox(editor, L"TxtUser", L"Quản trị"); });
    test_->userCode = 1;
    DeleteUser(0);
    const auto records = AuditRecords(Test().database);
    ASSERT_EQ(2u, records.size());
    EXPECT_EQ(L"3 Admin", records[0].userCode + L" " + records[0].userName);
    EXPECT_EQ(L"1 Nguyễn Văn Hưng", records[1].userCode + L" " + records[1].userName);
}

TEST_P(Audit, ConfirmingWithoutAChangeLeavesNoRecord) {
    WithUser(0, L"CmdEdit", [](HWND) {});
    InGroups([&](HWND groups) {
        ChooseGroup(groups, L"Kế toán");
        walker_.Do(groups, L"CmdWrite");
        walker_.Leave(walker_.Open(groups, L"CmdPms", L"FrPms"), L"CmdOk");
    });
    EXPECT_EQ(Lines{}, Records());
}

// Users of one name can only come from another program. The statement means all of them.
TEST_P(Audit, EveryUserThatAStatementChangesHasARecord) {
    Test().database.Execute(L"insert into \"user\"(name,\"dec\",idgroup,password) values("
                            L"'Nguyễn Văn Hưng','hai',2,65)");
    EditUser(L"Hưng");
    EXPECT_EQ(2u, Records().size());
    DeleteUser(0);
    ASSERT_EQ(4u, Records().size());
    EXPECT_EQ(L"user-delete|Hưng|Name=Hưng; Dec=Kế toán trưởng; IdGroup=2|", Records()[2]);
    EXPECT_EQ(L"6", Test().Read(L"select count(*) from \"user\""));
}

TEST_P(Audit, GroupThatIsGoneLeavesNoRecord) {
    InGroups([&](HWND groups) {
        ChooseGroup(groups, L"Kế toán");
        Test().database.Execute(L"delete from groups where code=2");
        SetBox(groups, L"txtName", L"Tài vụ");
        walker_.Do(groups, L"CmdWrite");
    });
    EXPECT_EQ(Lines{}, Records());
}

TEST_P(Audit, HostsWriteTheirOwnRecordsWhateverTheSettings) {
    const auto logon = LogonWith({}, kAdmin);
    const _bstr_t connection(Test().database.ConnectionString().c_str());
    const std::wstring longText(5000, L'ằ');
    EXPECT_SUCCEEDED(logon->WriteAudit(connection, _bstr_t(L"in-hoa-don"), _bstr_t(L"HĐ'1"),
                                       _bstr_t(L"a; b"), _bstr_t(longText.c_str())));
    EXPECT_SUCCEEDED(logon->WriteAudit(connection, _bstr_t(std::wstring(40, L'x').c_str()),
                                       _bstr_t(longText.c_str()), _bstr_t(), _bstr_t()));
    EXPECT_HR(E_INVALIDARG,
              logon->WriteAudit(connection, _bstr_t(L""), _bstr_t(), _bstr_t(), _bstr_t()));
    EXPECT_HR(E_INVALIDARG, logon->WriteAudit(connection, _bstr_t(std::wstring(41, L'x').c_str()),
                                              _bstr_t(), _bstr_t(), _bstr_t()));
    EXPECT_EQ((Lines{L"host:in-hoa-don|HĐ'1|a; b|" + longText,
                     L"host:" + std::wstring(40, L'x') + L"|" + longText.substr(0, 255) + L"||"}),
              Records());
    EXPECT_EQ(L"3 Admin", AuditRecords(Test().database)[0].userCode + L" " +
                              AuditRecords(Test().database)[0].userName);
}

TEST_P(Audit, NoColumnHoldsAPasswordOrItsNumber) {
    LogOn(L"Admin", L"matkhau");
    LogOn(L"Admin", L"abc");
    AddUser();
    WithUser(0, L"CmdEdit", [](HWND editor) {
        SetBox(editor, L"TxtPass", L"matkhau");
        SetBox(editor, L"txtConfirm", L"matkhau");
    });
    ChangePassword();
    const std::wstring number =
        Test().Read(L"select cast(cast(password as integer) as varchar(20)) from \"user\" where "
                    L"code=3");
    EXPECT_EQ(5u, Records().size());
    for (const AuditRecord& record : AuditRecords(Test().database))
        for (const std::wstring& cell :
             {record.userName, record.action, record.subject, record.before, record.after})
            for (const std::wstring& secret :
                 {std::wstring(L"matkhau"), std::wstring(L"abc"), std::wstring(L"1401"), number})
                EXPECT_EQ(std::wstring::npos, cell.find(secret)) << ToUtf8(cell);
}

TEST_P(Audit, NamesOfAnyLengthAreRecordedAsFarAsTheColumnsGo) {
    const std::wstring name(300, L'ằ');
    EXPECT_EQ(0, LogOn(name.c_str(), L"abc"));
    const auto records = AuditRecords(Test().database);
    ASSERT_EQ(1u, records.size());
    EXPECT_EQ(name.substr(0, 100), records[0].userName);
    EXPECT_EQ(name.substr(0, 255), records[0].subject);
}

// --- A record that cannot be written ---

TEST_P(Audit, ChangeOfAUserWhoseRecordIsRefusedIsUndoneAndTold) {
    Refuse();
    const std::wstring before = Everything();
    const auto expectTold = [&](const char* what) {
        const Lines told = walker_.TakeTold();
        EXPECT_TRUE(std::any_of(told.begin(), told.end(), [](const std::wstring& text) {
            return text.find(kAuditRefuses) != std::wstring::npos;
        })) << what;
        EXPECT_EQ(before, Everything()) << what;
    };
    AddUser();
    expectTold("add");
    EditUser(L"Hưng");
    expectTold("edit");
    ChangePassword();
    expectTold("password");
    Test().PlayUsers([&](HWND list) {
        SelectRow(list, L"Lv", 0);
        walker_.Do(list, L"CmdDel");
        EXPECT_EQ(7, RowCount(list, L"Lv"));
        walker_.Leave(list, L"CmdExit");
    });
    expectTold("delete");
}

TEST_P(Audit, ChangeOfAGroupWhoseRecordIsRefusedIsUndoneAndTold) {
    Refuse();
    const std::wstring before = Everything();
    AddGroup();
    EXPECT_EQ(Lines{L"Không thể thêm dữ liệu vào bảng"}, walker_.TakeTold());
    EXPECT_EQ(before, Everything());
    EditGroup();
    EXPECT_EQ(Lines{L"Không thể ghi dữ liệu vào bảng"}, walker_.TakeTold());
    EXPECT_EQ(before, Everything());
    InGroups([&](HWND groups) {
        ChooseGroup(groups, L"Kế toán");
        walker_.Do(groups, L"CmdDelete");
        EXPECT_EQ(5u, ListTexts(Control(groups, L"Lv1")).size());
    });
    Lines told = walker_.TakeTold();
    ASSERT_EQ(2u, told.size());
    EXPECT_NE(std::wstring::npos, told[1].find(kAuditRefuses));
    EXPECT_EQ(before, Everything());
    WriteRights();
    told = walker_.TakeTold();
    ASSERT_EQ(1u, told.size());
    EXPECT_NE(std::wstring::npos, told[0].find(kAuditRefuses));
    EXPECT_EQ(before, Everything());
}

TEST_P(Audit, LogonWhoseRecordIsRefusedIsDecidedAsAlways) {
    RefuseRecords(Test().database);
    EXPECT_EQ(3, LogOn(L"Admin", L"abc"));
    EXPECT_EQ(Lines{}, walker_.Told());
    EXPECT_EQ(0, LogOn(L"Admin", L"sai"));
    EXPECT_EQ(Lines{kRefused}, walker_.Told());
}

// --- Rights that another program has changed ---

constexpr wchar_t kChanged[] =
    L"Quyền của nhóm này đã được sửa ở máy khác. Bạn có chắc chắn ghi đè không?";

TEST_P(Audit, RightsChangedElsewhereAreOverwrittenOnlyAfterAYes) {
    Test().PlayGroups([&](HWND groups) {
        WaitReady(groups, L"Lv1");
        PressKey(VK_DOWN);
        PressKey('Q', kAlt);
        const HWND rights = WaitForForm(L"FrPms");
        WaitReady(rights, L"LstMenuBar");
        TickCommand(rights, 1);
        Test().database.Execute(L"update groups set p2=1 where code=2");
        PressKey('G', kAlt);
        Answer(kChanged, L"Thông báo", 'K');
        WaitReady(rights, L"CmdOk");
        EXPECT_EQ(L"5 1 31", Test().Read(L"select p1 || ' ' || p2 || ' ' || p3 from groups where "
                                         L"code=2"));
        EXPECT_EQ(Lines{}, Records());
        PressKey('G', kAlt);
        Answer(kChanged, L"Thông báo");
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"7 48 31",
              Test().Read(L"select p1 || ' ' || p2 || ' ' || p3 from groups where code=2"));
    const std::wstring p = Test().server ? L"p" : L"P";
    EXPECT_EQ(Lines{L"rights|Kế toán|" + p + L"1=5; " + p + L"2=1; " + p + L"3=31|" + p + L"1=7; " +
                    p + L"2=48; " + p + L"3=31"},
              Records());
}

TEST_P(Audit, RightsOfAGroupThatIsGoneLeaveNoRecord) {
    InGroups([&](HWND groups) {
        ChooseGroup(groups, L"Kế toán");
        const HWND rights = walker_.Open(groups, L"CmdPms", L"FrPms");
        TickCommand(rights, 1);
        Test().database.Execute(L"delete from groups where code=2");
        walker_.Leave(rights, L"CmdOk");
    });
    EXPECT_EQ(Lines{}, Records());
}

TEST_P(Audit, RightsThatCannotBeReadAgainAreNotOverwritten) {
    InGroups([&](HWND groups) {
        ChooseGroup(groups, L"Kế toán");
        const HWND rights = walker_.Open(groups, L"CmdPms", L"FrPms");
        Test().database.Execute(L"alter table groups rename column code to ma");
        walker_.Do(rights, L"CmdOk");
        Test().database.Execute(L"alter table groups rename column ma to code");
        ASSERT_EQ(1u, walker_.TakeTold().size());
        EXPECT_EQ(Lines{}, Records());
        walker_.Leave(rights, L"CmdOk");
    });
}

// --- Without the table ---

class MissingAudit : public AuditTest {};

INSTANTIATE_ADMINISTRATION(MissingAudit);

TEST_P(MissingAudit, RaisesAnErrorThatNamesTableAndScriptBeforeAFormOpens) {
    const std::wstring before = Everything();
    const auto logon = Test().Host();
    Microsoft::WRL::ComPtr<ILogon2> second;
    ASSERT_SUCCEEDED(logon.As(&second));
    _bstr_t connect(Test().database.ConnectionString().c_str()), name(L"Admin");
    long code = -1;
    constexpr HRESULT kMissingTable = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x210);
    const auto expectMissing = [&](HRESULT hr) {
        EXPECT_HR(kMissingTable, hr);
        Microsoft::WRL::ComPtr<IErrorInfo> error;
        ASSERT_EQ(S_OK, GetErrorInfo(0, &error));
        _bstr_t text;
        EXPECT_SUCCEEDED(error->GetDescription(text.GetAddress()));
        EXPECT_NE(nullptr, wcsstr(text, L"VnAudit"));
        EXPECT_NE(nullptr, wcsstr(text, Test().server ? L"schema/upgrade/audit.postgresql.sql"
                                                      : L"schema/upgrade/audit.sqlite.sql"));
    };
    // A form that opened all the same would be closed, and fail the test.
    DialogDriver user([] {}, 20000);
    expectMissing(logon->ShowLogon(&connect.GetBSTR(), &code));
    EXPECT_EQ(0, code);
    expectMissing(logon->ShowUser(&connect.GetBSTR(), &name.GetBSTR()));
    expectMissing(logon->UserManager(&connect.GetBSTR()));
    expectMissing(logon->ShowGroup(&connect.GetBSTR()));
    expectMissing(second->VerifyPassword(connect, name, _bstr_t(L"abc"), &code));
    expectMissing(second->SetPassword(connect, 3, _bstr_t(L"abc"), VARIANT_FALSE));
    expectMissing(second->WriteAudit(connect, _bstr_t(L"a"), name, name, name));
    user.Finish();
    EXPECT_EQ(before, Everything());
}

TEST_P(MissingAudit, ScriptMayBeRunTwice) {
    Upgrade(Test().database, L"audit");
    EditUser(L"Hưng");
    Upgrade(Test().database, L"audit");
    EXPECT_EQ(1u, Records().size());
}

} // namespace
} // namespace vndesk::test
