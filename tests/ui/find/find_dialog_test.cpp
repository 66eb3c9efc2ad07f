// SPDX-License-Identifier: MIT
// The find dialog: its lines, what makes them valid, and the condition that the host gets.
#include "support/forms/search.h"

namespace vndesk::test {
namespace {

class FindDialog : public Administration {
protected:
    // The condition that the script builds over the customers.
    std::wstring Play(Script script) const { return Play(L"KhachHang", std::move(script)); }
    std::wstring Play(const wchar_t* table, Script script) const {
        return PlaySearch(Test().database.ConnectionString(), table, std::move(script));
    }

    // The condition of one line.
    std::wstring PlayLine(const wchar_t* field, const wchar_t* predicate,
                          const wchar_t* value) const {
        return Play([=](HWND form) {
            FillLine(form, 0, field, predicate, value);
            PressOk(form);
        });
    }
    // Values that leave the line invalid: the dialog can only be cancelled.
    void ExpectInvalid(const wchar_t* field, const wchar_t* predicate,
                       std::initializer_list<const wchar_t*> values) const {
        EXPECT_EQ(L"", Play([=](HWND form) {
                      for (const wchar_t* value : values) {
                          FillLine(form, 0, field, predicate, value);
                          WaitForOk(form, false);
                          WaitForLines(form, L"000");
                      }
                      PressCancel();
                  }));
    }
};
INSTANTIATE_ADMINISTRATION(FindDialog);

constexpr wchar_t kCode[] = L"Mã khách hàng";
constexpr wchar_t kName[] = L"Tên khách hàng";
constexpr wchar_t kProvince[] = L"Tỉnh thành";
constexpr wchar_t kDate[] = L"Ngày lập thẻ";
constexpr wchar_t kOrders[] = L"Số đơn hàng";
constexpr wchar_t kDebt[] = L"Công nợ";
constexpr wchar_t kWholesale[] = L"Khách sỉ (1 có, 0 không)";

TEST_P(FindDialog, OpensWithTheFieldsOfTheTable) {
    Play([](HWND form) {
        EXPECT_EQ(L"Tìm kiếm", TextOf(form));
        EXPECT_EQ(L"Tìm khi", TextOf(form, L"lblFirst"));
        EXPECT_EQ(L"&Thông tin", TextOf(form, L"Label1"));
        EXPECT_EQ(L"&So sánh", TextOf(form, L"Label2"));
        EXPECT_EQ(L"G&iá trị", TextOf(form, L"Label3"));
        EXPECT_EQ(L"Điều &kiện tìm kiếm", TextOf(form, L"lblResult"));
        EXPECT_EQ(L"Đồn&g ý", TextOf(form, L"CmdOk"));
        EXPECT_EQ(L"Bỏ &qua", TextOf(form, L"CmdCancel"));
        EXPECT_EQ(L"&Hướng dẫn", TextOf(form, L"CmdHelp"));
        for (int line = 0; line < 4; ++line) {
            EXPECT_EQ(
                (Lines{kCode, kName, kProvince, L"Địa chỉ", kDate, kOrders, kDebt, kWholesale}),
                ListTexts(ListOf(form, Named(L"CmbFld", line))));
            EXPECT_EQ(line == 0 ? 0 : -1, Chosen(form, Named(L"CmbFld", line)));
            EXPECT_EQ(-1, Chosen(form, Named(L"CmbPredicate", line)));
            EXPECT_EQ(L"", TextOf(form, Named(L"MskValue", line)));
            if (line == 0)
                continue;
            EXPECT_EQ((Lines{L"và", L"hoặc"}), ListTexts(ListOf(form, Named(L"cmbLg", line))));
            EXPECT_EQ(L"và", ChosenText(form, Named(L"cmbLg", line)));
        }
        EXPECT_EQ((Lines{L"bằng", L"bắt đầu bằng", L"khác", L"thuộc danh sách"}),
                  ListTexts(ListOf(form, L"CmbPredicate(0)")));
        EXPECT_EQ(L"000", EnabledLines(form));
        EXPECT_FALSE(IsEnabled(form, L"CmdOk"));
        EXPECT_EQ(L"(Mã khách hàng    '')", TextOf(form, L"TxtResult"));
        EXPECT_EQ(L"CmbFld(0)", FocusedControl(form));
        PressCancel();
    });
}

TEST_P(FindDialog, ReadsTheCatalogueByItsStatements) {
    const StatementTrace trace;
    Play([](HWND) { PressCancel(); });
    EXPECT_EQ(
        (Lines{L"Select [Name],[Desc] From LstFld Where [InTable]='KhachHang' Order By [code]",
               L"Select * From LstFld Where [InTable]='KhachHang' Order By [code]",
               L"Select Name,Des from Operator Where Type=10  Order By Code"}),
        trace.All());
}

TEST_P(FindDialog, FirstLineAloneIsTheCondition) {
    EXPECT_EQ(L"(MaKH  =  " + Q(L"KH001") + L")", Play([](HWND form) {
                  FillLine(form, 0, kCode, L"bằng", L"KH001");
                  WaitForLines(form, L"100");
                  WaitForResult(form, L"(Mã khách hàng  bằng  'KH001')");
                  PressOk(form);
              }));
}

TEST_P(FindDialog, NumberFieldNeedsANumber) {
    ExpectInvalid(kOrders, L"bằng", {L"12a", L"a", L"1.2.3"});
    ExpectInvalid(kDebt, L"lớn hơn", {L"12a"});
    EXPECT_EQ(L"(SoDonHang  >=  12)", PlayLine(kOrders, L"lớn hơn hoặc bằng", L"12"));
    EXPECT_EQ(L"(CongNo  >  -1.5)", PlayLine(kDebt, L"lớn hơn", L"-1.5"));
}

TEST_P(FindDialog, FlagFieldTakesAnyValue) {
    EXPECT_EQ(L"(KhachSi  =  12a)", PlayLine(kWholesale, L"bằng", L"12a"));
}

TEST_P(FindDialog, VietnameseOperatorIsPutInCapitals) {
    Test().database.Execute(L"update operator set name='chứa đựng ở' where des='bằng' and type=10");
    EXPECT_EQ(L"(Name  CHỨA ĐỰNG Ở  " + Q(L"x") + L")", PlayLine(kName, L"bằng", L"x"));
}

TEST_P(FindDialog, ApostropheIsDoubled) {
    EXPECT_EQ(L"(Name  =  " + Q(L"O''Brien") + L")", PlayLine(kName, L"bằng", L"O'Brien"));
}

TEST_P(FindDialog, ListsAreWrittenByTheirType) {
    EXPECT_EQ(L"(MaTinh  IN  ('a','b'))", PlayLine(kProvince, L"thuộc danh sách", L"a,b"));
    EXPECT_EQ(L"(SoDonHang  IN  (1,2))", PlayLine(kOrders, L"thuộc danh sách", L"1,2"));
}

TEST_P(FindDialog, DateIsDayMonthYear) {
    EXPECT_EQ(L"(NgayLap  >  #03/05/2021#)", PlayLine(kDate, L"sau ngày", L"5/3/2021"));
    ExpectInvalid(kDate, L"sau ngày", {L"soon", L"31/2/2021"});
}

TEST_P(FindDialog, BracketIsMadeUpForAtTheEnd) {
    EXPECT_EQ(L"(Name  =  " + Q(L"x)") + L")(", PlayLine(kName, L"bằng", L"x)"));
}

TEST_P(FindDialog, VietnameseTextAndPatterns) {
    EXPECT_EQ(L"(Name  LIKE  " + Q(L"Công ty%") + L")",
              PlayLine(kName, L"bắt đầu bằng", L"Công ty"));
}

TEST_P(FindDialog, CancelGivesNothingAndForgetsTheLastCondition) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    const auto fill = [](HWND form) {
        FillLine(form, 0, kCode, L"bằng", L"KH001");
        WaitForOk(form, true);
    };
    const Script ways[] = {
        [](HWND) { PressCancel(); },
        [](HWND form) {
            TabTo(form, L"CmdCancel");
            PressKey(VK_SPACE);
        },
        [](HWND form) { PostMessageW(form, WM_SYSCOMMAND, SC_CLOSE, 0); },
    };
    for (const Script& cancel : ways) {
        EXPECT_NE(L"", PlayShow(*search.Get(), [&](HWND form) {
                      fill(form);
                      PressOk(form);
                  }));
        EXPECT_EQ(L"", PlayShow(*search.Get(), [&](HWND form) {
                      fill(form);
                      cancel(form);
                  }));
    }
}

TEST_P(FindDialog, FourLinesAreJoined) {
    const std::wstring condition = Play([](HWND form) {
        FillLine(form, 0, kName, L"bắt đầu bằng", L"Công ty");
        WaitForLines(form, L"100");
        FillLine(form, 1, kOrders, L"lớn hơn", L"10");
        WaitForLines(form, L"110");
        FillLine(form, 2, kProvince, L"bằng", L"HN", L"hoặc");
        WaitForLines(form, L"111");
        FillLine(form, 3, kDate, L"trước ngày", L"1/2/2004");
        WaitForResult(form, L"(Tên khách hàng  bắt đầu bằng  'Công ty')và"
                            L"(Số đơn hàng  lớn hơn  '10')hoặc(Tỉnh thành  bằng  'HN')và"
                            L"(Ngày lập thẻ  trước ngày  '1/2/2004')");
        PressOk(form);
    });
    EXPECT_EQ(L"(Name  LIKE  " + Q(L"Công ty%") + L")and(SoDonHang  >  10)or(MaTinh  =  " +
                  Q(L"HN") + L")and(NgayLap  <  #02/01/2004#)",
              condition);
}

// The condition is what the host's own statement needs.
TEST_P(FindDialog, ConditionFindsTheRows) {
    const std::wstring condition = Play([](HWND form) {
        FillLine(form, 0, kProvince, L"thuộc danh sách", L"HN,HP");
        FillLine(form, 1, kDebt, L"lớn hơn", L"20000000");
        PressOk(form);
    });
    LateBound connection = LateBound::Create(L"ADODB.Connection");
    connection.Call(L"Open", {Test().database.ConnectionString().c_str()});
    const LateBound rows(connection.Call(
        L"Execute",
        {(L"Select MaKH From KhachHang Where " + condition + L" Order By MaKH").c_str()}));
    std::wstring keys;
    for (; !static_cast<bool>(rows.Get(L"EOF")); rows.Call(L"MoveNext"))
        keys += static_cast<const wchar_t*>(_bstr_t(
                    LateBound(LateBound(rows.Get(L"Fields")).Get(L"Item", {0L})).Get(L"Value"))) +
                std::wstring(L" ");
    EXPECT_EQ(L"KH001 KH002 KH004 ", keys);
    connection.Call(L"Close");
}

TEST_P(FindDialog, LinesFollowTheOneAbove) {
    const std::wstring condition = Play([](HWND form) {
        FillLine(form, 0, kOrders, L"lớn hơn", L"1");
        FillLine(form, 1, kOrders, L"nhỏ hơn", L"9");
        FillLine(form, 2, kOrders, L"khác", L"5");
        WaitForLines(form, L"111");
        // The first line breaks: all others go out of the condition, and stay as they were.
        TypeValue(form, 0, L"x");
        WaitForLines(form, L"000");
        WaitForOk(form, false);
        WaitForResult(form, L"(Số đơn hàng  lớn hơn  'x')");
        TypeValue(form, 0, L"2");
        WaitForLines(form, L"111");
        // So does the middle one; the last line stays out of reach with it.
        TypeValue(form, 1, L"");
        WaitForLines(form, L"100");
        WaitForOk(form, true);
        WaitForResult(form, L"(Số đơn hàng  lớn hơn  '2')");
        PressOk(form);
    });
    EXPECT_EQ(L"(SoDonHang  >  2)", condition);
}

TEST_P(FindDialog, OkFollowsTheFirstLineAlone) {
    EXPECT_EQ(L"(MaKH  =  " + Q(L"a") + L")", Play([](HWND form) {
                  FillLine(form, 0, kCode, L"bằng", L"a");
                  FillLine(form, 1, kOrders, L"bằng", L"12a");
                  WaitForLines(form, L"100");
                  WaitForResult(form, L"(Mã khách hàng  bằng  'a')");
                  PressOk(form);
              }));
}

TEST_P(FindDialog, OperatorsFollowTheField) {
    Play([](HWND form) {
        ChooseText(form, L"CmbPredicate(0)", L"thuộc danh sách");
        ChooseText(form, L"CmbFld(0)", kName);
        EXPECT_EQ(L"thuộc danh sách", ChosenText(form, L"CmbPredicate(0)"))
            << "the place is kept while there is one";
        ChooseText(form, L"CmbFld(0)", kWholesale);
        EXPECT_EQ((Lines{L"bằng", L"khác"}), ListTexts(ListOf(form, L"CmbPredicate(0)")));
        EXPECT_EQ(L"bằng", ChosenText(form, L"CmbPredicate(0)"));
        PressCancel();
    });
}

TEST_P(FindDialog, DeleteClearsAChoice) {
    Play([](HWND form) {
        FillLine(form, 0, kCode, L"bằng", L"a");
        WaitForOk(form, true);
        for (const wchar_t* combo : {L"CmbFld(0)", L"CmbPredicate(0)"}) {
            const std::wstring text = ChosenText(form, combo);
            TabTo(form, combo);
            PressKey(VK_DELETE);
            WaitForOk(form, false);
            EXPECT_EQ(-1, Chosen(form, combo));
            WaitForLines(form, L"000");
            ChooseText(form, combo, text);
            WaitForOk(form, true);
        }
        PressCancel();
    });
}

TEST_P(FindDialog, TabAndEnterWalkAlongTheLines) {
    Play([](HWND form) {
        for (int line = 0; line < 3; ++line)
            FillLine(form, line, kOrders, L"bằng", L"1");
        Lines order;
        for (int line = 0; line < 4; ++line) {
            if (line > 0)
                order.push_back(Named(L"cmbLg", line));
            for (const wchar_t* row : {L"CmbFld", L"CmbPredicate", L"MskValue"})
                order.push_back(Named(row, line));
        }
        order.insert(order.end(), {L"TxtResult", L"CmdOk", L"CmdCancel", L"CmdHelp"});
        for (const WORD key : {VK_TAB, VK_RETURN}) {
            TabTo(form, order.front());
            for (size_t i = 1; i <= order.size(); ++i) {
                PressKey(key);
                WaitForControl(form, order[i % order.size()]);
            }
        }
        EXPECT_TRUE(IsWindowVisible(form)) << "Enter presses no button";
        for (size_t i = order.size(); i-- > 0;) {
            PressKey(VK_TAB, kShift);
            WaitForControl(form, order[i]);
        }
        PressCancel();
    });
}

TEST_P(FindDialog, LettersBehindAltLeadToTheColumns) {
    Play([](HWND form) {
        EXPECT_EQ(Sorted(L"TSIKGQH"), Sorted(Mnemonics(form)));
        const struct {
            WORD key;
            const wchar_t* control;
        } kLetters[] = {{'I', L"MskValue(0)"},
                        {'S', L"CmbPredicate(0)"},
                        {'T', L"CmbFld(0)"},
                        {'K', L"TxtResult"}};
        for (const auto& letter : kLetters) {
            PressKey(letter.key, kAlt);
            WaitForControl(form, letter.control);
        }
        PressKey('Q', kAlt);
    });
}

TEST_P(FindDialog, F10NamesTheControl) {
    Play([](HWND form) {
        for (const auto& [control, name] :
             {std::pair{L"CmbFld(0)", L"CmbFld"}, std::pair{L"MskValue(0)", L"MskValue"},
              std::pair{L"CmdHelp", L"CmdHelp"}}) {
            TabTo(form, control);
            PressKey(VK_F10);
            EXPECT_EQ(name, ClosePlainMessage());
            WaitReady(form);
            EXPECT_EQ(control, FocusedControl(form));
        }
        PressCancel();
    });
}

TEST_P(FindDialog, HelpExplainsAndComesBack) {
    Play([](HWND form) {
        TabTo(form, L"CmdHelp");
        PressKey(VK_SPACE);
        const HWND box = WaitForForm(L"MessageBox");
        EXPECT_EQ(L"Hướng dẫn tìm kiếm", TextOf(box, L"label4"));
        EXPECT_NE(std::wstring::npos, TextOf(box, L"Message").find(L"Mỗi dòng là một điều kiện"));
        WaitReady(box, L"Cmd1");
        PressKey(VK_SPACE);
        WaitForClose(box);
        WaitReady(form);
        PressCancel();
    });
}

TEST_P(FindDialog, ResultBoxCannotBeChanged) {
    Play([](HWND form) {
        TabTo(form, L"TxtResult");
        const std::wstring before = TextOf(form, L"TxtResult");
        TypeText(L"abc");
        PressKey(VK_DELETE);
        // The keys have been handled when a later one has moved the focus.
        PressKey(VK_TAB, kShift);
        WaitForControl(form, L"MskValue(0)");
        EXPECT_EQ(before, TextOf(form, L"TxtResult"));
        const LONG style = GetWindowLongW(Control(form, L"TxtResult"), GWL_STYLE);
        EXPECT_TRUE(style & ES_MULTILINE);
        EXPECT_TRUE(style & ES_READONLY);
        PressCancel();
    });
}

TEST_P(FindDialog, OperatorOfTheCatalogueIsPutInCapitals) {
    Test().database.Execute(L"UPDATE operator SET name='like' WHERE name='LIKE'");
    EXPECT_EQ(L"(Name  LIKE  " + Q(L"x%") + L")", PlayLine(kName, L"bắt đầu bằng", L"x"));
}

TEST_P(FindDialog, FieldOfAnUnknownTypeHasNoOperators) {
    Test().database.Execute(L"UPDATE lstfld SET type=4 WHERE code=10");
    EXPECT_EQ(L"", Play([](HWND form) {
                  EXPECT_EQ(Lines{}, ListTexts(ListOf(form, L"CmbPredicate(0)")));
                  TypeValue(form, 0, L"5");
                  WaitForOk(form, false);
                  PressCancel();
              }));
}

TEST_P(FindDialog, NullsInTheCatalogueAreEmpty) {
    Test().database.Execute(L"UPDATE lstfld SET type=NULL, relation=NULL, \"desc\"=NULL "
                            L"WHERE code=10");
    Play([](HWND form) {
        EXPECT_EQ(L"", ListTexts(ListOf(form, L"CmbFld(0)"))[0]);
        EXPECT_EQ(L"(    '')", TextOf(form, L"TxtResult"));
        ChooseText(form, L"CmbFld(0)", kName);
        EXPECT_EQ(4u, ListTexts(ListOf(form, L"CmbPredicate(0)")).size());
        PressCancel();
    });
}

// --- what can go wrong ---

TEST_P(FindDialog, TableWithoutFieldsCanOnlyBeCancelled) {
    for (const wchar_t* table : {L"KhongCo", L""})
        EXPECT_EQ(L"", Play(table, [](HWND form) {
                      for (int line = 0; line < 4; ++line)
                          EXPECT_EQ(Lines{}, ListTexts(ListOf(form, Named(L"CmbFld", line))));
                      EXPECT_EQ(L"000", EnabledLines(form));
                      EXPECT_FALSE(IsEnabled(form, L"CmdOk"));
                      TypeValue(form, 0, L"5");
                      EXPECT_FALSE(IsEnabled(form, L"CmdOk"));
                      EXPECT_EQ(L"000", EnabledLines(form));
                      PressCancel();
                  }));
}

TEST_P(FindDialog, FailingCatalogueIsToldOnceAStatement) {
    Test().database.Execute(L"DROP TABLE lstfld");
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    DialogDriver user([] {
        for (int statement = 0; statement < 2; ++statement)
            EXPECT_NE(std::wstring::npos, FindLower(ClosePlainMessage(), L"lstfld"));
        const HWND form = WaitForForm(L"FrmFind");
        WaitReady(form);
        EXPECT_EQ(Lines{}, ListTexts(ListOf(form, L"CmbFld(0)")));
        EXPECT_FALSE(IsEnabled(form, L"CmdOk"));
        PressCancel();
    });
    long modal = 1;
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
    user.Finish();
    EXPECT_EQ(L"", ResultOf(*search.Get()));
}

// The types cannot be read: the fields are there, and choosing one tells what is missing.
TEST_P(FindDialog, FieldsWithoutTypesAreToldAndTheDialogGoesOn) {
    Test().database.Execute(L"ALTER TABLE lstfld RENAME TO fields");
    Test().database.Execute(
        std::wstring(L"CREATE VIEW lstfld AS SELECT code,intable,name,\"desc\",") + L"type," +
        (Test().server ? L"1/(code-code)" : L"abs(-9223372036854775807-1)") +
        L" AS relation FROM fields");
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    DialogDriver user([] {
        EXPECT_NE(L"", ClosePlainMessage());
        const HWND form = WaitForForm(L"FrmFind");
        WaitReady(form);
        EXPECT_EQ(8u, ListTexts(ListOf(form, L"CmbFld(0)")).size());
        PressKey(VK_DOWN);
        EXPECT_EQ(L"Subscript out of range", ClosePlainMessage());
        WaitReady(form);
        EXPECT_FALSE(IsEnabled(form, L"CmdOk"));
        PressCancel();
    });
    long modal = 1;
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
    user.Finish();
    EXPECT_EQ(L"", ResultOf(*search.Get()));
}

TEST_P(FindDialog, FailingOperatorsLeaveTheListAsItWas) {
    Play([this](HWND form) {
        const Lines before = ListTexts(ListOf(form, L"CmbPredicate(0)"));
        Test().database.Execute(L"ALTER TABLE operator RENAME TO away");
        TabTo(form, L"CmbFld(0)");
        PressKey(VK_DOWN);
        EXPECT_NE(std::wstring::npos, FindLower(ClosePlainMessage(), L"operator"));
        WaitReady(form);
        EXPECT_EQ(before, ListTexts(ListOf(form, L"CmbPredicate(0)")));
        Test().database.Execute(L"ALTER TABLE away RENAME TO operator");
        PressCancel();
    });
}

TEST_P(FindDialog, TableNameIsPutInAsGiven) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"a'b")));
    DialogDriver user([] {
        ClosePlainMessage();
        ClosePlainMessage();
        WaitReady(WaitForForm(L"FrmFind"));
        PressCancel();
    });
    long modal = 1;
    EXPECT_SUCCEEDED(search->Show(&modal, Missing()));
    user.Finish();
}

} // namespace
} // namespace vndesk::test
