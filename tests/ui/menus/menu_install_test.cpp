// SPDX-License-Identifier: MIT
// Installing drawn menus on a window, keeping up with what its host does, giving it back.
#include "ui/menus/menu_canvas.h"

#include "support/env.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr HRESULT kDuplicateKeyError = static_cast<HRESULT>(0x800A01C9);

HRESULT CanUnload() {
    using Ask = HRESULT WINAPI();
    return reinterpret_cast<Ask*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"vndesk.dll"), "DllCanUnloadNow")))();
}

void ExpectOwnerDrawn(HMENU menu) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        EXPECT_TRUE(TypeOf(menu, static_cast<UINT>(i)) & MFT_OWNERDRAW) << i;
        if (GetSubMenu(menu, i))
            ExpectOwnerDrawn(GetSubMenu(menu, i));
    }
}

bool IsDrawn(HMENU menu, UINT position) {
    return (TypeOf(menu, position) & MFT_OWNERDRAW) != 0;
}

void OpenPopup(const MenuHost& host, HMENU popup, UINT position) {
    SendMessageW(host.Window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup),
                 static_cast<LPARAM>(position));
}

class MenuInstallTest : public testing::TestWithParam<MenuHost::Kind> {};
INSTANTIATE_TEST_SUITE_P(Windows, MenuInstallTest,
                         testing::Values(MenuHost::Kind::Unicode, MenuHost::Kind::Ansi),
                         [](const auto& info) {
                             return info.param == MenuHost::Kind::Unicode ? "Unicode" : "Ansi";
                         });

TEST_P(MenuInstallTest, EveryItemOfBarSubmenusAndSystemMenuIsDrawn) {
    const MenuHost host(GetParam());
    const LONG_PTR before = host.Procedure();
    const InstalledMenu menu(host);
    EXPECT_NE(before, host.Procedure());
    EXPECT_EQ(GetParam() == MenuHost::Kind::Unicode, IsWindowUnicode(host.Window()) != FALSE);
    ExpectOwnerDrawn(host.Bar());
    EXPECT_LT(0, GetMenuItemCount(host.System()));
    ExpectOwnerDrawn(host.System());
}

TEST_P(MenuInstallTest, UninstallGivesTheWindowBackExactly) {
    const MenuHost host(GetParam());
    const LONG_PTR procedure = host.Procedure();
    const MenuLines bar = Describe(host.Bar()), system = Describe(host.System());
    for (int i = 0; i < 3; ++i) {
        const InstalledMenu menu(host);
        EXPECT_NE(bar, Describe(host.Bar()));
    }
    EXPECT_EQ(procedure, host.Procedure());
    EXPECT_EQ(bar, Describe(host.Bar()));
    EXPECT_EQ(system, Describe(host.System()));
    EXPECT_EQ(GetParam() == MenuHost::Kind::Unicode, IsWindowUnicode(host.Window()) != FALSE);
}

TEST(MenuInstall, WindowZeroIsTrueAndChangesNothing) {
    const auto menu = CreateCoolMenu();
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_SUCCEEDED(menu->Install(0, InstalledMenu::Missing(), InstalledMenu::Missing(), &done));
    EXPECT_EQ(VARIANT_TRUE, done);
    done = VARIANT_FALSE;
    EXPECT_SUCCEEDED(menu->Uninstall(0, &done));
    EXPECT_EQ(VARIANT_TRUE, done);
}

TEST(MenuInstall, WindowZeroTakesAnything) {
    const auto menu = CreateCoolMenu();
    for (const _variant_t& anything :
         {_variant_t(L"không"), _variant_t(menu.Get()), _variant_t(3L)}) {
        VARIANT_BOOL done = VARIANT_FALSE;
        EXPECT_SUCCEEDED(menu->Install(0, anything, anything, &done));
        EXPECT_EQ(VARIANT_TRUE, done);
    }
}

TEST(MenuInstall, HandleOfNoWindowIsFalse) {
    const auto menu = CreateCoolMenu();
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_SUCCEEDED(
        menu->Install(0x7FFF1234, InstalledMenu::Missing(), InstalledMenu::Missing(), &done));
    EXPECT_EQ(VARIANT_FALSE, done);
    const auto desktop = static_cast<long>(reinterpret_cast<LONG_PTR>(GetDesktopWindow()));
    EXPECT_SUCCEEDED(
        menu->Install(desktop, InstalledMenu::Missing(), InstalledMenu::Missing(), &done));
    EXPECT_EQ(VARIANT_FALSE, done) << "a window of another process";
    EXPECT_SUCCEEDED(menu->Uninstall(0x7FFF1234, &done));
    EXPECT_EQ(VARIANT_TRUE, done);
}

TEST(MenuInstall, SecondInstallOfAWindowIsADuplicateKey) {
    MenuHost host;
    const LONG_PTR procedure = host.Procedure();
    const MenuLines before = Describe(host.Bar());
    {
        const InstalledMenu menu(host);
        VARIANT_BOOL done = VARIANT_TRUE;
        EXPECT_HR(kDuplicateKeyError, menu->Install(host.Handle(), InstalledMenu::Missing(),
                                                    InstalledMenu::Missing(), &done));
        EXPECT_EQ(VARIANT_FALSE, done);
        EXPECT_NE(procedure, host.Procedure()) << "the hook stays";
        ExpectOwnerDrawn(host.Bar());
        // Messages still reach the window's own procedure, once.
        SendMessageW(host.Window(), WM_APP, 0, 0);
        EXPECT_EQ(1, host.Seen(WM_APP));
    }
    EXPECT_EQ(procedure, host.Procedure());
    EXPECT_EQ(before, Describe(host.Bar()));
}

TEST(MenuInstall, SecondInstallReplacesTheProcedureBeforeItsError) {
    const MenuHost host;
    const InstalledMenu menu(host);
    const LONG_PTR hook = host.Procedure();
    // Somebody else's procedure stands in front now.
    SetWindowLongPtrW(host.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DefWindowProcW));
    ASSERT_NE(hook, host.Procedure());
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_HR(kDuplicateKeyError, menu->Install(host.Handle(), InstalledMenu::Missing(),
                                                InstalledMenu::Missing(), &done));
    EXPECT_EQ(hook, host.Procedure());
}

TEST(MenuInstall, AnythingButAHelpCallBackIsRefused) {
    const MenuHost host;
    const LONG_PTR procedure = host.Procedure();
    const auto menu = CreateCoolMenu();
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_HR(DISP_E_TYPEMISMATCH, menu->Install(host.Handle(), _variant_t(menu.Get()),
                                                 InstalledMenu::Missing(), &done));
    EXPECT_HR(DISP_E_TYPEMISMATCH,
              menu->Install(host.Handle(), _variant_t(L"không"), InstalledMenu::Missing(), &done));
    EXPECT_HR(DISP_E_TYPEMISMATCH,
              menu->Install(host.Handle(), InstalledMenu::Missing(), _variant_t(L"không"), &done));
    EXPECT_EQ(procedure, host.Procedure());
    const _variant_t nothing(static_cast<IDispatch*>(nullptr));
    EXPECT_SUCCEEDED(menu->Install(host.Handle(), nothing, nothing, &done));
    EXPECT_EQ(VARIANT_TRUE, done);
    EXPECT_SUCCEEDED(menu->Uninstall(host.Handle(), &done));
}

TEST(MenuInstall, LibraryStaysLoadedWhileAWindowIsInstalled) {
    const MenuHost host;
    InstalledMenu{host};
    VARIANT_BOOL done = VARIANT_FALSE;
    auto menu = CreateCoolMenu();
    EXPECT_SUCCEEDED(
        menu->Install(host.Handle(), InstalledMenu::Missing(), InstalledMenu::Missing(), &done));
    menu.Reset();
    EXPECT_HR(S_FALSE, CanUnload());
    ExpectOwnerDrawn(host.Bar());
    EXPECT_SUCCEEDED(CreateCoolMenu()->Uninstall(host.Handle(), &done));
    EXPECT_HR(S_OK, CanUnload());
}

TEST(MenuInstall, WindowDestroyedWhileInstalledLeavesNothingBehind) {
    auto menu = CreateCoolMenu();
    VARIANT_BOOL done = VARIANT_FALSE;
    for (int i = 0; i < 20; ++i) {
        const MenuHost host;
        EXPECT_SUCCEEDED(menu->Install(host.Handle(), InstalledMenu::Missing(),
                                       InstalledMenu::Missing(), &done));
        EXPECT_EQ(VARIANT_TRUE, done);
        DestroyWindow(host.Window());
        long size = -1;
        EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), InstalledMenu::Missing(), &size));
        EXPECT_EQ(0, size) << "no entry is left";
    }
    menu.Reset();
    EXPECT_HR(S_OK, CanUnload());
}

TEST(MenuInstall, LaterInstallAfterTheLastUninstallWorks) {
    const MenuHost first, second;
    {
        const InstalledMenu one(first);
        const InstalledMenu two(second);
        EXPECT_NE(DataOf(first.File(), 0), DataOf(second.File(), 0)) << "one number for each item";
    }
    const InstalledMenu again(second);
    ExpectOwnerDrawn(second.Bar());
    EXPECT_FALSE(IsDrawn(first.File(), 0));
}

TEST(MenuInstall, OneOfTwoWindowsIsGivenBackAlone) {
    const MenuHost first, second;
    const MenuLines before = Describe(first.Bar());
    const InstalledMenu two(second);
    InstalledMenu{first};
    EXPECT_EQ(before, Describe(first.Bar()));
    ExpectOwnerDrawn(second.Bar());
}

// --- captions ---

TEST(MenuInstall, CaptionStaysReadableInTheItem) {
    const MenuHost host;
    const InstalledMenu menu(host);
    EXPECT_EQ(L"&Mở…\tCtrl+O", CaptionOf(host.File(), kOpenAt));
    EXPECT_EQ(L"Hiển thị", CaptionOf(host.File(), kViewTitle));
    EXPECT_EQ(L"&1 Sổ cái | 2005", CaptionOf(host.Recent(), 0));
    EXPECT_EQ(L"&Tệp", CaptionOf(host.Bar(), 0));
}

TEST(MenuInstall, CaptionThatBeginsWithAHyphenIsASeparator) {
    const MenuHost host;
    const InstalledMenu menu(host);
    EXPECT_EQ(static_cast<UINT>(MFT_SEPARATOR | MFT_OWNERDRAW), TypeOf(host.File(), kViewTitle));
    EXPECT_FALSE(TypeOf(host.File(), kOpenAt) & MFT_SEPARATOR);
}

// --- what the host does meanwhile ---

TEST(MenuInstall, ItemsAddedLaterAreTakenWhenTheirPopupOpens) {
    const MenuHost host;
    InstalledMenu menu(host);
    const HMENU deeper = CreatePopupMenu();
    AppendMenuW(deeper, MF_STRING, 301, L"Trong|x|2");
    AppendMenuW(host.File(), MF_STRING, 300, L"Mới|Thêm sau|1");
    AppendMenuW(host.File(), MF_POPUP, reinterpret_cast<UINT_PTR>(deeper), L"Thêm");
    const auto added = static_cast<UINT>(GetMenuItemCount(host.File()) - 2);
    EXPECT_FALSE(IsDrawn(host.File(), added));
    OpenPopup(host, host.File(), 0);
    EXPECT_TRUE(IsDrawn(host.File(), added));
    EXPECT_TRUE(IsDrawn(host.File(), added + 1));
    EXPECT_TRUE(IsDrawn(deeper, 0));
    EXPECT_EQ(L"Mới", CaptionOf(host.File(), added));
    menu.Uninstall();
    EXPECT_EQ(L"Mới|Thêm sau|1", CaptionOf(host.File(), added));
    EXPECT_EQ(L"Trong|x|2", CaptionOf(deeper, 0));
    EXPECT_FALSE(IsDrawn(deeper, 0));
}

TEST(MenuInstall, ItemsThatTheHostAddsAsThePopupOpensAreTaken) {
    MenuHost host;
    const InstalledMenu menu(host);
    host.onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
        if (message == WM_INITMENUPOPUP && reinterpret_cast<HMENU>(wParam) == host.Recent())
            AppendMenuW(host.Recent(), MF_STRING, 310, L"&3 Vừa thêm");
    };
    OpenPopup(host, host.Recent(), kRecentAt);
    EXPECT_EQ(3, GetMenuItemCount(host.Recent()));
    EXPECT_TRUE(IsDrawn(host.Recent(), 2));
}

TEST(MenuInstall, HostMayUninstallAsThePopupOpens) {
    const MenuHost other;
    MenuHost host;
    const MenuLines before = Describe(host.Bar());
    const InstalledMenu stays(other);
    InstalledMenu menu(host);
    host.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == WM_INITMENUPOPUP)
            menu.Uninstall();
    };
    OpenPopup(host, host.File(), 0);
    EXPECT_EQ(before, Describe(host.Bar())) << "nothing is converted after that";
    host.onMessage = nullptr;
}

TEST(MenuInstall, NewCaptionsAndTypesAreKept) {
    const MenuHost host;
    InstalledMenu menu(host);
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = const_cast<wchar_t*>(L"&Ghi\tF2|Khác|4");
    SetMenuItemInfoW(host.File(), kSave, FALSE, &info);
    ModifyMenuW(host.File(), kExit, MF_BYCOMMAND | MF_STRING, kExit, L"Đón&g|Thôi");
    CheckMenuRadioItem(host.Recent(), 0, 1, 1, MF_BYPOSITION);
    OpenPopup(host, host.File(), 0);
    EXPECT_EQ(L"&Ghi\tF2", CaptionOf(host.File(), kSaveAt));
    EXPECT_EQ(L"Đón&g", CaptionOf(host.File(), kExitAt));
    EXPECT_TRUE(IsDrawn(host.File(), kExitAt));
    EXPECT_TRUE(TypeOf(host.Recent(), 1) & MFT_RADIOCHECK);
    EXPECT_TRUE(IsDrawn(host.Recent(), 1));
    menu.Uninstall();
    EXPECT_EQ(L"&Ghi\tF2|Khác|4", CaptionOf(host.File(), kSaveAt));
    EXPECT_EQ(L"Đón&g|Thôi", CaptionOf(host.File(), kExitAt));
    EXPECT_TRUE(TypeOf(host.Recent(), 1) & MFT_RADIOCHECK);
    EXPECT_FALSE(IsDrawn(host.Recent(), 1));
}

TEST(MenuInstall, WiderShortcutMakesTheOtherItemsWider) {
    const MenuHost host;
    const InstalledMenu menu(host);
    const LONG before = MeasureItem(host, host.File(), kSaveAt).cx;
    AppendMenuW(host.File(), MF_STRING, 340, L"Xuất\tCtrl+Alt+Shift+PageDown");
    OpenPopup(host, host.File(), 0);
    EXPECT_LT(before, MeasureItem(host, host.File(), kSaveAt).cx);
    DeleteMenu(host.File(), 340, MF_BYCOMMAND);
    OpenPopup(host, host.File(), 0);
    EXPECT_EQ(before, MeasureItem(host, host.File(), kSaveAt).cx);
}

TEST(MenuInstall, ItemsThatTheHostDrawsItselfAreLeftAlone) {
    MenuHost host;
    AppendMenuW(host.File(), MF_OWNERDRAW, 320, reinterpret_cast<LPCWSTR>(3));
    const auto own = static_cast<UINT>(GetMenuItemCount(host.File()) - 1);
    const InstalledMenu menu(host);
    EXPECT_EQ(3u, DataOf(host.File(), own));
    OpenPopup(host, host.File(), 0);
    EXPECT_EQ(3u, DataOf(host.File(), own));
    // Even where a number of ours is in it.
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA;
    info.dwItemData = DataOf(host.File(), kSaveAt);
    SetMenuItemInfoW(host.File(), own, TRUE, &info);
    OpenPopup(host, host.File(), 0);
    EXPECT_EQ(info.dwItemData, DataOf(host.File(), own));
    MEASUREITEMSTRUCT measured = {ODT_MENU, 0, 320, 0, 0, info.dwItemData};
    SendMessageW(host.Window(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measured));
    EXPECT_EQ(1, host.Seen(WM_MEASUREITEM)) << "its host measures it";
    DRAWITEMSTRUCT drawn = {};
    drawn.CtlType = ODT_MENU;
    drawn.itemID = 320;
    drawn.hwndItem = reinterpret_cast<HWND>(host.File());
    drawn.itemData = info.dwItemData;
    SendMessageW(host.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawn));
    EXPECT_EQ(1, host.Seen(WM_DRAWITEM)) << "and draws it";
}

TEST(MenuInstall, AnotherMenuOfTheWindowIsTaken) {
    const MenuHost host;
    const HMENU first = host.Bar();
    const MenuLines before = Describe(first);
    InstalledMenu menu(host);
    const HMENU other = CreateMenu(), popup = CreatePopupMenu();
    AppendMenuW(popup, MF_STRING, 330, L"Một|giúp");
    AppendMenuW(other, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), L"Khác");
    SetMenu(host.Window(), other);
    SetWindowPos(host.Window(), nullptr, 0, 0, 530, 430, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(IsDrawn(other, 0));
    EXPECT_TRUE(IsDrawn(popup, 0));
    menu.Uninstall();
    EXPECT_EQ(L"Một|giúp", CaptionOf(popup, 0));
    EXPECT_EQ(before, Describe(first)) << "the menu that is not shown is given back too";
    SetMenu(host.Window(), first);
    DestroyMenu(other);
}

TEST(MenuInstall, MenuThatComesLaterIsTaken) {
    const MenuHost host;
    const HMENU bar = host.Bar();
    const MenuLines before = Describe(bar);
    SetMenu(host.Window(), nullptr);
    InstalledMenu menu(host);
    SetWindowPos(host.Window(), nullptr, 0, 0, 530, 430, SWP_NOMOVE | SWP_NOZORDER);
    SetMenu(host.Window(), bar);
    SetWindowPos(host.Window(), nullptr, 0, 0, 540, 440, SWP_NOMOVE | SWP_NOZORDER);
    ExpectOwnerDrawn(bar);
    menu.Uninstall();
    EXPECT_EQ(before, Describe(bar));
}

// --- properties ---

TEST(MenuProperties, FreshInstallationHasTheUsualOnes) {
    const MenuHost host;
    const InstalledMenu menu(host);
    const _variant_t none = InstalledMenu::Missing();
    long number = -1;
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), none, &number));
    EXPECT_EQ(8, number);
    EXPECT_SUCCEEDED(menu->ForeColor(host.Handle(), none, &number));
    EXPECT_EQ(0, number);
    EXPECT_SUCCEEDED(menu->SelectColor(host.Handle(), none, &number));
    EXPECT_EQ(static_cast<long>(GetSysColor(COLOR_HIGHLIGHT)), number);
    _bstr_t name;
    EXPECT_SUCCEEDED(menu->FontName(host.Handle(), none, name.GetAddress()));
    EXPECT_EQ(0u, name.length());
    VARIANT_BOOL flag = 7;
    EXPECT_SUCCEEDED(menu->ComplexChecks(host.Handle(), none, &flag));
    EXPECT_EQ(VARIANT_TRUE, flag);
    EXPECT_SUCCEEDED(menu->ColorEmbossed(host.Handle(), none, &flag));
    EXPECT_EQ(VARIANT_TRUE, flag);
    EXPECT_SUCCEEDED(menu->RightToLeft(host.Handle(), none, &flag));
    EXPECT_EQ(VARIANT_FALSE, flag);
    EXPECT_SUCCEEDED(menu->FullSelect(host.Handle(), none, &flag));
    EXPECT_EQ(VARIANT_TRUE, flag);
}

TEST(MenuProperties, ValueIsStoredAndReturned) {
    const MenuHost host;
    const InstalledMenu menu(host);
    const _variant_t none = InstalledMenu::Missing();
    long number = -1;
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(L"12"), &number));
    EXPECT_EQ(12, number);
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), none, &number));
    EXPECT_EQ(12, number);
    EXPECT_SUCCEEDED(menu->ForeColor(host.Handle(), _variant_t(0x00FF8000L), &number));
    EXPECT_EQ(0x00FF8000L, number);
    EXPECT_SUCCEEDED(menu->SelectColor(host.Handle(), _variant_t(0x000000FFL), &number));
    EXPECT_EQ(0xFF, number);
    _bstr_t name;
    EXPECT_SUCCEEDED(menu->FontName(host.Handle(), _variant_t(L"Arial"), name.GetAddress()));
    EXPECT_STREQ(L"Arial", name);
    VARIANT_BOOL flag = 7;
    for (const auto member : {&ICoolMenu::ComplexChecks, &ICoolMenu::ColorEmbossed,
                              &ICoolMenu::RightToLeft, &ICoolMenu::FullSelect})
        for (const bool value : {false, true, false}) {
            EXPECT_SUCCEEDED((menu.operator->()->*member)(host.Handle(), _variant_t(value), &flag));
            EXPECT_EQ(value ? VARIANT_TRUE : VARIANT_FALSE, flag);
            EXPECT_SUCCEEDED((menu.operator->()->*member)(host.Handle(), none, &flag));
            EXPECT_EQ(value ? VARIANT_TRUE : VARIANT_FALSE, flag);
        }
}

TEST(MenuProperties, UnknownWindowsAndUnsuitableValuesAreIgnored) {
    const MenuHost host;
    const auto none = InstalledMenu::Missing();
    const auto menu = CreateCoolMenu();
    long number = -1;
    _bstr_t name;
    VARIANT_BOOL flag = 7;
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(12L), &number));
    EXPECT_EQ(0, number);
    EXPECT_SUCCEEDED(menu->FontName(host.Handle(), _variant_t(L"Arial"), name.GetAddress()));
    EXPECT_EQ(0u, name.length());
    EXPECT_SUCCEEDED(menu->FullSelect(0, none, &flag));
    EXPECT_EQ(VARIANT_FALSE, flag);
    EXPECT_SUCCEEDED(menu->MDIChildMenu(host.Handle()));
    EXPECT_SUCCEEDED(menu->MDIChildMenu(0));
    const InstalledMenu installed(host);
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(L"không"), &number));
    EXPECT_EQ(8, number);
    for (const long size : {0L, -5L, 100000L}) {
        EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(size), &number));
        EXPECT_EQ(size, number);
        OpenPopup(host, host.File(), 0);
    }
}

// A variant that stands for another one, as a script passes its variables.
_variant_t ReferenceTo(_variant_t& value) {
    _variant_t reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &value;
    return reference;
}

TEST(MenuProperties, MissingValueOnlyReadsHoweverItIsPassed) {
    const MenuHost host;
    const InstalledMenu menu(host);
    long number = -1;
    _bstr_t name;
    VARIANT_BOOL flag = VARIANT_FALSE;
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(12L), &number));
    EXPECT_SUCCEEDED(menu->FontName(host.Handle(), _variant_t(L"Arial"), name.GetAddress()));
    for (_variant_t value : {_variant_t(), InstalledMenu::Missing()}) {
        for (const _variant_t& given : {value, ReferenceTo(value)}) {
            EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), given, &number));
            EXPECT_EQ(12, number) << given.vt;
            EXPECT_SUCCEEDED(menu->FontName(host.Handle(), given, name.GetAddress()));
            EXPECT_STREQ(L"Arial", name) << given.vt;
            EXPECT_SUCCEEDED(menu->FullSelect(host.Handle(), given, &flag));
            EXPECT_EQ(VARIANT_TRUE, flag) << given.vt;
        }
    }
    _variant_t nine(9L);
    EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), ReferenceTo(nine), &number));
    EXPECT_EQ(9, number);
}

} // namespace
} // namespace vndesk::test
