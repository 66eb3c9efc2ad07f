// SPDX-License-Identifier: MIT
// Hashes, locks and records on MariaDB, whose session has another time zone than UTC.
#include "mariadb/mariadb_fixture.h"

#include "passwords/password_hash.h"
#include "support/accounts.h"
#include "support/setup.h"

namespace vndesk::test {
namespace {

constexpr long kHung = 1, kAdmin = 3;
constexpr wchar_t kHungName[] = L"Nguyễn Văn Hưng", kHungPassword[] = L"hung2005";

// A connection string with another value for a key.
std::wstring WithKey(std::wstring text, const std::wstring& key, const std::wstring& value) {
    const size_t from = text.find(L";" + key + L"=") + 1;
    return text.replace(from, text.find(L';', from) - from, key + L"=" + value);
}

class MariaDbAccounts : public MariaDbTest {
protected:
    void SetUp() override {
        MariaDbTest::SetUp();
        if (!test_)
            return;
        for (const wchar_t* script : {L"accounts", L"audit"})
            Upgrade(Test().database, script);
        test_->settings->LockAfter = 3;
        test_->settings->LockMinutes = 10;
        test_->settings->Audit = true;
    }

    Microsoft::WRL::ComPtr<ILogon2> Logon() const { return LogonWith(*Test().settings, kAdmin); }
    _bstr_t Connect() const { return Connection().c_str(); }
    long Verify(const wchar_t* name, const wchar_t* password) const {
        long code = -1;
        EXPECT_SUCCEEDED(
            Logon()->VerifyPassword(Connect(), _bstr_t(name), _bstr_t(password), &code));
        return code;
    }
    std::wstring Kept(const wchar_t* column, long code = kHung) const {
        return Read(std::wstring(L"select ") + column + L" from VnUser where UserCode=" +
                    std::to_wstring(code));
    }
    bool HasHash(long code = kHung) const { return Kept(L"length(PasswordHash)>60", code) == L"1"; }
    bool HasHashOf(const wchar_t* password) const {
        return MatchPassword(password, Kept(L"PasswordHash")) == PasswordMatch::Yes;
    }
    Lines Records() const {
        return Rows(L"select Action,Subject,`Before`,`After` from VnAudit order by Code");
    }
};
// Where accounts or records are kept, values are bound.
INSTANTIATE_DIALECTS(MariaDbAccounts, "MariaDbBound");

TEST_P(MariaDbAccounts, LogonTurnsTheNumberIntoAHash) {
    test_->settings->PasswordScheme = vnPasswordPbkdf2;
    EXPECT_EQ(kHung, LogOn(kHungName, kHungPassword));
    EXPECT_EQ(L"-1", Read(L"select Password from `User` where Code=1"));
    EXPECT_TRUE(HasHash());
    EXPECT_EQ(kHung, Verify(L"nguyễn VĂN hưng", kHungPassword));
    EXPECT_EQ(L"1", Kept(L"abs(timestampdiff(second,LastAt,utc_timestamp()))<60"));
}

TEST_P(MariaDbAccounts, WrongPasswordsLockAndTheListUnlocks) {
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(0, Verify(L"nguyễn văn hưng", L"sai"));
    EXPECT_EQ(L"2|1", Kept(L"concat(Failed,'|',LockedUntil is null)"));
    EXPECT_EQ(0, Verify(kHungName, L"sai"));
    EXPECT_EQ(L"1", Kept(L"timestampdiff(second,utc_timestamp(),LockedUntil) between 570 and 600"));
    EXPECT_EQ(0, Verify(kHungName, kHungPassword));
    EXPECT_EQ((Lines{L"logon-failed|Nguyễn Văn Hưng||", L"logon-failed|Nguyễn Văn Hưng||",
                     L"logon-failed|Nguyễn Văn Hưng||", L"logon-locked|Nguyễn Văn Hưng||"}),
              Records());
    Test().PlayUsers([&](HWND list) {
        EXPECT_NE(L"", CellText(Control(list, L"Lv"), 0, 3));
        SelectRow(list, L"Lv", 0);
        walker_.Do(list, L"CmdUnlock");
        EXPECT_EQ(L"", CellText(Control(list, L"Lv"), 0, 3));
        walker_.Leave(list, L"CmdExit");
    });
    EXPECT_EQ(kHung, Verify(kHungName, kHungPassword));
    EXPECT_EQ(L"0|1", Kept(L"concat(Failed,'|',FirstAt is null and LockedUntil is null)"));
}

TEST_P(MariaDbAccounts, LocksAndWindowsThatAreOverAreForgotten) {
    EXPECT_EQ(0, Verify(kHungName, L"sai"));
    Execute(L"update VnUser set Failed=3,LockedUntil=utc_timestamp()-interval 1 second");
    EXPECT_EQ(0, Verify(kHungName, L"sai"));
    EXPECT_EQ(L"1|1", Kept(L"concat(Failed,'|',LockedUntil is null)"));
    Execute(L"update VnUser set Failed=2,FirstAt=utc_timestamp()-interval 16 minute");
    EXPECT_EQ(0, Verify(kHungName, L"sai"));
    EXPECT_EQ(L"1", Kept(L"Failed"));
    // A clock that was set back.
    Execute(L"update VnUser set FirstAt=utc_timestamp()+interval 9 day,"
            L"LockedUntil=utc_timestamp()+interval 9 day");
    EXPECT_EQ(0, Verify(kHungName, kHungPassword));
    EXPECT_EQ(L"1", Kept(L"timestampdiff(second,utc_timestamp(),LockedUntil) between 570 and 600"));
    Execute(L"update VnUser set LockedUntil=null");
    EXPECT_EQ(0, Verify(kHungName, L"sai"));
    EXPECT_EQ(L"2|1",
              Kept(L"concat(Failed,'|',abs(timestampdiff(second,FirstAt,utc_timestamp()))<60)"));
}

TEST_P(MariaDbAccounts, MainAdministratorIsDelayed) {
    EXPECT_EQ(0, Verify(L"Admin", L"sai"));
    EXPECT_EQ(L"1",
              Kept(L"timestampdiff(second,utc_timestamp(),LockedUntil) between 0 and 2", kAdmin));
    Execute(L"update VnUser set LockedUntil=utc_timestamp()");
    EXPECT_EQ(kAdmin, Verify(L"Admin", L"abc"));
    EXPECT_EQ(L"0|1", Kept(L"concat(Failed,'|',LockedUntil is null)", kAdmin));
}

TEST_P(MariaDbAccounts, HostsSetPasswordsUnlockAndRecord) {
    test_->settings->PasswordScheme = vnPasswordPbkdf2;
    EXPECT_SUCCEEDED(
        Logon()->SetPassword(Connect(), kHung, _bstr_t(L"Ngựa đúng pin"), VARIANT_TRUE));
    EXPECT_TRUE(HasHashOf(L"Ngựa đúng pin"));
    EXPECT_EQ(L"1", Kept(L"MustChange"));
    // The same once more: nothing changes, and that is no failure.
    EXPECT_SUCCEEDED(Logon()->UnlockUser(Connect(), kHung));
    EXPECT_SUCCEEDED(Logon()->UnlockUser(Connect(), kHung));
    EXPECT_SUCCEEDED(Logon()->WriteAudit(Connect(), _bstr_t(L"import"), _bstr_t(L"O'Brien\\"),
                                         _bstr_t(L"chéo\\'"), _bstr_t(L"31")));
    EXPECT_EQ((Lines{L"user-password|Nguyễn Văn Hưng||", L"host:import|O'Brien\\|chéo\\'|31"}),
              Rows(L"select Action,Subject,`Before`,`After` from VnAudit where Action not like "
                   L"'%unlock%' order by Code"));
    EXPECT_EQ(
        L"1",
        Read(L"select min(abs(timestampdiff(second,`At`,utc_timestamp()))<60 and UserCode=3 and "
             L"UserName='Admin') from VnAudit"));
}

TEST_P(MariaDbAccounts, WhoMustChangeDoesSoAtTheLogon) {
    test_->settings->PasswordScheme = vnPasswordPbkdf2;
    Execute(L"update `User` set Password=-1 where Code=1");
    Execute(L"insert into VnUser(UserCode,PasswordHash,MustChange) values(1,'" + CheapHash(L"tạm") +
            L"',1)");
    EXPECT_EQ(kHung, PlayLogon(*Test().Host().Get(), Connection(), [&] {
                  const HWND form = walker_.Form(L"FrmLogon");
                  SetBox(form, L"TxtUser", kHungName);
                  SetBox(form, L"TxtPass", L"tạm");
                  Press(form, L"CmdOk");
                  const HWND editor = walker_.Form(L"FrmInput");
                  SetBox(editor, L"TxtCurrent", L"tạm");
                  SetBox(editor, L"TxtPass", L"Ngựa đúng pin");
                  SetBox(editor, L"txtConfirm", L"Ngựa đúng pin");
                  walker_.Leave(editor, L"CmdOk");
              }));
    EXPECT_TRUE(HasHashOf(L"Ngựa đúng pin"));
    EXPECT_EQ(L"0", Kept(L"MustChange"));
}

TEST_P(MariaDbAccounts, ChangesOfUsersAreRecorded) {
    test_->settings->PasswordScheme = vnPasswordPbkdf2;
    WithUser(0, L"CmdAdd", [](HWND editor) {
        SetBox(editor, L"TxtUser", L"O'Brien\\");
        SetBox(editor, L"TxtDes", L"Thủ kho");
        SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 3, 0);
        SetBox(editor, L"TxtPass", L"Ngựa đúng pin");
        SetBox(editor, L"txtConfirm", L"Ngựa đúng pin");
    });
    EXPECT_TRUE(HasHash(10));
    EditUser(L"Nguyễn Hưng");
    WithUser(2, L"CmdEdit",
             [](HWND editor) { SendMessageW(Control(editor, L"chkMustChange"), BM_CLICK, 0, 0); });
    EXPECT_EQ(L"1", Kept(L"MustChange", kAdmin));
    DeleteUser(7);
    EXPECT_EQ(L"0", Read(L"select count(*) from VnUser where UserCode=10"));
    EXPECT_EQ((Lines{L"user-add|O'Brien\\||Name=O'Brien\\; Dec=Thủ kho; IdGroup=5",
                     L"user-edit|Nguyễn Hưng|Name=Nguyễn Văn Hưng; Dec=Kế toán trưởng; IdGroup=2|"
                     L"Name=Nguyễn Hưng; Dec=Kế toán trưởng; IdGroup=2",
                     L"user-edit|Admin|MustChange=0|MustChange=1",
                     L"user-delete|O'Brien\\|Name=O'Brien\\; Dec=Thủ kho; IdGroup=5|"}),
              Records());
}

TEST_P(MariaDbAccounts, ChangesOfGroupsAreRecorded) {
    AddGroup();
    WriteRights();
    EditGroup();
    Execute(L"update `Groups` set Name='Kế toán' where Code=2");
    DeleteGroups();
    EXPECT_EQ((Lines{L"group-add|Vận tải||Name=Vận tải; Des=Đội xe",
                     L"rights|Kế toán|P1=5; P2=48; P3=31|P1=7; P2=48; P3=31",
                     L"group-edit|Tài vụ|Name=Kế toán; Des=Phòng kế toán|"
                     L"Name=Tài vụ; Des=Phòng kế toán",
                     L"group-delete|Kế toán|Name=Kế toán; Des=Phòng kế toán|",
                     L"group-delete|Kho|Name=Kho; Des=Bộ phận kho|"}),
              Records());
}

// What cannot be recorded is not done.
TEST_P(MariaDbAccounts, RefusedRecordTakesTheChangeBack) {
    Execute(L"create trigger refusal before insert on VnAudit for each row signal sqlstate '45000' "
            L"set message_text='khong ghi duoc'");
    isRefused_ = true;
    const Lines users = Rows(L"select * from `User` order by Code");
    EditUser(L"Nguyễn Hưng");
    EXPECT_EQ(1u, walker_.Told().size());
    EXPECT_EQ(users, Rows(L"select * from `User` order by Code"));
    EXPECT_FAILED(Logon()->SetPassword(Connect(), kHung, _bstr_t(L"Ngựa đúng pin"), VARIANT_FALSE));
    EXPECT_EQ(users, Rows(L"select * from `User` order by Code"));
    EXPECT_EQ(L"0", Read(L"select count(*) from VnUser where PasswordHash is not null"));
}

// --- Rights in the server ---

// The statements that the guide has for MariaDB.
std::wstring RolesOfTheGuide() {
    const std::wstring page = ReadUtf8File(SourceDir() + L"\\docs\\security.md");
    constexpr std::wstring_view kBegin = L"```sql\n", kEnd = L"```";
    const size_t from = page.find(kBegin, page.find(L"\nMariaDB, in the database")) + kBegin.size();
    return page.substr(from, page.find(kEnd, from) - from);
}

TEST_P(MariaDbAccounts, RolesOfTheGuideAreEnoughAndNoMore) {
    for (const wchar_t* role : {L"vndesk_user", L"vndesk_admin"})
        Execute(std::wstring(L"drop role if exists ") + role);
    OdbcSession(Test().database.OdbcString()).ExecuteScript(RolesOfTheGuide());
    const auto connectionOf = [&](const std::wstring& user, const wchar_t* role) {
        Execute(L"create or replace user " + user + L" identified by 'x'");
        Execute(std::wstring(L"grant ") + role + L" to " + user);
        Execute(std::wstring(L"set default role ") + role + L" for " + user);
        return WithKey(WithKey(Connection(), L"Uid", user), L"Pwd", L"x");
    };
    const auto refuses = [](OdbcSession& session, const wchar_t* statement) {
        EXPECT_THROW(session.Execute(statement), std::runtime_error) << ToUtf8(statement);
    };

    const std::wstring cashier = connectionOf(L"thungan", L"vndesk_user");
    test_->settings->PasswordScheme = vnPasswordPbkdf2;
    long code = 0;
    EXPECT_SUCCEEDED(Logon()->VerifyPassword(_bstr_t(cashier.c_str()), _bstr_t(kHungName),
                                             _bstr_t(kHungPassword), &code));
    EXPECT_EQ(kHung, code);
    EXPECT_TRUE(HasHash());
    test_->settings->PasswordScheme = vnPasswordCode;
    EXPECT_SUCCEEDED(
        Logon()->SetPassword(_bstr_t(cashier.c_str()), 2, _bstr_t(L"xyz"), VARIANT_FALSE));
    EXPECT_EQ(L"1884", Read(L"select Password from `User` where Code=2"));
    EXPECT_EQ(2u, Records().size());
    OdbcSession asCashier(cashier);
    refuses(asCashier, L"update `User` set Name='x' where Code=2");
    refuses(asCashier, L"insert into `User`(Name) values('x')");
    refuses(asCashier, L"update `Groups` set P1=1");
    refuses(asCashier, L"delete from VnAudit");
    refuses(asCashier, L"delete from VnUser");

    OdbcSession asAdministrator(connectionOf(L"quantri", L"vndesk_admin"));
    for (const wchar_t* statement :
         {L"insert into `User`(Name) values('x')", L"update `User` set Name='y' where Name='x'",
          L"delete from `User` where Name='y'", L"insert into `Groups`(Name) values('x')",
          L"update `Groups` set P1=1 where Name='x'", L"delete from `Groups` where Name='x'",
          L"delete from VnUser where UserCode=1"})
        EXPECT_EQ(1, asAdministrator.Execute(statement)) << ToUtf8(statement);
    refuses(asAdministrator, L"delete from VnAudit");
    refuses(asAdministrator, L"update VnAudit set Action='x'");
}

// --- Many programs at once ---

TEST_P(MariaDbAccounts, ProgramsThatFailAtOnceAreAllCounted) {
    const TempDir folder;
    const std::wstring script = folder.File(L"fail.vbs");
    WriteText(script,
              "Set settings = CreateObject(\"VnDesk.clsSettings\")\r\n"
              "settings.Dialect = 5\r\nsettings.LockAfter = 9\r\n"
              "Set logon = CreateObject(\"VnDesk.clsLogon\")\r\n"
              "Set logon.Settings = settings\r\n"
              "WScript.Quit logon.VerifyPassword(WScript.Arguments(0), \"Admin2\", \"sai\")");
    Execute(L"insert into `User`(Code,Name,Password) values(20,'Admin2',1401)");
    std::vector<std::unique_ptr<HostProcess>> hosts;
    for (int i = 0; i < 4; ++i)
        hosts.push_back(std::make_unique<HostProcess>(
            L"vnscript.exe", std::vector<std::wstring>{script, Connection()}));
    for (const auto& host : hosts)
        EXPECT_EQ(0u, host->ExitCode());
    EXPECT_EQ(L"4|1", Kept(L"concat(Failed,'|',LockedUntil is null)", 20));
}

} // namespace
} // namespace vndesk::test
