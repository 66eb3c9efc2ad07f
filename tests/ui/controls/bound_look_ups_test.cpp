// SPDX-License-Identifier: MIT
// Selection boxes and the find dialog's own look-ups with BindParameters: what is typed is data.
#include "support/forms/lookup_host.h"
#include "support/forms/search.h"

namespace vndesk::test {
namespace {

constexpr const wchar_t* kCrafted[] = {L"x' OR '1'='1",
                                       L"x') OR (1=1) OR ('1'='2",
                                       L"'; DROP TABLE DanhMuc; --",
                                       L"\"A1\" [A1] {A1}",
                                       L"A1;?",
                                       L"A1\\"};

class BoundBoxes : public CatalogueTest {
protected:
    void SetUp() override {
        CatalogueTest::SetUp();
        if (IsSkipped())
            return;
        host_ = std::make_unique<LookupHost>(Test().database);
        Govern(host_->item.Get(), MakeSettings({.BindParameters = true}));
    }
    void TearDown() override { host_.reset(); }

    LookupHost& Host() const { return *host_; }
    const LookupForm& Form() const { return host_->form; }

private:
    std::unique_ptr<LookupHost> host_;
};

INSTANTIATE_ADMINISTRATION(BoundBoxes);
INSTANTIATE_DIALECTS(BoundBoxes, "PostgreSql", "PostgreSqlBound", "SqlServer");

TEST_P(BoundBoxes, CodesAndNamesWithQuotesAreFound) {
    const StatementTrace trace;
    Host().form.Run([&] {
        for (const auto& [code, name] :
             {std::pair(L"B'1", L"O'Brien"), {L"Q\"1", L"Quạt \"gió\""}, {L"Đ1", L"Đèn bàn"}}) {
            Form().Enter(L"txtSelID", code);
            PressKey(VK_TAB);
            Form().Settle();
            EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"TxtSel") == name; }));
        }
        Form().Enter(L"TxtSel", L"O'B");
        const int tabs = Form().Tabs();
        PressKey(VK_RETURN);
        ChooseInPicker(L"O'Brien");
        Form().WaitMovedOn(tabs, L"txtSelID");
    });
    EXPECT_EQ(L"B'1", Host().SelID());
    const Lines sent = trace.All();
    ASSERT_EQ(5u, sent.size());
    const auto value = [&](const wchar_t* inside) {
        return BindsValues() ? L"?"
                             : (PrefixesTexts() ? L"N'" : L"'") + std::wstring(inside) + L"'";
    };
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ma = " + value(L"B''1"), sent[0]);
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ten  Like " + value(L"O''B%"), sent[3]);
}

TEST_P(BoundBoxes, CodesThatAreStatementsAreFoundNowhere) {
    Host().form.Run([&] {
        for (const wchar_t* code : kCrafted) {
            Form().Enter(L"txtSelID", code);
            PressKey(VK_TAB);
            const std::wstring told = ClosePlainMessage(L"Thông báo");
            EXPECT_NE(std::wstring::npos, told.find(code)) << ToUtf8(told);
            WaitReady(Form().Window(), L"txtSelID");
            Form().Settle();
        }
        Form().Enter(L"txtSelID", L"");
    });
    EXPECT_EQ(L"", Host().SelID());
    EXPECT_EQ(L"9", Test().database.ScalarText(L"select count(*) from DanhMuc"));
}

TEST_P(BoundBoxes, NamesThatAreStatementsListNothing) {
    Host().form.Run([&] {
        for (const wchar_t* name : kCrafted) {
            Form().Enter(L"TxtSel", name);
            PressKey(VK_RETURN);
            const HWND picker = WaitForPicker();
            EXPECT_EQ(Lines{}, ListTexts(Control(picker, L"lv1IP"))) << ToUtf8(name);
            CancelPicker();
            WaitReady(Form().Window(), L"TxtSel");
        }
    });
    EXPECT_EQ(L"9", Test().database.ScalarText(L"select count(*) from DanhMuc"));
}

// As the engine compares: SQLite knows the case of ASCII letters only, citext that of all.
TEST_P(BoundBoxes, LetterCaseCountsAsMuchAsInLiterals) {
    const auto found = [&](const wchar_t* code) {
        Form().Enter(L"txtSelID", L"N1");
        PressKey(VK_TAB);
        Form().Settle();
        EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"TxtSel").empty(); }));
        Form().Enter(L"txtSelID", code);
        PressKey(VK_TAB);
        Form().Settle();
        const bool known = WaitUntil([&] { return !Form().Text(L"TxtSel").empty(); }, 700);
        if (!known)
            ClosePlainMessage(L"Thông báo");
        return known;
    };
    Host().form.Run([&] {
        EXPECT_TRUE(found(L"A3"));
        EXPECT_EQ(Test().server, found(L"đ2"));
        Form().Enter(L"txtSelID", L"");
    });
}

class BoundLookUps : public Administration {};

INSTANTIATE_ADMINISTRATION(BoundLookUps);
INSTANTIATE_DIALECTS(BoundLookUps, "PostgreSql", "PostgreSqlBound", "SqlServer");

TEST_P(BoundLookUps, ChoicesOfAFieldAreThoseWhoseNameBeginsWithTheText) {
    Test().database.Execute(L"insert into tinhthanh(code,name) values('OB','O''Brien [x] \"y\"')");
    const StatementTrace trace;
    const auto search = CreateSearch();
    Govern(search.Get(), MakeSettings({.BindParameters = true}));
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    const auto names = [](HWND form, const wchar_t* typed) {
        SetBox(form, L"MskValue(0)", typed);
        TabTo(form, L"MskValue(0)");
        PressKey(VK_F2);
        const HWND picker = WaitForForm(L"FmSelHang", 60000);
        WaitReady(picker);
        const Lines names = ListTexts(Control(picker, L"lv1IP"));
        PressKey(VK_ESCAPE);
        WaitForClose(picker);
        WaitReady(form);
        return names;
    };
    EXPECT_EQ(L"", PlayShow(*search.Get(), [&](HWND form) {
                  FillLine(form, 0, L"Tỉnh thành", L"bằng", L"H");
                  EXPECT_EQ((Lines{L"Hà Nội", L"Hải Phòng"}), names(form, L"H"));
                  EXPECT_EQ(Lines{L"O'Brien [x] \"y\""}, names(form, L"O'B"));
                  EXPECT_EQ(Lines{L"O'Brien [x] \"y\""}, names(form, L"O'Brien [x] \""));
                  for (const wchar_t* crafted : kCrafted)
                      EXPECT_EQ(Lines{}, names(form, crafted)) << ToUtf8(crafted);
                  PressCancel();
              }));
    const Lines sent = trace.All();
    const std::wstring asked = L"Select * From TinhThanh Where " + Test().OwnName(L"Name") +
                               L"   Like " + (BindsValues() ? L"?" : Q(L"H%"));
    EXPECT_NE(sent.end(), std::find(sent.begin(), sent.end(), asked)) << ToUtf8(asked);
    for (const std::wstring& line : BindsValues() ? sent : Lines())
        EXPECT_EQ(std::wstring::npos, line.find(L'\'')) << ToUtf8(line);
}

} // namespace
} // namespace vndesk::test
