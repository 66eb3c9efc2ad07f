// SPDX-License-Identifier: MIT
// F2 in a value box of the find dialog: choices from a table or a SELECT of the catalogue.
#include "support/forms/search.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kProvince[] = L"Tỉnh thành";
constexpr wchar_t kKind[] = L"Nhóm hàng";

class LookUp : public Administration {
protected:
    std::wstring Play(const wchar_t* table, Script script) const {
        return PlaySearch(Test().database.ConnectionString(), table, std::move(script));
    }

    // Opens the picker from the first line and plays the user in it.
    static void WithPicker(HWND form, Script script) {
        TabTo(form, L"MskValue(0)");
        PressKey(VK_F2);
        const HWND picker = WaitForForm(L"FmSelHang", 60000);
        WaitReady(picker);
        EXPECT_EQ(form, GetWindow(picker, GW_OWNER));
        script(picker);
        WaitForClose(picker);
        WaitReady(form);
    }

    static void Select(HWND picker) {
        TabTo(picker, L"CmdSel");
        PressKey(VK_SPACE);
    }

    static Lines Names(HWND picker) { return ListTexts(Control(picker, L"lv1IP")); }
};
INSTANTIATE_ADMINISTRATION(LookUp);

TEST_P(LookUp, TableGivesACodeAndTheFocusMovesOn) {
    EXPECT_EQ(L"(MaTinh  =  " + Q(L"HP") + L")", Play(L"KhachHang", [](HWND form) {
                  FillLine(form, 0, kProvince, L"bằng", L"H");
                  WithPicker(form, [](HWND picker) {
                      EXPECT_EQ((Lines{L"Hà Nội", L"Hải Phòng"}), Names(picker));
                      PressKey(VK_DOWN);
                      WaitUntil([&] { return ListSelection(Control(picker, L"lv1IP")) == 1; });
                      Select(picker);
                  });
                  EXPECT_EQ(L"HP", TextOf(form, L"MskValue(0)"));
                  WaitForControl(form, L"cmbLg(1)");
                  PressOk(form);
              }));
}

TEST_P(LookUp, SelectGivesACode) {
    EXPECT_EQ(L"(MaNhom  =  " + Q(L"VP") + L")", Play(L"HangHoa", [](HWND form) {
                  FillLine(form, 0, kKind, L"bằng", L"V");
                  WithPicker(form, [](HWND picker) {
                      EXPECT_EQ(Lines{L"Văn phòng phẩm"}, Names(picker));
                      Select(picker);
                  });
                  WaitForControl(form, L"cmbLg(1)");
                  PressOk(form);
              }));
}

TEST_P(LookUp, StatementHasThePatternOfTheValue) {
    StatementTrace trace;
    const auto statement = [&](const wchar_t* table, const wchar_t* field, const wchar_t* value) {
        Play(table, [&](HWND form) {
            ChooseText(form, L"CmbFld(0)", field);
            TypeValue(form, 0, value);
            trace.Forget();
            WithPicker(form, [](HWND) { PressKey(VK_ESCAPE); });
            PressCancel();
        });
        return trace.All().empty() ? L"" : trace.All().front();
    };
    EXPECT_EQ(L"Select * From TinhThanh Where Name   Like " + Q(L"Hà%"),
              statement(L"KhachHang", kProvince, L"Hà"));
    EXPECT_EQ(L"Select MaNhom,TenNhom From NhomHang Where TenNhom  Like " + Q(L"O''B%"),
              statement(L"HangHoa", kKind, L"O'B"));
}

TEST_P(LookUp, EmptyValueListsEverything) {
    Play(L"KhachHang", [](HWND form) {
        ChooseText(form, L"CmbFld(0)", kProvince);
        WithPicker(form, [](HWND picker) {
            EXPECT_EQ(10u, Names(picker).size());
            PressKey(VK_ESCAPE);
        });
        PressCancel();
    });
}

TEST_P(LookUp, CancelLeavesValueAndFocus) {
    Play(L"KhachHang", [](HWND form) {
        FillLine(form, 0, kProvince, L"bằng", L"H");
        WithPicker(form, [](HWND) { PressKey(VK_ESCAPE); });
        EXPECT_EQ(L"H", TextOf(form, L"MskValue(0)"));
        EXPECT_EQ(L"MskValue(0)", FocusedControl(form));
        PressCancel();
    });
}

TEST_P(LookUp, NoMatchListsNothing) {
    Play(L"KhachHang", [](HWND form) {
        FillLine(form, 0, kProvince, L"bằng", L"xyz");
        WithPicker(form, [](HWND picker) {
            EXPECT_EQ(Lines{}, Names(picker));
            PressKey(VK_ESCAPE);
        });
        EXPECT_EQ(L"xyz", TextOf(form, L"MskValue(0)"));
        PressCancel();
    });
}

TEST_P(LookUp, FieldWithoutARelationHasNone) {
    Play(L"KhachHang", [](HWND form) {
        TabTo(form, L"MskValue(0)");
        PressKey(VK_F2);
        // The key has been handled when a later one has moved the focus.
        PressKey(VK_TAB, kShift);
        WaitForControl(form, L"CmbPredicate(0)");
        EXPECT_EQ(1u, TopWindows().size());
        // Nor has a line without a field, nor another control.
        TabTo(form, L"CmbFld(0)");
        PressKey(VK_DELETE);
        TabTo(form, L"MskValue(0)");
        PressKey(VK_F2);
        PressKey(VK_TAB, kShift);
        WaitForControl(form, L"CmbPredicate(0)");
        PressKey(VK_F2);
        PressKey(VK_TAB, kShift);
        WaitForControl(form, L"CmbFld(0)");
        EXPECT_EQ(1u, TopWindows().size());
        PressCancel();
    });
}

TEST_P(LookUp, FailingStatementIsToldAndRaisesNothing) {
    Test().database.Execute(L"UPDATE lstfld SET relation='KhongCo' WHERE code=30");
    Play(L"KhachHang", [](HWND form) {
        FillLine(form, 0, kProvince, L"bằng", L"H");
        TabTo(form, L"MskValue(0)");
        PressKey(VK_F2);
        EXPECT_NE(std::wstring::npos, FindLower(ClosePlainMessage(), L"khongco"));
        const HWND picker = WaitForForm(L"FmSelHang");
        WaitReady(picker);
        EXPECT_EQ(Lines{}, Names(picker));
        PressKey(VK_ESCAPE);
        WaitForClose(picker);
        WaitReady(form);
        EXPECT_EQ(L"H", TextOf(form, L"MskValue(0)"));
        WaitForOk(form, true);
        PressCancel();
    });
}

// Each line looks up for its own field.
TEST_P(LookUp, LowerLinesLookUpToo) {
    EXPECT_EQ(L"(MaKH  =  " + Q(L"a") + L")and(MaTinh  =  " + Q(L"CT") + L")",
              Play(L"KhachHang", [](HWND form) {
                  FillLine(form, 0, L"Mã khách hàng", L"bằng", L"a");
                  FillLine(form, 1, kProvince, L"bằng", L"C");
                  PressKey(VK_F2);
                  const HWND picker = WaitForForm(L"FmSelHang");
                  WaitReady(picker);
                  Select(picker);
                  WaitForClose(picker);
                  WaitForControl(form, L"cmbLg(2)");
                  PressOk(form);
              }));
}

TEST_P(LookUp, HundredThousandRowsAreListed) {
    Test().database.Execute(
        Test().server
            ? L"INSERT INTO tinhthanh SELECT 'X'||i, 'Nơi '||to_char(i,'FM000000') "
              L"FROM generate_series(1,100000) AS s(i)"
            : L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<100000) "
              L"INSERT INTO TinhThanh SELECT 'X'||i, 'Nơi '||printf('%06d',i) FROM n");
    EXPECT_EQ(L"(MaTinh  =  " + Q(L"X99999") + L")", Play(L"KhachHang", [](HWND form) {
                  FillLine(form, 0, kProvince, L"bằng", L"Nơi");
                  WithPicker(form, [](HWND picker) {
                      const HWND list = Control(picker, L"lv1IP");
                      EXPECT_EQ(100000, SendMessageW(list, LB_GETCOUNT, 0, 0));
                      TypeText(L" 099999");
                      EXPECT_TRUE(WaitUntil([&] {
                          return SendMessageW(list, LB_GETCURSEL, 0, 0) == 99998;
                      })) << SendMessageW(list, LB_GETCURSEL, 0, 0);
                      Select(picker);
                  });
                  EXPECT_EQ(L"X99999", TextOf(form, L"MskValue(0)"));
                  PressOk(form);
              }));
}

} // namespace
} // namespace vndesk::test
