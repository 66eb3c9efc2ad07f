// SPDX-License-Identifier: MIT
// The condition with parameters as hosts use it: text, values and types after Show, and the command
// that is made of them, early and late bound.
#include "support/forms/search.h"

#include "data/connect/ado.h"
#include "support/forms/host_process.h"
#include "support/new_object.h"
#include "support/script_host.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;
using Values = std::vector<_variant_t>;

constexpr wchar_t kSelect[] = L"Select MaKH From KhachHang";

// Fields of the customers by their places, and operators of a text.
enum { kCode, kName, kProvince, kAddress, kDate, kOrders, kDebt, kWholesale };
enum { kEqual, kBeginsWith, kUnequal, kInList };

ComPtr<ISearch2> CreateSearch2() {
    auto search = NewObject<ISearch2>(L"VnDesk.clsSearch");
    GovernInDialect(search.Get());
    return search;
}

std::wstring Parameterized(ISearch2& search) {
    _bstr_t text;
    EXPECT_SUCCEEDED(search.get_ParameterizedResult(text.GetAddress()));
    return text.length() ? std::wstring(text, text.length()) : L"";
}

Values Elements(const _variant_t& array) {
    Values values;
    EXPECT_EQ(VT_ARRAY | VT_VARIANT, array.vt);
    if (array.vt != (VT_ARRAY | VT_VARIANT))
        return values;
    LONG first = -1, last = -2;
    EXPECT_EQ(1u, SafeArrayGetDim(array.parray));
    EXPECT_SUCCEEDED(SafeArrayGetLBound(array.parray, 1, &first));
    EXPECT_SUCCEEDED(SafeArrayGetUBound(array.parray, 1, &last));
    EXPECT_EQ(0, first);
    for (LONG i = first; i <= last; ++i) {
        values.emplace_back();
        EXPECT_SUCCEEDED(SafeArrayGetElement(array.parray, &i, &values.back()));
    }
    return values;
}

Values ParametersOf(ISearch2& search) {
    _variant_t array;
    EXPECT_SUCCEEDED(search.get_Parameters(&array));
    return Elements(array);
}

std::vector<long> TypesOf(ISearch2& search) {
    _variant_t array;
    EXPECT_SUCCEEDED(search.get_ParameterTypes(&array));
    std::vector<long> types;
    for (const _variant_t& type : Elements(array)) {
        EXPECT_EQ(VT_I4, type.vt);
        types.push_back(type.lVal);
    }
    return types;
}

void ExpectNoCondition(ISearch2& search) {
    EXPECT_EQ(L"", Parameterized(search));
    EXPECT_EQ(0u, ParametersOf(search).size());
    EXPECT_EQ(0u, TypesOf(search).size());
}

// The first column of all rows.
Lines Column(const LateBound& rows) {
    Lines column;
    for (; !static_cast<bool>(rows.Get(L"EOF")); rows.Call(L"MoveNext"))
        column.push_back(static_cast<const wchar_t*>(
            _bstr_t(LateBound(LateBound(rows.Get(L"Fields")).Get(L"Item", {0L})).Get(L"Value"))));
    return column;
}

long StateOf(const LateBound& connection) {
    return static_cast<long>(connection.Get(L"State"));
}

class ParameterizedSearch : public Administration {
protected:
    const std::wstring& Connection() const { return Test().database.ConnectionString(); }

    ComPtr<ISearch2> Customers() const {
        const auto search = CreateSearch2();
        EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(Connection().c_str())));
        EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
        return search;
    }
    // A search in which the user has built a condition of one line.
    ComPtr<ISearch2> Found(int field, int predicate, const wchar_t* value) const {
        auto search = Customers();
        PlayShow(*search.Get(), [=](HWND form) {
            FillSearch(form, field, predicate, value);
            PressOk(form);
        });
        return search;
    }

    static LateBound Command(ISearch2& search, const wchar_t* select = kSelect,
                             const _variant_t& connection = Missing()) {
        ComPtr<IDispatch> command;
        EXPECT_SUCCEEDED(search.CreateCommand(_bstr_t(select), connection, &command));
        if (!command)
            Fail(L"there is no command");
        return LateBound(command.Get());
    }
    static Lines RowsOf(const LateBound& command) {
        command.Put(L"CommandText", _bstr_t(command.Get(L"CommandText")) + L" Order By MaKH");
        return Column(LateBound(command.Call(L"Execute")));
    }
    LateBound Opened() const {
        const LateBound connection = LateBound::Create(L"ADODB.Connection");
        connection.Call(L"Open", {Connection().c_str()});
        return connection;
    }
    // The rows of the condition with literals.
    Lines RowsOfResult(ISearch& search) const {
        return Column(LateBound(Opened().Call(
            L"Execute",
            {(kSelect + (L" Where " + ResultOf(search)) + L" Order By MaKH").c_str()})));
    }
    void Rename(const wchar_t* code, const std::wstring& name) const {
        Test().database.Execute(L"update khachhang set name='" + name + L"' where makh='" + code +
                                L"'");
    }
};
INSTANTIATE_ADMINISTRATION(ParameterizedSearch);
INSTANTIATE_DIALECTS(ParameterizedSearch, "PostgreSql");

TEST(ParameterizedSearchAlone, NothingIsThereBeforeShow) {
    ExpectNoCondition(*CreateSearch2().Get());
}

TEST(ParameterizedSearchAlone, EmptyArraysServeVbScript) {
    ScriptRunner script;
    script.RunOk(L"Set s = WScript.CreateObject(\"VnDesk.clsSearch\")\n"
                 L"p = s.Parameters\nt = s.ParameterTypes\n"
                 L"Echo \"[\" & s.ParameterizedResult & \"]\", LBound(p), UBound(p), LBound(t), "
                 L"UBound(t)");
    EXPECT_EQ(Lines{L"[] 0 -1 0 -1"}, script.Lines());
}

TEST(ParameterizedSearchAlone, MissingPlacesForResultsAreRefused) {
    const auto search = CreateSearch2();
    EXPECT_HR(E_POINTER, search->get_ParameterizedResult(nullptr));
    EXPECT_HR(E_POINTER, search->get_Parameters(nullptr));
    EXPECT_HR(E_POINTER, search->get_ParameterTypes(nullptr));
    EXPECT_HR(E_POINTER, search->CreateCommand(_bstr_t(kSelect), Missing(), nullptr));
}

TEST_P(ParameterizedSearch, GivesTextValuesAndTypes) {
    const auto search = Customers();
    const std::wstring result = PlayShow(*search.Get(), [](HWND form) {
        FillLine(form, 0, L"Tên khách hàng", L"khác", L" O'Brien ");
        FillLine(form, 1, L"Số đơn hàng", L"thuộc danh sách", L"1,2", L"hoặc");
        FillLine(form, 2, L"Công nợ", L"lớn hơn", L"-1.5");
        FillLine(form, 3, L"Ngày lập thẻ", L"sau ngày", L"15/1/2004");
        PressOk(form);
    });
    EXPECT_EQ(L"(Name  <>  " + Q(L"O''Brien") +
                  L")or(SoDonHang  IN  (1,2))and(CongNo  >  -1.5)and(NgayLap  >  " +
                  (InDialect() ? L"DATE '2004-01-15'" : L"#01/15/2004#") + L")",
              result);
    EXPECT_EQ(L"(Name  <>  ?)or(SoDonHang  IN  (?,?))and(CongNo  >  ?)and(NgayLap  >  ?)",
              Parameterized(*search.Get()));
    EXPECT_EQ((Values{L"O'Brien", 1L, 2L, -1.5, _variant_t(38001.0, VT_DATE)}),
              ParametersOf(*search.Get()));
    EXPECT_EQ((std::vector<long>{adVarWChar, adInteger, adInteger, adDouble, adDBDate}),
              TypesOf(*search.Get()));
    EXPECT_EQ(RowsOfResult(*search.Get()), RowsOf(Command(*search.Get())));
}

TEST_P(ParameterizedSearch, CancelForgetsTheLastCondition) {
    const auto search = Found(kCode, kEqual, L"KH001");
    EXPECT_EQ(L"(MaKH  =  ?)", Parameterized(*search.Get()));
    PlayShow(*search.Get(), [](HWND) { PressCancel(); });
    ExpectNoCondition(*search.Get());
}

// After a failure no earlier condition must pass for this call's.
TEST_P(ParameterizedSearch, ShowForgetsTheLastConditionWhenItBegins) {
    const auto search = Found(kCode, kEqual, L"KH001");
    long modal = 1;
    _variant_t noWindow(L"no window");
    EXPECT_FAILED(search->Show(&modal, noWindow));
    ExpectNoCondition(*search.Get());
}

TEST_P(ParameterizedSearch, CommandFindsTheRowsOfTheResult) {
    struct Case {
        int field, predicate;
        const wchar_t* value;
    };
    for (const Case& entry : {Case{kCode, kEqual, L"KH005"}, Case{kName, kBeginsWith, L"công ty"},
                              Case{kProvince, kInList, L"HN,HP"}, Case{kOrders, kEqual, L"1"},
                              Case{kWholesale, kEqual, L"1"}, Case{kDate, kEqual, L"15/1/2004"}}) {
        const auto search = Found(entry.field, entry.predicate, entry.value);
        const Lines rows = RowsOf(Command(*search.Get()));
        EXPECT_NE(0u, rows.size()) << ToUtf8(entry.value);
        EXPECT_EQ(RowsOfResult(*search.Get()), rows) << ToUtf8(entry.value);
    }
}

TEST_P(ParameterizedSearch, CommandFindsWhatTheUserTyped) {
    Rename(L"KH001", L"50% off");
    Rename(L"KH002", L"500 off");
    Rename(L"KH003", L"a_b");
    Rename(L"KH004", L"axb");
    Rename(L"KH006", L"[x] y");
    Rename(L"KH007", L"x y");
    Rename(L"KH008", L"Kho (cu");
    struct Case {
        int field, predicate;
        const wchar_t* value;
        Lines rows;
    };
    for (const Case& entry :
         {Case{kName, kEqual, L"John O'Brien", {L"KH018"}},
          Case{kName, kBeginsWith, L"50%", {L"KH001"}}, Case{kName, kBeginsWith, L"a_", {L"KH003"}},
          Case{kName, kBeginsWith, L"[x]", {L"KH006"}}, Case{kName, kEqual, L"Kho (cu", {L"KH008"}},
          Case{kName, kEqual, L"Công ty \"Tre Việt\"", {L"KH030"}},
          Case{kName, kInList, L"John O'Brien,a_b", {L"KH003", L"KH018"}},
          Case{kDate, kEqual, L"15-1-2004", {L"KH001"}},
          Case{kDate, kEqual, L"2004/1/15", {L"KH001"}},
          Case{kDate, kEqual, L"15/1/04", {L"KH001"}}})
        EXPECT_EQ(entry.rows,
                  RowsOf(Command(*Found(entry.field, entry.predicate, entry.value).Get())))
            << ToUtf8(entry.value);
}

TEST_P(ParameterizedSearch, CommandOpensTheSearchsConnectionAndLeavesItOpen) {
    const auto search = Found(kCode, kEqual, L"KH001");
    _variant_t own;
    EXPECT_SUCCEEDED(search->get_ActiveConnection(&own));
    const LateBound connection(own);
    EXPECT_EQ(0, StateOf(connection));
    EXPECT_EQ(Lines{L"KH001"}, RowsOf(Command(*search.Get())));
    EXPECT_EQ(1, StateOf(connection));
    EXPECT_EQ(Lines{L"KH001"}, RowsOf(Command(*search.Get()))) << "open already";
    EXPECT_EQ(1, StateOf(connection));
    connection.Call(L"Close");
}

TEST_P(ParameterizedSearch, CommandTakesAConnectionOrItsString) {
    const auto search = Found(kCode, kEqual, L"KH001");
    const LateBound connection = Opened();
    _variant_t object(connection.Dispatch());
    EXPECT_EQ(Lines{L"KH001"}, RowsOf(Command(*search.Get(), kSelect, object)));
    EXPECT_EQ(Lines{L"KH001"}, RowsOf(Command(*search.Get(), kSelect, ByRef(object))));
    EXPECT_EQ(1, StateOf(connection));
    EXPECT_EQ(Lines{L"KH001"},
              RowsOf(Command(*search.Get(), kSelect, _variant_t(Connection().c_str()))));
    _variant_t own;
    EXPECT_SUCCEEDED(search->get_ActiveConnection(&own));
    EXPECT_EQ(0, StateOf(LateBound(own))) << "it was not asked for";
}

TEST_P(ParameterizedSearch, CommandWithoutAConditionRunsTheStatementAsItIs) {
    const auto search = Customers();
    const LateBound command = Command(*search.Get());
    EXPECT_EQ(_bstr_t(kSelect), _bstr_t(command.Get(L"CommandText")));
    EXPECT_EQ(0, static_cast<long>(LateBound(command.Get(L"Parameters")).Get(L"Count")));
    EXPECT_EQ(31u, RowsOf(command).size());
}

TEST_P(ParameterizedSearch, CommandIsWhatTheMembersSay) {
    const auto search = Found(kName, kInList, L"a,O'B");
    const LateBound command = Command(*search.Get());
    EXPECT_EQ(_bstr_t(L"Select MaKH From KhachHang Where (Name  IN  (?,?))"),
              _bstr_t(command.Get(L"CommandText")));
    const LateBound parameters(command.Get(L"Parameters"));
    ASSERT_EQ(2, static_cast<long>(parameters.Get(L"Count")));
    const LateBound second(parameters.Get(L"Item", {1L}));
    EXPECT_EQ(_variant_t(L"O'B"), second.Get(L"Value"));
    EXPECT_EQ(long{adVarWChar}, static_cast<long>(second.Get(L"Type")));
}

TEST_P(ParameterizedSearch, CommandRefusesWhatIsNoConnection) {
    const auto search = Found(kCode, kEqual, L"KH001");
    const auto refused = [&](const _variant_t& connection) {
        ComPtr<IDispatch> command;
        const HRESULT code = search->CreateCommand(_bstr_t(kSelect), connection, &command);
        EXPECT_EQ(nullptr, command.Get());
        return code;
    };
    EXPECT_HR(E_INVALIDARG, refused(_variant_t(5L)));
    EXPECT_HR(E_INVALIDARG, refused(_variant_t()));
    EXPECT_HR(E_INVALIDARG, refused(_variant_t(static_cast<IDispatch*>(nullptr))));
    EXPECT_HR(E_INVALIDARG, refused(_variant_t(static_cast<IDispatch*>(search.Get()))));
    EXPECT_FAILED(refused(_variant_t(L"Driver={No such driver};Database=a")));
    const LateBound closed = LateBound::Create(L"ADODB.Connection");
    EXPECT_FAILED(refused(_variant_t(closed.Dispatch())));
    ComPtr<IErrorInfo> error;
    ASSERT_HR(S_OK, GetErrorInfo(0, &error));
    _bstr_t description;
    EXPECT_SUCCEEDED(error->GetDescription(description.GetAddress()));
    EXPECT_LT(0u, description.length());
}

// What a script does first where the hosts of the test name a dialect.
std::wstring VbDialect() {
    if (!InDialect())
        return {};
    return L"Set o = WScript.CreateObject(\"VnDesk.clsSettings\")\no.Dialect = " +
           std::to_wstring(CurrentVariant().dialect) + L"\nSet s.Settings = o\n";
}
std::wstring JsDialect() {
    if (!InDialect())
        return {};
    return L"var o = WScript.CreateObject('VnDesk.clsSettings'); o.Dialect = " +
           std::to_wstring(CurrentVariant().dialect) + L"; s.Settings = o;\n";
}

// The scripts of both languages find the customer by a command on their own connection.
TEST_P(ParameterizedSearch, ServesVbScript) {
    ScriptRunner script;
    script.SetArguments({Connection()});
    DialogDriver user(InFindDialog([](HWND form) {
        FillSearch(form, kName, kInList, L"John O'Brien,x");
        PressOk(form);
    }));
    script.RunOk(L"Set s = WScript.CreateObject(\"VnDesk.clsSearch\")\n"
                 L"s.ActiveConnection = WScript.Arguments(0)\ns.TableSearch = \"KhachHang\"\n" +
                 VbDialect() +
                 L"s.Show 1\np = s.Parameters\nt = s.ParameterTypes\n"
                 L"Echo s.ParameterizedResult, LBound(p), UBound(p), p(0), TypeName(p(0)), t(1)\n"
                 L"Set db = WScript.CreateObject(\"ADODB.Connection\")\n"
                 L"db.Open WScript.Arguments(0)\n"
                 L"Set c = s.CreateCommand(\"Select MaKH From KhachHang\", db)\n"
                 L"Echo c.Execute.Fields(0).Value\n"
                 L"Echo s.CreateCommand(\"Select Name From KhachHang\").Execute.Fields(0).Value");
    user.Finish();
    ASSERT_EQ(3u, script.Lines().size());
    EXPECT_EQ(L"(Name  IN  (?,?)) 0 1 John O'Brien String 202", script.Lines()[0]);
    EXPECT_EQ(L"KH018", script.Lines()[1]);
    EXPECT_EQ(L"John O'Brien", script.Lines()[2]);
}

TEST_P(ParameterizedSearch, ServesJScript) {
    ScriptRunner script(L"JScript");
    script.SetArguments({Connection()});
    DialogDriver user(InFindDialog([](HWND form) {
        FillSearch(form, kName, kBeginsWith, L"John O'");
        PressOk(form);
    }));
    script.RunOk(L"var s = WScript.CreateObject('VnDesk.clsSearch');\n"
                 L"s.ActiveConnection = WScript.Arguments(0); s.TableSearch = 'KhachHang';\n" +
                 JsDialect() +
                 L"s.Show(1);\n"
                 L"Echo(s.ParameterizedResult, new VBArray(s.Parameters).toArray().join('|'));\n"
                 L"var rows = s.CreateCommand('Select MaKH From KhachHang').Execute();\n"
                 L"Echo(rows.Fields(0).Value);");
    user.Finish();
    EXPECT_EQ((Lines{L"(Name  LIKE  ?) John O'%", L"KH018"}), script.Lines());
}

} // namespace
} // namespace vndesk::test
