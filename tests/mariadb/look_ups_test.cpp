// SPDX-License-Identifier: MIT
// The search, the item picker, selection boxes, the data combo and named settings on MariaDB.
#include "mariadb/mariadb_fixture.h"

#include "data/stores/options.h"
#include "support/forms/lookup_host.h"
#include "support/forms/search.h"

namespace vndesk::test {
namespace {

// Fields of the customers by their places.
enum { kCode, kName, kProvince, kAddress, kDate, kOrders, kDebt, kWholesale };

class MariaDbLookUps : public MariaDbTest {
protected:
    ComPtr<ISearch2> Search(const wchar_t* table) const {
        const auto search = NewObject<ISearch2>(L"VnDesk.clsSearch");
        GovernInDialect(search.Get());
        EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(Connection().c_str())));
        EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(table)));
        return search;
    }
    // Rows of the host's own statement with the condition, both of its forms.
    Lines Found(ISearch2& search) const {
        Lines rows =
            Rows(L"select MaKH from KhachHang where " + ResultOf(search) + L" order by MaKH");
        ComPtr<IDispatch> command;
        EXPECT_SUCCEEDED(
            search.CreateCommand(_bstr_t(L"select MaKH from KhachHang"), Missing(), &command));
        const LateBound bound(command.Get());
        bound.Put(L"CommandText", _bstr_t(bound.Get(L"CommandText")) + L" order by MaKH");
        EXPECT_EQ(rows, FirstColumn(LateBound(bound.Call(L"Execute"))));
        return rows;
    }
    static Lines FirstColumn(const LateBound& rows) {
        Lines column;
        for (; !static_cast<bool>(rows.Get(L"EOF")); rows.Call(L"MoveNext"))
            column.push_back(static_cast<const wchar_t*>(_bstr_t(
                LateBound(LateBound(rows.Get(L"Fields")).Get(L"Item", {0L})).Get(L"Value"))));
        return column;
    }
};
ON_MARIADB(MariaDbLookUps);

TEST_P(MariaDbLookUps, ConditionsOfEveryTypeFindTheirRows) {
    Execute(L"update KhachHang set Name='Chéo\\\\ ngược' where MaKH='KH029'");
    const auto search = Search(L"KhachHang");
    const struct {
        int field, predicate;
        const wchar_t* value;
        Lines rows;
    } cases[] = {{kCode, 0, L"kh001", {L"KH001"}},     {kName, 0, L"John O'Brien", {L"KH018"}},
                 {kName, 1, L"Chéo\\", {L"KH029"}},    {kName, 1, L"CÔNG TY cổ", {L"KH012"}},
                 {kDate, 0, L"15/1/2004", {L"KH001"}}, {kOrders, 2, L"51", {L"KH016"}},
                 {kDebt, 0, L"76400000.5", {L"KH004"}}};
    for (const auto& [field, predicate, value, rows] : cases) {
        PlayShow(*search.Get(), [&](HWND form) {
            FillSearch(form, field, predicate, value);
            Press(form, L"CmdOk");
        });
        EXPECT_EQ(rows, Found(*search.Get())) << ToUtf8(ResultOf(*search.Get()));
    }
}

TEST_P(MariaDbLookUps, FieldsAreLookedUpInTablesAndStatements) {
    const auto look = [&](const wchar_t* table, int field, const wchar_t* value,
                          const Lines& names) {
        const auto search = Search(table);
        PlayShow(*search.Get(), [&](HWND form) {
            FillSearch(form, field, 0, value);
            PostMessageW(Control(form, L"MskValue(0)"), WM_KEYDOWN, VK_F2, 0);
            const HWND picker = walker_.Form(L"FmSelHang");
            EXPECT_EQ(names, ListTexts(Control(picker, L"lv1IP")));
            walker_.Leave(picker, L"CmdSel");
            walker_.Form(L"FrmFind");
            Press(form, L"CmdOk");
        });
        return ResultOf(*search.Get());
    };
    EXPECT_EQ(L"(MaTinh  =  'HN')", look(L"KhachHang", kProvince, L"h", {L"Hà Nội", L"Hải Phòng"}));
    EXPECT_EQ(L"(MaNhom  =  'VP')", look(L"HangHoa", 2, L"V", {L"Văn phòng phẩm"}));
}

TEST_P(MariaDbLookUps, BoxesFindNamesAndCodes) {
    Execute(L"insert into TinhThanh values('O''B\\\\','O''Brien\\\\ ngược')");
    LookupHost host(Test().database);
    EXPECT_SUCCEEDED(
        host.item->put_SqlName(_bstr_t(L"Select Code,Name From TinhThanh Where Name")));
    EXPECT_SUCCEEDED(host.item->put_SqlID(_bstr_t(L"Select Code,Name From TinhThanh Where Code")));
    host.form.Run([&] {
        for (const auto& [code, name] :
             {std::pair(L"hp", L"Hải Phòng"), {L"O'B\\", L"O'Brien\\ ngược"}}) {
            host.form.Enter(L"txtSelID", code);
            PressKey(VK_TAB);
            host.form.Settle();
            EXPECT_TRUE(WaitUntil([&] { return host.form.Text(L"TxtSel") == name; }))
                << ToUtf8(code);
        }
        for (const wchar_t* begun : {L"O'", L"o'brien\\"}) {
            host.form.Enter(L"TxtSel", begun);
            const int tabs = LookupForm::Tabs();
            PressKey(VK_RETURN);
            ChooseInPicker(L"O'Brien\\ ngược");
            host.form.WaitMovedOn(tabs, L"txtSelID");
        }
    });
    EXPECT_EQ(L"O'B\\", host.SelID());
}

TEST_P(MariaDbLookUps, NamedSettingsAreReadAndWritten) {
    Settings settings;
    settings.BindParameters = BindsValues();
    settings.Dialect = DialectChoice::MySql;
    Database database = OpenConnection(Connection(), settings);
    EXPECT_EQ(L"C:\\SaoLuu", GetOption(database, {L"HeThong", L"ThuMucSaoLuu"}, L""));
    EXPECT_EQ(L"thay", GetOption(database, {L"BaoCao", L"NguoiLap"}, L"thay"));
    for (const std::wstring& text : CraftedNames()) {
        EXPECT_EQ(0, SetOption(database, {L"Thử", L"chéo\\'"}, text, L"mô tả", false));
        EXPECT_EQ(text, GetOption(database, {L"Thử", L"chéo\\'"}, L""));
    }
    EXPECT_EQ(L"1", Read(L"select count(*) from `Options` where Section='Thử'"));
    CloseConnection(database);
}

} // namespace
} // namespace vndesk::test
