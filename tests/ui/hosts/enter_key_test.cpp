// SPDX-License-Identifier: MIT
// EnterKey = vnEnterConfirms in each form, as users of the registered library have it.
#include "support/forms/lookup_host.h"
#include "support/forms/search.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kRefused[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";

class EnterKeyForms : public Administration {
protected:
    void SetUp() override {
        Administration::SetUp();
        if (!IsSkipped())
            test_->settings = SecuritySettings{.EnterKey = vnEnterConfirms};
    }

    long LogOn(std::function<void(HWND)> script) const {
        return PlayLogon(*Test().Host().Get(), Test().database.ConnectionString(), [&] {
            const HWND dialog = WaitForForm(L"FrmLogon");
            WaitReady(dialog, L"TxtUser");
            script(dialog);
        });
    }

    // Types into the control that has the keyboard and waits until it has arrived.
    static void Type(HWND form, const wchar_t* control, const wchar_t* text) {
        WaitReady(form, control);
        TypeText(text);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(form, control) == text; }));
    }
    static void TypePassword(HWND form, const wchar_t* control, const wchar_t* text) {
        WaitReady(form, control);
        TypeText(text);
    }
};

INSTANTIATE_ADMINISTRATION(EnterKeyForms);

TEST_P(EnterKeyForms, LogonGoesToTheEmptyPasswordAndLogsOnThere) {
    EXPECT_EQ(4, LogOn([](HWND dialog) {
                  Type(dialog, L"TxtUser", L"Lê Quốc Việt");
                  PressKey(VK_RETURN);
                  TypePassword(dialog, L"TxtPass", L"KhoHang1");
                  PressPadEnter();
              }));
    // A name behind a password, and no name at all.
    EXPECT_EQ(3, LogOn([](HWND dialog) {
                  SetBox(dialog, L"TxtPass", L"abc");
                  PressKey(VK_TAB);
                  WaitReady(dialog, L"TxtPass");
                  PressKey(VK_RETURN);
                  Type(dialog, L"TxtUser", L"Admin");
                  PressKey(VK_RETURN);
              }));
}

TEST_P(EnterKeyForms, LogonChoosesInTheOpenListOfNames) {
    constexpr wchar_t kKey[] = L"Software\\VnDeskTest\\EnterKey";
    const wchar_t names[] = L"Admin\0Lê Quốc Việt\0";
    EXPECT_EQ(ERROR_SUCCESS, RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"LogonNames", REG_MULTI_SZ,
                                             names, sizeof names));
    ComPtr<ILogon2> logon;
    EXPECT_SUCCEEDED(Test().Host().As(&logon));
    EXPECT_SUCCEEDED(logon->put_RememberKey(_bstr_t(kKey)));
    EXPECT_SUCCEEDED(logon->put_PickUser(VARIANT_TRUE));
    EXPECT_EQ(4, PlayLogon(*logon.Get(), Test().database.ConnectionString(), [&] {
                  const HWND dialog = WaitForForm(L"FrmLogon");
                  WaitReady(dialog, L"TxtPass");
                  PressKey(VK_TAB, kShift);
                  WaitReady(dialog, L"TxtUser");
                  const HWND user = Control(dialog, L"TxtUser");
                  PressKey(VK_F4);
                  const auto isOpen = [=] {
                      return SendMessageW(user, CB_GETDROPPEDSTATE, 0, 0) != 0;
                  };
                  EXPECT_TRUE(WaitUntil(isOpen));
                  for (int i = 0; i < 3 && TextOf(user) != L"Lê Quốc Việt"; ++i)
                      PressKey(VK_DOWN);
                  PressKey(VK_RETURN);
                  EXPECT_TRUE(WaitUntil([=] { return !isOpen(); }));
                  EXPECT_EQ(L"TxtUser", FocusName(dialog));
                  PressKey(VK_RETURN);
                  TypePassword(dialog, L"TxtPass", L"KhoHang1");
                  PressKey(VK_RETURN);
              }));
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
}

TEST_P(EnterKeyForms, LogonTriesOnceWhileTheKeyIsHeld) {
    EXPECT_EQ(0, LogOn([](HWND dialog) {
                  Type(dialog, L"TxtUser", L"Admin");
                  HoldKeyBesideWindows(VK_RETURN); // no try with the empty password
                  WaitReady(dialog, L"TxtPass");
                  TypePassword(dialog, L"TxtPass", L"sai");
                  HoldKeyBesideWindows(VK_RETURN);
                  const HWND box = WaitForForm(L"MessageBox");
                  WaitReady(box, L"Cmd1");
                  EXPECT_TRUE(IsWindowVisible(box));
                  Answer(kRefused, L"Login", VK_RETURN);
                  WaitReady(dialog, L"TxtUser");
                  PressKey(VK_ESCAPE);
              }));
}

TEST_P(EnterKeyForms, UsersAreAddedAndEditedByEnterAlone) {
    Test().PlayUsers([&](HWND list) {
        WaitReady(list, L"Lv");
        PressKey(VK_TAB);
        WaitReady(list, L"CmdAdd");
        HoldKeyBesideWindows(VK_RETURN);
        HWND editor = WaitForForm(L"FrmInput");
        Type(editor, L"TxtUser", L"Đỗ Thị Hường");
        PressKey(VK_RETURN);
        Type(editor, L"TxtDes", L"Thủ kho");
        PressKey(VK_RETURN);
        WaitReady(editor, L"TxtIdGroup");
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
        TypePassword(editor, L"TxtPass", L"abc");
        PressKey(VK_RETURN);
        TypePassword(editor, L"txtConfirm", L"abc");
        HoldKeyBesideWindows(VK_RETURN);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        EXPECT_EQ(8, RowCount(list, L"Lv"));
        // In the list it is the double click.
        SelectRow(list, L"Lv", 0);
        PressKey(VK_RETURN);
        editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        PressKey(VK_RETURN); // everything is filled
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        PressKey(VK_RETURN, kControl);
        editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtUser");
        PressKey(VK_ESCAPE);
        WaitForClose(editor);
        WaitReady(list, L"Lv");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"Thủ kho", Test().User(L"\"dec\"", 10));
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where code=10 and password=1401"));
}

TEST_P(EnterKeyForms, OwnPasswordIsTypedTwiceAndConfirmed) {
    Test().PlayEditor(L"Admin", [&](HWND editor) {
        TypePassword(editor, L"TxtPass", L"hoa");
        PressKey(VK_RETURN);
        TypePassword(editor, L"txtConfirm", L"hoa");
        PressKey(VK_RETURN);
    });
    EXPECT_EQ(L"1", Test().Read(L"select count(*) from \"user\" where code=3 and password=1428"));
}

TEST_P(EnterKeyForms, GroupIsWrittenAndItsRightsAreGiven) {
    Test().PlayGroups([&](HWND groups) {
        WaitReady(groups, L"Lv1");
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([=] { return TextOf(groups, L"txtName") == L"Kế toán"; }));
        PressKey(VK_RETURN); // the list is no place to write from
        Type(groups, L"txtName", L"Tài vụ");
        const StatementTrace trace;
        HoldKey(VK_RETURN);
        EXPECT_TRUE(WaitUntil(
            [&] { return ListTexts(Control(groups, L"Lv1"))[1].starts_with(L"Tài vụ-"); }));
        EXPECT_EQ(1u, trace.Writing().size());
        PressKey('Q', kAlt);
        HWND rights = WaitForForm(L"FrPms");
        WaitReady(rights, L"LstMenuBar");
        PressKey(VK_TAB);
        WaitReady(rights, L"LstSubMenu");
        PressKey(VK_DOWN);
        PressKey(VK_SPACE);
        EXPECT_TRUE(WaitUntil([=] { return Ticks(rights, L"LstSubMenu")[1] == L'1'; }));
        PressKey(VK_RETURN);
        WaitForClose(rights);
        // From the button that opened it, and back in it, the key still pressed once.
        WaitReady(groups, L"CmdPms");
        HoldKey(VK_RETURN);
        rights = WaitForForm(L"FrPms");
        WaitReady(rights, L"LstMenuBar");
        PressKey(VK_RETURN, kControl);
        WaitForClose(rights);
        WaitReady(groups, L"CmdPms");
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(L"Tài vụ", Test().Group(L"name", 2));
    EXPECT_EQ(L"7", Test().Group(L"p1", 2));
}

TEST_P(EnterKeyForms, SearchGoesFromLineToLineAndEndsInAnEmptyOne) {
    const auto search = CreateSearch();
    Govern(search.Get(), MakeSettings({.EnterKey = vnEnterConfirms}));
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    const auto enter = [](HWND form, const wchar_t* leadsTo) {
        PressKey(VK_RETURN);
        WaitForControl(form, leadsTo);
    };
    const std::wstring both = PlayShow(*search.Get(), [&](HWND form) {
        WaitForControl(form, L"CmbFld(0)");
        enter(form, L"CmbPredicate(0)");
        PressKey(VK_DOWN);
        enter(form, L"MskValue(0)");
        PressKey(VK_RETURN); // an incomplete line: nothing to confirm
        TypeText(L"KH001");
        WaitForOk(form, true);
        WaitForLines(form, L"100");
        enter(form, L"cmbLg(1)");
        enter(form, L"CmbFld(1)");
        Choose(form, L"CmbFld(1)", 0);
        enter(form, L"CmbPredicate(1)");
        Choose(form, L"CmbPredicate(1)", 0);
        enter(form, L"MskValue(1)");
        TypeText(L"KH002");
        WaitForLines(form, L"110");
        enter(form, L"cmbLg(2)");
        PressKey(VK_RETURN, kControl);
    });
    EXPECT_NE(std::wstring::npos, both.find(L"KH001"));
    EXPECT_NE(std::wstring::npos, both.find(L"KH002"));
    EXPECT_NE(L"", PlayShow(*search.Get(), [&](HWND form) {
                  Choose(form, L"CmbPredicate(0)", 0);
                  TypeValue(form, 0, L"KH003");
                  WaitForLines(form, L"100");
                  enter(form, L"cmbLg(1)");
                  enter(form, L"CmbFld(1)");
                  enter(form, L"CmbPredicate(1)");
                  enter(form, L"MskValue(1)");
                  PressKey(VK_RETURN); // an empty line is the end
              }));
}

TEST(EnterKeyPicker, ChoosesTheSelectedRowFromTheSearchBox) {
    const Catalogue catalogue(false);
    LookupHost host(catalogue.database);
    Govern(host.item.Get(), MakeSettings({.EnterKey = vnEnterConfirms}));
    host.form.Run([&] {
        host.form.Enter(L"TxtSel", L"ab");
        HoldKeyBesideWindows(VK_RETURN); // opens the picker and chooses nothing in it
        const HWND picker = WaitForPicker();
        TypeText(L"c");
        EXPECT_TRUE(WaitUntil([=] { return TextOf(picker, L"lblCode") == L"Mã số: a3"; }));
        const int tabs = host.form.Tabs();
        HoldKeyBesideWindows(VK_RETURN);
        WaitForClose(picker);
        host.form.WaitMovedOn(tabs, L"txtSelID");
        EXPECT_EQ(L"a3", host.SelID());
    });
    EXPECT_EQ(0, host.form.DefaultPresses()) << "what was held did not press the host's button";
}

} // namespace
} // namespace vndesk::test
