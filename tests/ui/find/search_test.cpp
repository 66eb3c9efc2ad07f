// SPDX-License-Identifier: MIT
// clsSearch and FindShow as hosts use them: connection, owner, result, and what scripts pass.
#include "support/forms/search.h"

#include "support/new_object.h"
#include "support/script_host.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;

ComPtr<IVarnok> CreateVarnok() {
    return NewObject<IVarnok>(L"VnDesk.Varnok");
}

LateBound ConnectionOf(ISearch& search) {
    _variant_t connection;
    EXPECT_SUCCEEDED(search.get_ActiveConnection(&connection));
    EXPECT_EQ(VT_DISPATCH, connection.vt);
    return LateBound(connection);
}

std::wstring Text(const _variant_t& value) {
    return static_cast<const wchar_t*>(_bstr_t(value));
}

// Closes the platform's message box and returns its title and text.
std::pair<std::wstring, std::wstring> CloseBox() {
    const HWND box = WaitForClass(L"#32770");
    WaitReady(box);
    std::pair<std::wstring, std::wstring> shown = {TextOf(box), L""};
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassName(child) != L"Button" && !TextOf(child).empty())
            shown.second = TextOf(child);
    PressKey(VK_RETURN);
    WaitForClose(box);
    return shown;
}

constexpr wchar_t kCode[] = L"Mã khách hàng";

void BuildCondition(HWND form) {
    FillLine(form, 0, kCode, L"bằng", L"KH001");
    PressOk(form);
}

// A window of the host.
class HostWindow {
public:
    HostWindow()
        : window_(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                                  300, 200, nullptr, nullptr, nullptr, nullptr)) {
        PumpUntil([this] { return GetForegroundWindow() == window_; }, 1000);
    }
    ~HostWindow() { DestroyWindow(window_); }

    HWND Get() const { return window_; }
    long Number() const { return static_cast<long>(reinterpret_cast<LONG_PTR>(window_)); }

private:
    HWND window_;
};

class SearchClass : public Administration {
protected:
    const std::wstring& Connection() const { return Test().database.ConnectionString(); }
    ComPtr<ISearch> Customers() const {
        const auto search = CreateSearch();
        EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(Connection().c_str())));
        EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
        return search;
    }
};
INSTANTIATE_ADMINISTRATION(SearchClass);

TEST(SearchClassAlone, ResultIsEmptyBeforeShow) {
    EXPECT_EQ(L"", ResultOf(*CreateSearch().Get()));
}

TEST(SearchClassAlone, TableReadsBack) {
    const auto search = CreateSearch();
    _bstr_t table;
    EXPECT_SUCCEEDED(search->get_TableSearch(table.GetAddress()));
    EXPECT_EQ(0u, table.length());
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"Khách hàng")));
    EXPECT_SUCCEEDED(search->get_TableSearch(table.GetAddress()));
    EXPECT_STREQ(L"Khách hàng", table);
    EXPECT_SUCCEEDED(search->put_TableSearch(nullptr));
    EXPECT_SUCCEEDED(search->get_TableSearch(table.GetAddress()));
    EXPECT_EQ(0u, table.length());
}

TEST(SearchClassAlone, FreshInstanceHasAnUnopenedConnectionOfItsOwn) {
    const auto search = CreateSearch();
    const LateBound connection = ConnectionOf(*search.Get());
    ASSERT_TRUE(static_cast<bool>(connection));
    EXPECT_EQ(0L, static_cast<long>(connection.Get(L"State")));
    EXPECT_EQ(L"", Text(connection.Get(L"ConnectionString")));
    EXPECT_EQ(connection.Dispatch(), ConnectionOf(*search.Get()).Dispatch()) << "made once";
    EXPECT_NE(connection.Dispatch(), ConnectionOf(*CreateSearch().Get()).Dispatch());
}

TEST(SearchClassAlone, ConnectionStringIsStoredAndNotOpened) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(L"Driver={No such driver}")));
    const LateBound connection = ConnectionOf(*search.Get());
    EXPECT_EQ(L"Driver={No such driver}", Text(connection.Get(L"ConnectionString")));
    EXPECT_EQ(0L, static_cast<long>(connection.Get(L"State")));
    // Any value becomes text: of a connection it is its connection string.
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(5L)));
    EXPECT_EQ(L"5", Text(connection.Get(L"ConnectionString")));
    const LateBound other = LateBound::Create(L"ADODB.Connection");
    other.Put(L"ConnectionString", L"DSN=other");
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(other.Dispatch())));
    EXPECT_EQ(L"DSN=other", Text(connection.Get(L"ConnectionString")));
    // As hosts pass their variables.
    _bstr_t text(L"DSN=text");
    EXPECT_SUCCEEDED(search->put_ActiveConnection(ByRef(text.GetBSTR())));
    EXPECT_EQ(L"DSN=text", Text(connection.Get(L"ConnectionString")));
    _variant_t variable(L"DSN=variable");
    EXPECT_SUCCEEDED(search->put_ActiveConnection(ByRef(variable)));
    EXPECT_EQ(L"DSN=variable", Text(connection.Get(L"ConnectionString")));
}

TEST(SearchClassAlone, ValueThatIsNoTextIsRefused) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(L"DSN=a")));
    _variant_t null;
    null.vt = VT_NULL;
    EXPECT_HR(DISP_E_TYPEMISMATCH, search->put_ActiveConnection(null));
    EXPECT_EQ(L"DSN=a", Text(ConnectionOf(*search.Get()).Get(L"ConnectionString")));
}

TEST_P(SearchClass, FailureOfTheConnectionIsRaised) {
    const auto search = Customers();
    const LateBound connection = ConnectionOf(*search.Get());
    connection.Call(L"Open");
    // ADO does not change the connection string of an open connection.
    EXPECT_FAILED(search->put_ActiveConnection(_variant_t(L"DSN=a")));
    ComPtr<IErrorInfo> error;
    ASSERT_HR(S_OK, GetErrorInfo(0, &error));
    _bstr_t description;
    EXPECT_SUCCEEDED(error->GetDescription(description.GetAddress()));
    EXPECT_LT(0u, description.length());
    connection.Call(L"Close");
}

TEST_P(SearchClass, ResultStaysUntilTheNextShow) {
    const auto search = Customers();
    const std::wstring condition = L"(MaKH  =  " + Q(L"KH001") + L")";
    EXPECT_EQ(condition, PlayShow(*search.Get(), BuildCondition));
    EXPECT_EQ(condition, ResultOf(*search.Get()));
    EXPECT_EQ(L"", PlayShow(*search.Get(), [](HWND) { PressCancel(); }));
}

TEST_P(SearchClass, ConnectionIsOpenedForTheDialogOnly) {
    const auto search = Customers();
    PlayShow(*search.Get(), [](HWND) { PressCancel(); });
    const LateBound connection = ConnectionOf(*search.Get());
    EXPECT_EQ(0L, static_cast<long>(connection.Get(L"State"))) << "the own object is not opened";
    EXPECT_EQ(Connection(), Text(connection.Get(L"ConnectionString")));
    if (!Test().server) {
        // SQLite would refuse to delete a file in use.
        EXPECT_TRUE(MoveFileW(Test().database.File().c_str(),
                              (Test().database.File() + L".moved").c_str()));
        EXPECT_TRUE(MoveFileW((Test().database.File() + L".moved").c_str(),
                              Test().database.File().c_str()));
    }
}

TEST_P(SearchClass, ConnectionThatTheHostOpenedIsUsedAndLeftOpen) {
    const auto search = Customers();
    const LateBound connection = ConnectionOf(*search.Get());
    connection.Call(L"Open");
    EXPECT_EQ(L"(MaKH  =  " + Q(L"KH001") + L")", PlayShow(*search.Get(), BuildCondition));
    EXPECT_EQ(1L, static_cast<long>(connection.Get(L"State")));
    connection.Call(L"Close");
}

TEST_P(SearchClass, EveryStyleIsModal) {
    for (const long modal : {0L, 1L, 7L})
        EXPECT_NE(L"", PlayShow(*Customers().Get(), BuildCondition, Missing(), modal)) << modal;
}

TEST_P(SearchClass, OwnerIsTheHostsWindow) {
    const HostWindow host, other;
    // The last one is active: it is the owner where none is given.
    const auto search = Customers();
    const auto ownerFor = [&](const _variant_t& owner) {
        HWND found = nullptr;
        PlayShow(
            *search.Get(),
            [&](HWND form) {
                found = GetWindow(form, GW_OWNER);
                EXPECT_FALSE(IsWindowEnabled(host.Get()));
                EXPECT_FALSE(IsWindowEnabled(other.Get()));
                PressCancel();
            },
            owner);
        EXPECT_TRUE(IsWindowEnabled(host.Get()));
        return found;
    };
    EXPECT_EQ(host.Get(), ownerFor(_variant_t(host.Number())));
    EXPECT_EQ(host.Get(), ownerFor(_variant_t(static_cast<double>(host.Number()))));

    const _variant_t nothing(static_cast<IDispatch*>(nullptr));
    SetActiveWindow(other.Get());
    EXPECT_EQ(other.Get(), ownerFor(Missing()));
    SetActiveWindow(other.Get());
    EXPECT_EQ(other.Get(), ownerFor(nothing));
    SetActiveWindow(other.Get());
    EXPECT_EQ(other.Get(), ownerFor(_variant_t(1234567L))) << "no window has this number";
    // An object without a window.
    SetActiveWindow(other.Get());
    EXPECT_EQ(other.Get(),
              ownerFor(_variant_t(LateBound::Create(L"Scripting.Dictionary").Dispatch())));
}

TEST_P(SearchClass, OwnerThatIsNoWindowAtAllIsRefused) {
    const auto search = Customers();
    long modal = 1;
    DialogDriver user([] {}, 500);
    EXPECT_HR(DISP_E_TYPEMISMATCH, search->Show(&modal, _variant_t(L"cửa sổ")));
    user.Finish();
}

// Plays a search for each owner that a script gives, and returns the owners.
std::vector<HWND> RunSearches(ScriptRunner& script, size_t searches, const std::wstring& source) {
    std::vector<HWND> owners;
    DialogDriver user([&] {
        for (size_t i = 0; i < searches; ++i)
            InFindDialog([&](HWND form) {
                owners.push_back(GetWindow(form, GW_OWNER));
                BuildCondition(form);
            })();
    });
    script.RunOk(source);
    user.Finish();
    return owners;
}

// Scripts pass variables, and numbers as text.
TEST_P(SearchClass, ServesVbScript) {
    const HostWindow host, other;
    ScriptRunner script;
    script.SetArguments({Connection(), std::to_wstring(host.Number())});
    const auto owners =
        RunSearches(script, 2,
                    L"Set s = WScript.CreateObject(\"VnDesk.clsSearch\")\n"
                    L"Echo TypeName(s.ActiveConnection), \"[\" & s.Result & \"]\"\n"
                    L"s.ActiveConnection = WScript.Arguments(0)\n"
                    L"s.TableSearch = \"KhachHang\"\nm = 1\ns.Show m\nEcho s.Result, m\n"
                    L"s.Show \"1\", CLng(WScript.Arguments(1))\nEcho s.TableSearch, s.Result\n");
    const std::wstring condition = L"(MaKH  =  " + Q(L"KH001") + L")";
    ASSERT_EQ(3u, script.Lines().size());
    EXPECT_NE(std::wstring::npos, script.Lines()[0].find(L" []"));
    EXPECT_EQ(condition + L" 1", script.Lines()[1]);
    EXPECT_EQ(L"KhachHang " + condition, script.Lines()[2]);
    EXPECT_EQ((std::vector<HWND>{other.Get(), host.Get()}), owners);
}

// A host's form is an object with the property hWnd.
TEST_P(SearchClass, OwnerMayBeAFormOfTheHost) {
    const HostWindow host, other;
    ScriptRunner script(L"JScript");
    script.SetArguments({Connection(), std::to_wstring(host.Number())});
    const auto owners =
        RunSearches(script, 1,
                    L"var s = WScript.CreateObject('VnDesk.clsSearch');\n"
                    L"s.ActiveConnection = WScript.Arguments(0); s.TableSearch = 'KhachHang';\n"
                    L"s.Show(1, {hWnd: Number(WScript.Arguments(1))}); Echo(s.Result);");
    EXPECT_EQ(Lines{L"(MaKH  =  " + Q(L"KH001") + L")"}, script.Lines());
    EXPECT_EQ(std::vector<HWND>{host.Get()}, owners);
}

// --- without a usable connection ---

void ExpectOnlyCancel(HWND form) {
    EXPECT_EQ(Lines{}, ListTexts(ListOf(form, L"CmbFld(0)")));
    EXPECT_FALSE(IsEnabled(form, L"CmdOk"));
    PressCancel();
}

TEST(SearchClassAlone, WithoutAConnectionTheDialogCanOnlyBeCancelled) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    long modal = 1;
    DialogDriver user([] {
        for (int statement = 0; statement < 2; ++statement)
            EXPECT_NE(L"", ClosePlainMessage());
        InFindDialog(ExpectOnlyCancel)();
    });
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
    user.Finish();
    EXPECT_EQ(L"", ResultOf(*search.Get()));
}

constexpr wchar_t kNoDatabase[] = L"Driver={No such driver};Database=a";

// The connection string is shown once, then each of the two catalogue statements fails.
void CloseMessagesOfNoConnection() {
    const auto [title, text] = CloseBox();
    EXPECT_EQ(L"", title);
    EXPECT_EQ(kNoDatabase, text);
    for (int statement = 0; statement < 2; ++statement)
        EXPECT_NE(L"", ClosePlainMessage());
    InFindDialog(ExpectOnlyCancel)();
}

TEST(SearchClassAlone, ConnectionThatCannotBeOpenedIsShownAndTheDialogOpens) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(kNoDatabase)));
    long modal = 1;
    DialogDriver user(CloseMessagesOfNoConnection);
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
    user.Finish();
    EXPECT_EQ(L"", ResultOf(*search.Get()));
}

// --- FindShow ---

std::wstring PlayFindShow(const _variant_t& connection, const wchar_t* table,
                          std::function<void()> script) {
    const auto varnok = CreateVarnok();
    DialogDriver user(std::move(script));
    _bstr_t condition;
    EXPECT_SUCCEEDED(varnok->FindShow(connection, _bstr_t(table), condition.GetAddress()));
    user.Finish();
    return {static_cast<const wchar_t*>(condition) ? static_cast<const wchar_t*>(condition) : L"",
            condition.length()};
}

TEST_P(SearchClass, FindShowGivesTheCondition) {
    EXPECT_EQ(
        L"(MaKH  =  " + Q(L"KH001") + L")",
        PlayFindShow(_variant_t(Connection().c_str()), L"KhachHang", InFindDialog(BuildCondition)));
}

TEST_P(SearchClass, FindShowServesScripts) {
    ScriptRunner script;
    script.SetArguments({Connection()});
    DialogDriver user(InFindDialog(BuildCondition));
    script.RunOk(L"c = WScript.Arguments(0)\n"
                 L"Echo WScript.CreateObject(\"VnDesk.Varnok\").FindShow(c, \"KhachHang\")");
    user.Finish();
    EXPECT_EQ(Lines{L"(MaKH  =  " + Q(L"KH001") + L")"}, script.Lines());
}

// The next statement without a connection of its own would run on the session's if it were left.
TEST_P(SearchClass, CancelledFindShowGivesNothingAndClosesTheSession) {
    EXPECT_EQ(L"", PlayFindShow(_variant_t(Connection().c_str()), L"KhachHang",
                                InFindDialog([](HWND) { PressCancel(); })));
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    long modal = 1;
    DialogDriver user([] {
        for (int statement = 0; statement < 2; ++statement)
            EXPECT_NE(L"", ClosePlainMessage());
        InFindDialog(ExpectOnlyCancel)();
    });
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
    user.Finish();
}

TEST(SearchClassAlone, FindShowWithoutADatabaseOpensTheDialogAllTheSame) {
    EXPECT_EQ(L"",
              PlayFindShow(_variant_t(kNoDatabase), L"KhachHang", CloseMessagesOfNoConnection));
}

// A host that starts a second search while the first is open: without a connection of its own it
// runs on the session's, which is the first one's.
class SecondSearch {
public:
    SecondSearch() {
        result_.clear();
        timer_ = SetTimer(nullptr, 0, 100, Step);
    }
    ~SecondSearch() { KillTimer(nullptr, timer_); }
    static const std::wstring& Result() { return result_; }

private:
    static void CALLBACK Step(HWND, UINT, UINT_PTR timer, DWORD) {
        for (const HWND window : TopWindows())
            if (WindowName(window) == L"FrmFind") {
                KillTimer(nullptr, timer);
                const auto search = CreateSearch();
                EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"HangHoa")));
                long modal = 1;
                EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
                result_ = ResultOf(*search.Get());
                return;
            }
    }

    static std::wstring result_;
    UINT_PTR timer_;
};
std::wstring SecondSearch::result_;

TEST_P(SearchClass, SearchInsideASearchRunsOnTheSession) {
    const SecondSearch second;
    EXPECT_EQ(L"(MaKH  =  " + Q(L"KH001") + L")",
              PlayFindShow(_variant_t(Connection().c_str()), L"KhachHang", [] {
                  HWND inner = nullptr;
                  if (!WaitUntil([&] {
                          for (const HWND window : TopWindows())
                              if (WindowName(window) == L"FrmFind" && IsWindowEnabled(window) &&
                                  FindControl(window, L"CmbFld(0)") &&
                                  ChosenText(window, L"CmbFld(0)") == L"Mã hàng")
                                  inner = window;
                          return inner != nullptr;
                      }))
                      Fail(L"the second dialog does not open");
                  WaitReady(inner);
                  FillLine(inner, 0, L"Mã hàng", L"bằng", L"DT01");
                  PressOk(inner);
                  WaitForClose(inner);
                  InFindDialog(BuildCondition)();
              }));
    EXPECT_EQ(L"(MaHang  =  " + Q(L"DT01") + L")", SecondSearch::Result());
}

} // namespace
} // namespace vndesk::test
