// SPDX-License-Identifier: MIT
#include "faults/uses.h"

#include <optional>

#include "comkit/base/com_error.h"
#include "data/stores/options.h"
#include "support/new_object.h"
#include "support/security_settings.h"
#include "support/text.h"
#include "support/forms/lookup_host.h"
#include "support/forms/search.h"

namespace vndesk::test {

namespace {

constexpr OptionName kStoredOption = {L"BaoCao", L"SoDongMoiTrang"};
constexpr OptionName kNewOption = {L"BaoCao", L"Moi"};

// --- What the host calls ---

using Call = std::function<std::wstring(const SampleDatabase&, const std::wstring&)>;

template <class Operation> Call OnLogon(Operation operation) {
    return [operation](const SampleDatabase&, const std::wstring& connection) {
        _bstr_t connect(connection.c_str());
        const auto logon = CreateLogon();
        GovernInDialect(logon.Get());
        return operation(*logon.Get(), &connect.GetBSTR());
    };
}

const Call kShowLogon = OnLogon([](ILogon& logon, BSTR* connect) {
    long code = -1;
    EXPECT_SUCCEEDED(logon.ShowLogon(connect, &code));
    return L"user " + std::to_wstring(code);
});
const Call kLogonWithReasons = [](const SampleDatabase&, const std::wstring& connection) {
    _bstr_t connect(connection.c_str());
    long code = -1;
    EXPECT_SUCCEEDED(
        LogonWith({.ConnectionErrors = vnErrorsShowReason})->ShowLogon(&connect.GetBSTR(), &code));
    return L"user " + std::to_wstring(code);
};
const Call kUserManager = OnLogon([](ILogon& logon, BSTR* connect) {
    EXPECT_SUCCEEDED(logon.UserManager(connect));
    return std::wstring();
});
const Call kUsersThatAreFound = [](const SampleDatabase&, const std::wstring& connection) {
    _bstr_t connect(connection.c_str());
    EXPECT_SUCCEEDED(LogonWith(kFindNames)->UserManager(&connect.GetBSTR()));
    return std::wstring();
};
const Call kShowUser = OnLogon([](ILogon& logon, BSTR* connect) {
    _bstr_t name(L"Admin");
    EXPECT_SUCCEEDED(logon.ShowUser(connect, &name.GetBSTR()));
    return std::wstring();
});
const Call kShowGroup = OnLogon([](ILogon& logon, BSTR* connect) {
    EXPECT_SUCCEEDED(logon.ShowGroup(connect));
    return std::wstring();
});

// A user of MakeSmall who has typed wrong passwords.
constexpr long kLocked = 3;

// With records. A table that cannot be looked at counts as missing.
template <class Operation> Call Recorded(const SecuritySettings& settings, Operation operation) {
    return [=](const SampleDatabase&, const std::wstring& connection) -> std::wstring {
        _bstr_t connect(connection.c_str());
        const auto logon = LogonWith(settings, 3);
        return SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR())) ? L"" : L"raised";
    };
}

// The properties of clsSearch may raise what ADO says; the host then has no condition either.
std::wstring SearchByClass(const SampleDatabase&, const std::wstring& connection) {
    const auto search = CreateSearch();
    if (FAILED(search->put_ActiveConnection(_variant_t(connection.c_str()))))
        return L"";
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    long modal = 1;
    const HRESULT shown = search->Show(&modal, Missing());
    const std::wstring result = ResultOf(*search.Get());
    EXPECT_TRUE(SUCCEEDED(shown) || result.empty());
    return result;
}

std::wstring SearchAtOnce(const SampleDatabase&, const std::wstring& connection) {
    const ComPtr<IVarnok> varnok = NewObject<IVarnok>(L"VnDesk.Varnok");
    _bstr_t condition;
    EXPECT_SUCCEEDED(varnok->FindShow(_variant_t(connection.c_str()), _bstr_t(L"KhachHang"),
                                      condition.GetAddress()));
    return {static_cast<const wchar_t*>(condition) ? static_cast<const wchar_t*>(condition) : L"",
            condition.length()};
}

void ServeMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// The boxes of a host's form, one of which the user fills and leaves; what is then chosen.
template <class Fill>
Call InBoxes(Fill fill, const std::optional<SecuritySettings>& settings = std::nullopt) {
    return [=](const SampleDatabase& database, const std::wstring& connection) {
        LookupHost host(database);
        if (settings)
            Govern(host.item.Get(), MakeSettings(*settings));
        EXPECT_SUCCEEDED(host.item->put_ActiveConnection(_variant_t(connection.c_str())));
        EXPECT_SUCCEEDED(
            host.item->put_SqlName(_bstr_t(L"Select Code,Name From TinhThanh Where Name")));
        EXPECT_SUCCEEDED(
            host.item->put_SqlID(_bstr_t(L"Select Code,Name From TinhThanh Where Code")));
        fill(host.form);
        ServeMessages();
        return Read(host.item, &ISelItem::get_SelID) + L" " +
               Read(host.item, &ISelItem::get_SelName);
    };
}

void EnterName(LookupForm& form) {
    const HWND box = form.Box(L"TxtSel");
    SetFocus(box);
    SetWindowTextW(box, L"H");
    SendMessageW(box, WM_KEYDOWN, VK_RETURN, 0);
}
const Call kPickByName = InBoxes(EnterName);
const Call kFindByName = InBoxes(EnterName, kFindNames);
const Call kEnterCode = InBoxes([](LookupForm& form) {
    SetFocus(form.Box(L"txtSelID"));
    SetWindowTextW(form.Box(L"txtSelID"), L"HP");
    SetFocus(form.Box(L"TxtOther"));
});

template <class Body> Call OnOptions(Body body) {
    return [body](const SampleDatabase&, const std::wstring& connection) {
        Database opened = OpenConnection(connection);
        std::wstring answer = body(opened);
        CloseConnection(opened);
        return answer;
    };
}

template <class Body> std::wstring Answered(Body write) {
    return write() == 0 ? L"written" : L"refused";
}

// --- What the user does ---

void FillUser(HWND editor, const wchar_t* name) {
    SetBox(editor, L"TxtUser", name);
    if (ListTexts(FindControl(editor, L"TxtIdGroup")).size() == 2)
        ChooseItem(editor, L"TxtIdGroup", 0);
    SetBox(editor, L"TxtPass", L"abc");
    SetBox(editor, L"txtConfirm", L"abc");
}

std::function<void(HWND)> Pressing(const wchar_t* button) {
    return [button](HWND form) { Press(form, button); };
}

// A row or an item that could not be read is not chosen.
std::function<void(HWND)> OnFirstUser(const wchar_t* button) {
    return [button](HWND list) {
        if (RowCount(list, L"Lv") == 0)
            return;
        SelectRow(list, L"Lv", 0);
        Press(list, button);
    };
}

void LogOnAsAdmin(HWND form) {
    SetBox(form, L"TxtUser", L"Admin");
    SetBox(form, L"TxtPass", L"abc");
    Press(form, L"CmdOk");
}

bool HasGroups(HWND groups, size_t count) {
    return ListTexts(FindControl(groups, L"Lv1")).size() == count;
}

void ChooseSecondGroup(HWND groups) {
    if (HasGroups(groups, 2))
        ChooseItem(groups, L"Lv1", 1);
}

std::function<void(HWND)> OnSecondGroup(const wchar_t* button) {
    return [button](HWND groups) {
        if (HasGroups(groups, 2))
            Press(groups, button);
    };
}

void TickSecondCommand(HWND rights) {
    const HWND list = FindControl(rights, L"LstSubMenu");
    if (RowCount(rights, L"LstSubMenu") == 2)
        ListView_SetCheckState(list, 1, TRUE);
}

void WriteTickedRights(HWND rights) {
    if (Ticks(rights, L"LstSubMenu") == L"11")
        Press(rights, L"CmdOk");
}

void GoDown(HWND form, const wchar_t* combo, int items) {
    for (int i = 0; i < items; ++i)
        SendMessageW(ListOf(form, combo), WM_KEYDOWN, VK_DOWN, 0);
}

void FindCode(HWND form) {
    GoDown(form, L"CmbPredicate(0)", 1);
    SetBox(form, L"MskValue(0)", L"KH001");
    Press(form, L"CmdOk");
}

void LookUpProvince(HWND form) {
    GoDown(form, L"CmbFld(0)", 2);
    GoDown(form, L"CmbPredicate(0)", 1);
    PostMessageW(FindControl(form, L"MskValue(0)"), WM_KEYDOWN, VK_F2, 0);
}

void ChooseFirstItem(HWND picker) {
    if (ListTexts(FindControl(picker, L"lv1IP")).empty())
        return;
    ChooseItem(picker, L"lv1IP", 0);
    Press(picker, L"CmdSel");
}

std::vector<Use> MakeUses() {
    return {
        {.name = "Logon",
         .steps = {{L"FrmLogon", LogOnAsAdmin}},
         .call = kShowLogon,
         .answer = L"user 3",
         .neutral = L"user 0"},
        {.name = "LogonWithReasons",
         .steps = {{L"FrmLogon", LogOnAsAdmin}},
         .call = kLogonWithReasons,
         .answer = L"user 3",
         .neutral = L"user 0",
         .refusedProviderIsSilent = true},
        {.name = "UserAdded",
         .steps = {{L"FrmMenu", Pressing(L"CmdAdd")},
                   {L"FrmInput",
                    [](HWND editor) {
                        FillUser(editor, L"moi");
                        Press(editor, L"CmdOk");
                    }}},
         .call = kUserManager,
         .probe = L"select count(*) from \"user\" where name='moi' and idgroup=1 and password=1401",
         .probed = L"1"},
        {.name = "NameTaken",
         .steps = {{L"FrmMenu", Pressing(L"CmdAdd")},
                   {L"FrmInput",
                    [](HWND editor) {
                        FillUser(editor, L"Admin");
                        Press(editor, L"CmdOk");
                    }}},
         .call = kUserManager,
         .writesUnchecked = true},
        {.name = "UserEdited",
         .steps = {{L"FrmMenu", OnFirstUser(L"CmdEdit")},
                   {L"FrmInput",
                    [](HWND editor) {
                        SetBox(editor, L"TxtDes", L"khac");
                        Press(editor, L"CmdOk");
                    }}},
         .call = kUserManager,
         .probe = L"select \"dec\" from \"user\" where code=1",
         .probed = L"khac"},
        {.name = "UserFoundAndEdited",
         .steps = {{L"FrmMenu", [](HWND list) { SetBox(list, L"TxtFind", L"min"); }},
                   {L"FrmMenu", OnFirstUser(L"CmdEdit")},
                   {L"FrmInput",
                    [](HWND editor) {
                        SetBox(editor, L"TxtDes", L"khac");
                        Press(editor, L"CmdOk");
                    }}},
         .call = kUsersThatAreFound,
         .probe = L"select \"dec\" from \"user\" where code=3",
         .probed = L"khac"},
        {.name = "UserDeleted",
         .steps = {{L"FrmMenu", OnFirstUser(L"CmdDel")}},
         .call = kUserManager,
         .probe = L"select count(*) from \"user\" where code=1",
         .probed = L"0"},
        {.name = "PasswordChanged",
         .steps = {{L"FrmInput",
                    [](HWND editor) {
                        SetBox(editor, L"TxtPass", L"ab");
                        SetBox(editor, L"txtConfirm", L"AB");
                        Press(editor, L"CmdOk");
                    }}},
         .call = kShowUser,
         .probe = L"select password from \"user\" where code=3",
         .probed = L"329.0"},
        {.name = "GroupAdded",
         .steps = {{L"FmGrp", Pressing(L"CmdAdd")},
                   {L"FmGrp",
                    [](HWND groups) {
                        SetBox(groups, L"txtName", L"moi");
                        SetBox(groups, L"TxtDesc", L"them");
                        Press(groups, L"CmdWrite");
                    }}},
         .call = kShowGroup,
         .probe = L"select des from groups where name='moi'",
         .probed = L"them ",
         .asksAfterWriting = true},
        {.name = "GroupEdited",
         .steps = {{L"FmGrp", ChooseSecondGroup},
                   {L"FmGrp",
                    [](HWND groups) {
                        if (HasGroups(groups, 2)) {
                            SetBox(groups, L"TxtDesc", L"khac");
                            Press(groups, L"CmdWrite");
                        }
                    }}},
         .call = kShowGroup,
         .probe = L"select name || des from groups where code=2",
         .probed = L"Kế toánkhac "},
        {.name = "GroupDeleted",
         .steps = {{L"FmGrp", ChooseSecondGroup}, {L"FmGrp", OnSecondGroup(L"CmdDelete")}},
         .call = kShowGroup,
         .probe = L"select count(*) from groups",
         .probed = L"1",
         .tellsNoFailedWrite = true},
        {.name = "RightsWritten",
         .steps = {{L"FmGrp", ChooseSecondGroup},
                   {L"FmGrp", OnSecondGroup(L"CmdPms")},
                   {L"FrPms", TickSecondCommand},
                   {L"FrPms", WriteTickedRights}},
         .call = kShowGroup,
         .probe = L"select p1 || ' ' || p2 || ' ' || p3 from groups where code=2",
         .probed = L"3 48 31"},
        {.name = "Search",
         .steps = {{L"FrmFind", FindCode}},
         .call = SearchByClass,
         .answer = L"(MaKH  =  'KH001')",
         .raisesTheFirst = true},
        {.name = "FindShowWithPicker",
         .steps = {{L"FrmFind", LookUpProvince},
                   {L"FmSelHang", ChooseFirstItem},
                   {L"FrmFind", Pressing(L"CmdOk")}},
         .call = SearchAtOnce,
         .answer = L"(MaTinh  =  'HN')"},
        {.name = "ItemPicked",
         .steps = {{L"FmSelHang", ChooseFirstItem}},
         .call = kPickByName,
         .answer = L"HN Hà Nội",
         .neutral = L" "},
        {.name = "ItemFound",
         .steps = {{L"FmSelHang", ChooseFirstItem}},
         .call = kFindByName,
         .answer = L"HN Hà Nội",
         .neutral = L" "},
        {.name = "CodeEntered", .call = kEnterCode, .answer = L"HP Hải Phòng", .neutral = L" "},
        {.name = "SettingRead",
         .call = OnOptions(
             [](const Database& database) { return GetOption(database, kStoredOption, L"thay"); }),
         .answer = L"40",
         .neutral = L"thay"},
        {.name = "SettingChanged",
         .call = OnOptions([](const Database& database) {
             return Answered([&] { return SetOption(database, kStoredOption, L"50", L"", false); });
         }),
         .answer = L"written",
         .neutral = L"refused",
         .probe = L"select keyvalue from options where keyname='SoDongMoiTrang'",
         .probed = L"50",
         .addsUncounted = true},
        {.name = "SettingAdded",
         .call = OnOptions([](const Database& database) {
             return Answered([&] { return SetOption(database, kNewOption, L"50", L"", false); });
         }),
         .answer = L"written",
         .neutral = L"refused",
         .probe = L"select keyvalue from options where keyname='Moi'",
         .probed = L"50",
         .mayUpdateNothing = true},
    };
}

// What hosts do with accounts without a window: an error is raised, never shown.
std::vector<Use> MakeWindowlessUses(const SecuritySettings& settings) {
    std::vector<Use> uses = {
        {.name = "PasswordSetRecorded",
         .call = Recorded(settings,
                          [](ILogon2& logon, BSTR* connect) {
                              return logon.SetPassword(*connect, 3, _bstr_t(L"ab"), VARIANT_FALSE);
                          }),
         .probe = L"select password from \"user\" where code=3",
         .probed = L"329.0",
         .writes = 2},
        {.name = "UserUnlockedRecorded",
         .call =
             Recorded(settings, [](ILogon2& logon,
                                   BSTR* connect) { return logon.UnlockUser(*connect, kLocked); }),
         .probe = L"select failed from vnuser",
         .probed = L"0",
         .writes = 2},
        {.name = "HostRecorded",
         .call = Recorded(settings,
                          [](ILogon2& logon, BSTR* connect) {
                              return logon.WriteAudit(*connect, _bstr_t(L"import"),
                                                      _bstr_t(L"KhachHang"), _bstr_t(L""),
                                                      _bstr_t(L"31"));
                          }),
         .probe = L"select \"action\" from vnaudit",
         .probed = L"host:import"},
    };
    for (Use& use : uses) {
        use.neutral = L"raised";
        use.recorded = true;
    }
    return uses;
}

// The same, with the record in what is read afterwards.
std::vector<Use> MakeRecordedUses(const SecuritySettings& settings) {
    const Call users =
        Recorded(settings, [](ILogon& logon, BSTR* connect) { return logon.UserManager(connect); });
    const Call groups =
        Recorded(settings, [](ILogon& logon, BSTR* connect) { return logon.ShowGroup(connect); });
    const Call own = Recorded(settings, [](ILogon& logon, BSTR* connect) {
        _bstr_t name(L"Admin");
        return logon.ShowUser(connect, &name.GetBSTR());
    });
    std::vector<Use> uses;
    struct Row {
        const char* name;
        const char* original;
        const Call& call;
    };
    for (const Row& row : {Row{"UserAddedRecorded", "UserAdded", users},
                           {"UserEditedRecorded", "UserEdited", users},
                           {"UserDeletedRecorded", "UserDeleted", users},
                           {"PasswordChangedRecorded", "PasswordChanged", own},
                           {"GroupAddedRecorded", "GroupAdded", groups},
                           {"GroupEditedRecorded", "GroupEdited", groups},
                           {"GroupDeletedRecorded", "GroupDeleted", groups},
                           {"RightsWrittenRecorded", "RightsWritten", groups}})
        for (Use use : AllUses())
            if (std::string_view(use.name) == row.original) {
                use.name = row.name;
                use.call = row.call;
                use.neutral = L"raised";
                use.recorded = true;
                use.writes = 2;
                // Bound texts get no blank behind them, and a deletion that was undone is told.
                use.tellsNoFailedWrite = false;
                if (use.probed == std::wstring_view(L"them "))
                    use.probed = L"them";
                else if (use.probed == std::wstring_view(L"Kế toánkhac "))
                    use.probed = L"Kế toánkhac";
                uses.push_back(std::move(use));
            }
    for (Use& use : MakeWindowlessUses(settings))
        uses.push_back(std::move(use));
    return uses;
}

} // namespace

const std::vector<Use>& RecordedUses() {
    static const std::vector<Use> uses = MakeRecordedUses({.Audit = true});
    return uses;
}

const std::vector<Use>& ToldUses() {
    static const std::vector<Use> uses =
        MakeRecordedUses({.Audit = true, .ConnectionErrors = vnErrorsShowReason});
    return uses;
}

const std::vector<Use>& AllUses() {
    static const std::vector<Use> uses = MakeUses();
    return uses;
}

namespace {

// Other threads may be playing too.
std::vector<HWND> OwnWindows() {
    std::vector<HWND> windows = TopWindows();
    std::erase_if(windows, [](HWND window) {
        return GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId();
    });
    return windows;
}

} // namespace

bool Played::TellsMoreThan(const Played& other) const {
    return std::any_of(messages.begin(), messages.end(), [&](const std::wstring& message) {
        return std::count(messages.begin(), messages.end(), message) >
               std::count(other.messages.begin(), other.messages.end(), message);
    });
}

Played Play(const Use& use, const SampleDatabase& database, const std::function<void()>& meanwhile,
            const std::wstring& connection) {
    std::vector<Step> steps = use.steps;
    if (meanwhile && steps.empty())
        meanwhile();
    else if (meanwhile)
        steps.back().act = [&, act = steps.back().act](HWND form) {
            meanwhile();
            act(form);
        };
    const Player player(steps);
    Played played;
    played.answer =
        use.call(database, connection.empty() ? database.ConnectionString() : connection);
    played.messages = player.Messages();
    EXPECT_TRUE(player.EverythingClosed());
    EXPECT_TRUE(OwnWindows().empty());
    return played;
}

void ExpectTold(const Use& use, const Played& well, const Played& played) {
    EXPECT_TRUE(played.answer == use.answer || played.answer == use.neutral)
        << ToUtf8(played.answer);
    const bool raised = use.recorded && played.answer == use.neutral;
    if (use.probe && !use.tellsNoFailedWrite && !raised) {
        EXPECT_TRUE(played.TellsMoreThan(well));
    }
    if (played.answer != use.answer && !use.recorded) {
        EXPECT_TRUE(played.TellsMoreThan(well));
    }
}

void MakeSmall(const SampleDatabase& database) {
    for (const wchar_t* statement :
         {L"delete from \"user\" where code not in (1,3)", L"delete from groups where code>2",
          L"delete from menu where id>2", L"delete from submenu where id not in (1,2,5)",
          L"delete from lstfld where code>30", L"delete from operator where code not in (1,16,17)",
          L"delete from tinhthanh where code not in ('HN','HP')",
          L"delete from options where keyname<>'SoDongMoiTrang'"})
        database.Execute(statement);
    Upgrade(database, L"audit");
    Upgrade(database, L"accounts");
    database.Execute(L"insert into vnuser(usercode,failed,mustchange) values(" +
                     std::to_wstring(kLocked) + L",5,0)");
}

std::wstring Contents(const SampleDatabase& database) {
    std::wstring text;
    for (const wchar_t* rows :
         {L"* from \"user\"", L"* from groups", L"* from options", L"usercode,failed from vnuser",
          L"usercode,username,\"action\",subject,\"before\",\"after\" from vnaudit"})
        for (const auto& row : database.Query(std::wstring(L"select ") + rows + L" order by 1,2")) {
            for (const auto& cell : row)
                text += cell.value_or(L"(null)") + L"|";
            text += L"\n";
        }
    return text;
}

} // namespace vndesk::test
