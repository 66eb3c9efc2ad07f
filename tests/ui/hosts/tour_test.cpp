// SPDX-License-Identifier: MIT
// The sample program takes the rights that the forms write: its commands are enabled by the masks
// of the group of whoever has logged on.
#include "support/forms/host_process.h"
#include "support/security_settings.h"

namespace vndesk::test {
namespace {

enum Commands : WORD {
    kLogOn = 101,
    kUsers = 103,
    kGroups = 104,
    kBackUp = 105,
    kQuit = 106,
    kAbout = 401,
    kFindCustomers = 501,
    kFindGoods = 502
};

constexpr DWORD kHelpStep = 3000;
constexpr wchar_t kNoUser[] = L"Chưa đăng nhập"; // in the status bar
constexpr wchar_t kNobody[] = L"Đăng nhập, Thoát, Giới thiệu";
constexpr wchar_t kEverything[] =
    L"Đăng nhập, Đổi mật khẩu, Người sử dụng, Nhóm người sử dụng, Sao lưu dữ liệu, Thoát, "
    L"Khách hàng, Nhà cung cấp, Hàng hoá, Nhóm hàng, Tài khoản, Tỉnh thành, "
    L"Tồn kho, Nhập xuất tồn, Doanh thu, Công nợ phải thu, Công nợ phải trả, "
    L"Tìm khách hàng, Tìm hàng hoá, Phiếu thu, Giới thiệu";
constexpr wchar_t kAccountant[] =
    L"Đăng nhập, Đổi mật khẩu, Nhóm người sử dụng, Thoát, Tài khoản, Tỉnh thành, "
    L"Tồn kho, Nhập xuất tồn, Doanh thu, Công nợ phải thu, Công nợ phải trả, "
    L"Phiếu thu, Giới thiệu";

// The running program and what it has printed.
class TourProgram {
public:
    explicit TourProgram(const SampleDatabase& database)
        : TourProgram(L"--connect", database.ConnectionString()) {}
    TourProgram(const wchar_t* option, const std::wstring& value)
        : process_(L"vntour.exe", {option, value}, Output()),
          window_(process_.WindowOfClass(L"VnTourWindow")) {}

    void LogOn(const wchar_t* name, const wchar_t* password) {
        const HWND dialog = process_.Form(L"FrmLogon", kProcessStart);
        SetBox(dialog, L"TxtUser", name);
        SetBox(dialog, L"TxtPass", password);
        Press(dialog, L"CmdOk");
        WaitClosed(dialog);
    }

    void Run(WORD command) const { PostMessageW(window_, WM_COMMAND, command, 0); }
    HWND Open(WORD command, const wchar_t* form) const {
        Run(command);
        return process_.Form(form);
    }
    HWND Form(const wchar_t* form) const { return process_.Form(form); }
    bool Has(const wchar_t* form) const { return process_.Has(form); }
    HWND WindowOfClass(const wchar_t* name) const { return process_.WindowOfClass(name); }

    // Whether the commands become these; tells what they are otherwise.
    void ExpectEnabled(const std::wstring& commands) const {
        if (!WaitUntil([&] { return Enabled() == commands; }, kProcessLimit))
            ADD_FAILURE() << "enabled are: " << ToUtf8(Enabled());
    }

    std::wstring Title() const { return TextOf(window_); }
    // Opens a menu, presses keys in it and waits for a help text; from the beginning again when one
    // was lost. Posted keys need no focus.
    void ExpectHelp(wchar_t menu, std::initializer_list<WPARAM> keys,
                    const std::wstring& help) const {
        for (int i = 0; i < 8; ++i) {
            LeaveMenu();
            PostMessageW(window_, WM_SYSCOMMAND, SC_KEYMENU, menu);
            for (const WPARAM key : keys) {
                WaitUntil([&] { return Status() != kNoUser; }, kHelpStep);
                PostMessageW(window_, WM_KEYDOWN, key, 1);
            }
            if (WaitUntil([&] { return Status() == help; }, kHelpStep))
                return;
        }
        ADD_FAILURE() << "the status bar shows: " << ToUtf8(Status());
    }
    void LeaveMenu() const {
        SendMessageW(window_, WM_CANCELMODE, 0, 0);
        ExpectStatus(kNoUser);
    }
    void ExpectStatus(const std::wstring& text) const {
        if (!WaitUntil([&] { return Status() == text; }, kProcessLimit))
            ADD_FAILURE() << "the status bar shows: " << ToUtf8(Status());
    }
    HWND ListOfRows() const { return FindWindowExW(window_, nullptr, WC_LISTVIEWW, nullptr); }

    DWORD Quit() {
        Run(kQuit);
        return process_.ExitCode();
    }

private:
    std::wstring Status() const {
        return TextOf(FindWindowExW(window_, nullptr, STATUSCLASSNAMEW, nullptr));
    }
    std::wstring Output() const { return folder_.File(L"output.txt"); }

    std::wstring Enabled() const {
        static constexpr std::wstring_view kStart = L"Enabled=";
        const std::wstring text = ReadUtf8File(Output());
        const size_t end = text.rfind(L'\r'), from = text.rfind(kStart);
        return from == std::wstring::npos || end < from
                   ? L""
                   : text.substr(from + kStart.size(),
                                 text.find(L'\r', from) - from - kStart.size());
    }

    TempDir folder_;
    HostProcess process_;
    HWND window_;
};

class TourRights : public Administration {};

INSTANTIATE_ADMINISTRATION(TourRights);

TEST_P(TourRights, FollowTheMasksOfTheUsersGroup) {
    TourProgram tour(Test().database);
    tour.ExpectEnabled(kNobody);
    tour.LogOn(L"Khách", L"");
    tour.ExpectEnabled(L"Đăng nhập, Thoát, Tồn kho, Giới thiệu");
    tour.Run(kLogOn);
    tour.LogOn(L"Lê Quốc Việt", L"KhoHang1");
    tour.ExpectEnabled(L"Đăng nhập, Đổi mật khẩu, Người sử dụng, Nhóm người sử dụng, Thoát, "
                       L"Tồn kho, Giới thiệu");
    tour.Run(kLogOn);
    tour.LogOn(L"Admin", L"abc");
    tour.ExpectEnabled(kEverything);
    tour.Run(kLogOn);
    Press(tour.Form(L"FrmLogon"), L"CMDCAN");
    tour.ExpectEnabled(kNobody);
    EXPECT_EQ(1u, tour.Quit());
}

TEST_P(TourRights, TakeEffectWhenTheFormOfGroupsCloses) {
    TourProgram tour(Test().database);
    tour.LogOn(L"Nguyễn Văn Hưng", L"hung2005");
    tour.ExpectEnabled(kAccountant);
    const HWND groups = tour.Open(kGroups, L"FmGrp");
    SelectGroup(groups, 1, L"Kế toán");
    Press(groups, L"CmdPms");
    const HWND rights = tour.Form(L"FrPms");
    ToggleRight(rights, 0, 2, L"1000");
    ToggleRight(rights, 1, 0, L"100011");
    Press(rights, L"CmdOk");
    WaitClosed(rights);
    Press(groups, L"CmdExit");
    tour.ExpectEnabled(L"Đăng nhập, Đổi mật khẩu, Thoát, Khách hàng, Tài khoản, Tỉnh thành, "
                       L"Tồn kho, Nhập xuất tồn, Doanh thu, Công nợ phải thu, Công nợ phải trả, "
                       L"Tìm khách hàng, Phiếu thu, Giới thiệu");
    EXPECT_EQ(0u, tour.Quit());
}

TEST_P(TourRights, CommandWithoutARightDoesNothing) {
    TourProgram tour(Test().database);
    tour.LogOn(L"Khách", L"");
    tour.ExpectEnabled(L"Đăng nhập, Thoát, Tồn kho, Giới thiệu");
    tour.Run(kUsers);
    const HWND box = tour.Open(kAbout, L"NoticeBox");
    EXPECT_FALSE(tour.Has(L"FrmMenu"));
    Press(box, L"Cmd1");
    WaitClosed(box);
    EXPECT_EQ(0u, tour.Quit());
}

TEST_P(TourRights, HelpOfTheCommandStandsInTheStatusBar) {
    TourProgram tour(Test().database);
    tour.ExpectEnabled(kNobody);
    const HWND logon = tour.Form(L"FrmLogon");
    Press(logon, L"CMDCAN");
    WaitClosed(logon);
    tour.ExpectHelp(L'h', {}, L"Đăng nhập bằng tên và mật khẩu");
    tour.ExpectHelp(L'h', {VK_END}, L"Kết thúc chương trình");
    tour.LeaveMenu();
    EXPECT_EQ(1u, tour.Quit());
}

TEST_P(TourRights, MaskColumnsCountByTheirPlace) {
    for (const wchar_t* change : {L"alter table groups rename column p1 to hethong",
                                  L"alter table groups rename column p3 to baocao"})
        Test().database.Execute(change);
    TourProgram tour(Test().database);
    tour.LogOn(L"Nguyễn Văn Hưng", L"hung2005");
    tour.ExpectEnabled(kAccountant);
    EXPECT_EQ(0u, tour.Quit());
}

TEST_P(TourRights, MissingAndEmptyMasksGrantNothing) {
    Test().database.Execute(L"alter table groups drop column p3");
    Test().database.Execute(L"update groups set p1=null where code=2");
    TourProgram tour(Test().database);
    tour.LogOn(L"Nguyễn Văn Hưng", L"hung2005");
    tour.ExpectEnabled(L"Đăng nhập, Thoát, Tài khoản, Tỉnh thành, Giới thiệu");
    EXPECT_EQ(0u, tour.Quit());
}

TEST_P(TourRights, EndWithTheUsersOwnRow) {
    TourProgram tour(Test().database);
    tour.LogOn(L"Lê Quốc Việt", L"KhoHang1");
    const HWND list = tour.Open(kUsers, L"FrmMenu");
    Test().database.Execute(L"delete from \"user\" where code=4");
    Press(list, L"CmdExit");
    tour.ExpectEnabled(kNobody);
    EXPECT_EQ(1u, tour.Quit());
}

TEST_P(TourRights, UserOfADeletedGroupHasNone) {
    Test().database.Execute(L"delete from groups where code=2");
    TourProgram tour(Test().database);
    tour.LogOn(L"Nguyễn Văn Hưng", L"hung2005");
    tour.ExpectEnabled(kNobody);
    EXPECT_EQ(0u, tour.Quit());
}

TEST_P(TourRights, ListsOfTheMenuShowTheirRows) {
    const struct {
        WORD command;
        const wchar_t* title;
        const wchar_t* rows;
    } lists[] = {{201, L"Khách hàng", L"khachhang"},
                 {203, L"Hàng hoá", L"hanghoa"},
                 {204, L"Nhóm hàng", L"nhomhang"},
                 {206, L"Tỉnh thành", L"tinhthanh"},
                 {301, L"Tồn kho", L"hanghoa where soluong>0"},
                 {304, L"Công nợ phải thu", L"khachhang where congno>0"}};
    TourProgram tour(Test().database);
    tour.LogOn(L"Admin", L"abc");
    tour.ExpectEnabled(kEverything);
    for (const auto& list : lists) {
        const std::wstring rows = Test().Read(std::wstring(L"select count(*) from ") + list.rows);
        tour.Run(list.command);
        EXPECT_TRUE(WaitUntil(
            [&] {
                const LRESULT shown = SendMessageW(tour.ListOfRows(), LVM_GETITEMCOUNT, 0, 0);
                return IsWindowVisible(tour.ListOfRows()) && std::to_wstring(shown) == rows &&
                       tour.Title().starts_with(list.title);
            },
            kProcessLimit))
            << list.command;
    }
    // What one user has called up is not for the next one.
    tour.Run(kLogOn);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(tour.ListOfRows()); }, kProcessLimit));
    Press(tour.Form(L"FrmLogon"), L"CMDCAN");
    tour.ExpectEnabled(kNobody);
    EXPECT_EQ(1u, tour.Quit());
}

// --- the search ---

class TourSearch : public Administration {
protected:
    // Opens the dialog and fills its first line; fields and operators by their places.
    static HWND FillIn(const TourProgram& tour, WORD command, int field, int predicate,
                       const wchar_t* value) {
        const HWND form = tour.Open(command, L"FrmFind");
        FillSearch(form, field, predicate, value);
        return form;
    }

    static void ExpectRows(const TourProgram& tour, const wchar_t* title, int rows) {
        EXPECT_TRUE(WaitUntil(
            [&] {
                return IsWindowVisible(tour.ListOfRows()) && tour.Title().starts_with(title) &&
                       SendMessageW(tour.ListOfRows(), LVM_GETITEMCOUNT, 0, 0) == rows;
            },
            kProcessLimit))
            << SendMessageW(tour.ListOfRows(), LVM_GETITEMCOUNT, 0, 0) << " rows, "
            << ToUtf8(tour.Title());
    }
};

INSTANTIATE_ADMINISTRATION(TourSearch);

TEST_P(TourSearch, ShowsTheRowsOfTheCondition) {
    TourProgram tour(Test().database);
    tour.LogOn(L"Admin", L"abc");
    tour.ExpectEnabled(kEverything);
    HWND form = FillIn(tour, kFindCustomers, 2, 0, L"HN");
    Press(form, L"CmdOk");
    WaitClosed(form);
    ExpectRows(tour, L"Khách hàng tìm được", 5);
    form = FillIn(tour, kFindGoods, 0, 1, L"DT");
    Press(form, L"CmdOk");
    WaitClosed(form);
    ExpectRows(tour, L"Hàng hoá tìm được", 7);
    // After Cancel the list stays.
    form = FillIn(tour, kFindCustomers, 2, 0, L"HP");
    Press(form, L"CmdCancel");
    WaitClosed(form);
    ExpectRows(tour, L"Hàng hoá tìm được", 7);
    EXPECT_EQ(0u, tour.Quit());
}

TEST_P(TourSearch, SaysThatNothingWasFound) {
    TourProgram tour(Test().database);
    tour.LogOn(L"Admin", L"abc");
    tour.ExpectEnabled(kEverything);
    Press(FillIn(tour, kFindCustomers, 2, 0, L"XX"), L"CmdOk");
    const HWND box = tour.Form(L"NoticeBox");
    EXPECT_EQ(L"Không tìm thấy dòng nào.", TextOf(box, L"Message"));
    Press(box, L"Cmd1");
    WaitClosed(box);
    ExpectRows(tour, L"Khách hàng tìm được", 0);
    EXPECT_EQ(0u, tour.Quit());
}

// A condition that the database does not accept is told, and the program goes on.
TEST_P(TourSearch, ToldErrorsLeaveTheProgramRunning) {
    TourProgram tour(Test().database);
    tour.LogOn(L"Admin", L"abc");
    tour.ExpectEnabled(kEverything);
    Press(FillIn(tour, kFindCustomers, 1, 0, L"x)"), L"CmdOk");
    const HWND box = tour.WindowOfClass(L"#32770");
    EXPECT_EQ(L"VnDesk", TextOf(box));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    WaitClosed(box);
    const HWND form = FillIn(tour, kFindCustomers, 2, 0, L"HN");
    Press(form, L"CmdOk");
    ExpectRows(tour, L"Khách hàng tìm được", 5);
    EXPECT_EQ(0u, tour.Quit());
}

// --- a database with the tables of 1.1 ---

// The tour keeps names for its users: other tests must not find them.
class TourKeys {
public:
    TourKeys() { Forget(); }
    ~TourKeys() { Forget(); }

private:
    static void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VnDesk\\Tour"); }
};

class TourSettings : public Administration {};

INSTANTIATE_ADMINISTRATION(TourSettings);

TEST_P(TourSettings, AreOnWhereTheTablesAreThere) {
    Upgrade(Test().database, L"accounts");
    Upgrade(Test().database, L"audit");
    const TourKeys keys;
    TourProgram tour(Test().database);
    const HWND dialog = tour.Form(L"FrmLogon");
    EXPECT_EQ(L"Đăng nhập", TextOf(dialog));
    EXPECT_EQ(L"Công ty TNHH Thương mại Hưng Thịnh", TextOf(dialog, L"Banner"));
    SetBox(dialog, L"TxtUser", L"Lê Quốc Việt");
    SetBox(dialog, L"TxtPass", L"sai");
    Press(dialog, L"CmdOk");
    const HWND box = tour.Form(L"MessageBox");
    EXPECT_TRUE(TextOf(box, L"Message").ends_with(L"Còn 4 lần thử."))
        << ToUtf8(TextOf(box, L"Message"));
    Press(box, L"Cmd1");
    WaitClosed(box);
    tour.LogOn(L"Lê Quốc Việt", L"KhoHang1");
    tour.ExpectEnabled(L"Đăng nhập, Đổi mật khẩu, Người sử dụng, Nhóm người sử dụng, Thoát, "
                       L"Tồn kho, Giới thiệu");
    const HWND list = tour.Open(kUsers, L"FrmMenu");
    EXPECT_NE(nullptr, Control(list, L"CmdUnlock"));
    Press(list, L"CmdExit");
    WaitClosed(list);
    EXPECT_EQ(0u, tour.Quit());
    EXPECT_EQ((std::vector<std::wstring>{L"logon-failed|Lê Quốc Việt||", L"logon|Lê Quốc Việt||"}),
              AuditLines(Test().database));
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from vnuser where usercode=4 and passwordhash "
                                L"like 'pbkdf2-sha256$%'"));
}

TEST_P(TourSettings, AreOffWhereOneTableIsMissing) {
    Upgrade(Test().database, L"accounts");
    TourProgram tour(Test().database);
    tour.LogOn(L"Lê Quốc Việt", L"KhoHang1");
    const HWND list = tour.Open(kUsers, L"FrmMenu");
    EXPECT_EQ(nullptr, FindControl(list, L"CmdUnlock"));
    Press(list, L"CmdExit");
    WaitClosed(list);
    EXPECT_EQ(0u, tour.Quit());
    EXPECT_EQ(L"0", Test().Read(L"select count(*) from vnuser"));
}

TEST(TourBackUp, CopiesTheFileBesideItAndAsksUntilToldNotTo) {
    const TourKeys keys;
    const SampleDatabase database = SampleDatabase::Embedded();
    const std::wstring copy = database.File() + L".bak";
    TourProgram tour(L"--database", database.File());
    tour.LogOn(L"Admin", L"abc");
    tour.ExpectEnabled(kEverything);
    HWND box = tour.Open(kBackUp, L"NoticeBox");
    EXPECT_EQ(L"Sao lưu dữ liệu?", TextOf(box, L"Heading"));
    Press(box, L"Cmd2");
    WaitClosed(box);
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(copy.c_str()));
    box = tour.Open(kBackUp, L"NoticeBox");
    SendMessageW(Control(box, L"Check"), BM_SETCHECK, BST_CHECKED, 0);
    Press(box, L"Cmd1");
    WaitClosed(box);
    for (int i = 0; i < 2; ++i) {
        box = tour.Form(L"NoticeBox");
        EXPECT_EQ(L"Đã sao lưu dữ liệu.", TextOf(box, L"Message"));
        EXPECT_EQ(L"7", OdbcSession(L"Driver=SQLite3;Database=" + DriverPath(copy) + L";")
                            .ScalarText(L"select count(*) from \"user\""));
        Press(box, L"Cmd1");
        WaitClosed(box);
        if (i == 0)
            tour.Run(kBackUp);
    }
    EXPECT_EQ(0u, tour.Quit());
}

} // namespace
} // namespace vndesk::test
