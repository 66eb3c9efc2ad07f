// SPDX-License-Identifier: MIT
// The form library itself: preparation, captions, fonts, focus and keys, on a small form of the
// test's own.
#include "forms/window/form.h"

#include <gtest/gtest.h>

#include "forms/window/preparation.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/ui_windows.h"
#include "text/fixed_texts.h"

namespace vndesk::test {
namespace {

using enum ControlKind;

constexpr ControlSpec kControls[] = {
    {LabelW, L"lblPlain", texts::kNotice, {100, 100, 2000, 240}},
    {LabelW, L"lblCapitals", texts::kNotice, {100, 400, 2000, 240}, 0, nullptr, L".VnArialH", 10},
    {LabelW, L"lblTitleOfForm", texts::kNotice, {100, 700, 2000, 240}},
    {LabelW, L"lblName", L"&Tªn", {100, 1000, 900, 240}, kMnemonic},
    {TextBoxW, L"txtName", L"§", {1100, 1000, 2000, 315}},
    {ComboBoxW, L"cmbGroup", L"", {1100, 1400, 2000, 1500}},
    {CheckBoxW, L"chkAll", L"TÊt c¶", {100, 1800, 2000, 300}},
    {OptionButtonW, L"optOne", L"Mét", {100, 2100, 2000, 300}},
    {CommandButtonW, L"cmdGo", L"&Xem", {100, 2500, 1200, 375}, kDefault},
    {CommandButtonW, L"cmdTitle", L"§ãng", {1400, 2500, 1200, 375}, kCancel},
    {Line, L"Line1", L"", {0, 2400, 4000, 0}},
};
constexpr FormSpec kForm = {L"FrmTest", L"Thö nghiÖm", 4000, 3000, FormBorder::FixedDialog,
                            false,      kControls};
constexpr FormSpec kTitleOnlyForm = {L"FrmTest", L"Thö nghiÖm", 4000, 3000, FormBorder::FixedDialog,
                                     true,       kControls};

class TestForm : public Form {
public:
    explicit TestForm(const FormSpec& design = kForm) : Form(design) {}

    int clicks = 0;
    std::wstring keys;
    bool swallowKeys = false;

protected:
    void OnLoad() override {
        Get(L"cmdGo").onClick = [this] { ++clicks; };
        Get(L"cmdTitle").onClick = [this] { Unload(); };
    }
    bool OnKeyPress(wchar_t character) override {
        keys += character;
        return swallowKeys;
    }
};

// Preparation would make every font Arial: these read what conversion does with the designed fonts.
class UnpreparedForm : public TestForm {
public:
    UnpreparedForm() : TestForm(kTitleOnlyForm) {}

protected:
    void OnLoad() override { ConvertFormControls(*this); }
};

TEST(FormPreparation, ConvertsTheCaptionsOfLabelsAndButtons) {
    TestForm form;
    form.Load();
    EXPECT_EQ(form.Get(L"lblPlain").Caption(), L"Thông báo");
    EXPECT_EQ(form.Get(L"chkAll").Caption(), L"Tất cả");
    EXPECT_EQ(form.Get(L"optOne").Caption(), L"Một");
    EXPECT_EQ(form.Get(L"cmdGo").Caption(), L"&Xem");
    EXPECT_EQ(TextOf(form.Window()), L"Thử nghiệm");
}

TEST(FormPreparation, LeavesTextBoxesAsTheyAre) {
    TestForm form;
    form.Load();
    EXPECT_EQ(form.Get(L"txtName").Text(), L"§");
    EXPECT_EQ(LOWORD(SendMessageW(form.Get(L"txtName").Window(), EM_GETMARGINS, 0, 0)), 0);
}

TEST(FormPreparation, CaptionInAFontEndingInHComesOutInCapitals) {
    UnpreparedForm form;
    form.Load();
    EXPECT_EQ(form.Get(L"lblCapitals").Caption(), L"THÔNG BÁO");
    EXPECT_EQ(form.Get(L"lblPlain").Caption(), L"Thông báo");
}

TEST(FormPreparation, LabelNamedAsTitleComesOutInCapitals) {
    TestForm form;
    form.Load();
    EXPECT_EQ(form.Get(L"lblTitleOfForm").Caption(), L"THÔNG BÁO");
    // Only labels: a button of such a name keeps its letters.
    EXPECT_EQ(form.Get(L"cmdTitle").Caption(), L"Đóng");
}

TEST(FormPreparation, TitleOnlyLeavesTheControlsUnconverted) {
    TestForm form(kTitleOnlyForm);
    form.Load();
    EXPECT_EQ(form.Get(L"lblPlain").Caption(), texts::kNotice);
    EXPECT_EQ(TextOf(form.Window()), L"Thử nghiệm");
}

TEST(FormPreparation, FontBecomesArialAndSmallOnesNine) {
    TestForm form;
    form.Load();
    EXPECT_EQ(form.Get(L"lblPlain").FontOf(), (FontSpec{L"Arial", 9}));
    EXPECT_EQ(form.Get(L"lblCapitals").FontOf(), (FontSpec{L"Arial", 10}));
}

TEST(FormPreparation, EmptyDefaultFontIsArialAndAnotherIsKept) {
    SetDefaultFontName(L"");
    EXPECT_EQ(DefaultFontName(), L"");
    TestForm().Load();
    EXPECT_EQ(DefaultFontName(), L"Arial");
    SetDefaultFontName(L"Tahoma");
    TestForm form;
    form.Load();
    EXPECT_EQ(DefaultFontName(), L"Tahoma");
    EXPECT_EQ(form.Get(L"lblPlain").FontOf().name, L"Arial");
    SetDefaultFontName(L"");
}

TEST(FormPreparation, UnicodeTitleReachesAnAnsiWindow) {
    const HWND window = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                        nullptr, nullptr, nullptr);
    SetWindowTextUnicode(window, L"Thông báo");
    wchar_t text[32] = L"";
    DefWindowProcW(window, WM_GETTEXT, 32, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"Thông báo");
    DestroyWindow(window);
}

TEST(Fonts, AreSharedAndFreedWithTheLastUser) {
    const auto first = Font::Get({L"Arial", 9}, 96);
    EXPECT_EQ(Font::Get({L"Arial", 9}, 96), first);
    EXPECT_NE(Font::Get({L"Arial", 10}, 96), first);
    EXPECT_NE(Font::Get({L"Arial", 9}, 144), first);
    HGDIOBJ handle = nullptr;
    {
        const auto other = Font::Get({L"Tahoma", 11}, 96);
        handle = other->Handle();
        EXPECT_EQ(GetObjectType(handle), static_cast<DWORD>(OBJ_FONT));
    }
    EXPECT_EQ(GetObjectType(handle), 0u);
}

TEST(Twips, ScaleWithTheResolution) {
    EXPECT_EQ(ToPixels(1440, 96), 96);
    EXPECT_EQ(ToPixels(1440, 144), 144);
    EXPECT_EQ(ToPixels(15, 96), 1);
    EXPECT_EQ(ToTwips(96, 96), 1440);
}

TEST(FormWindow, ControlsAndFormCarryTheirNames) {
    TestForm form;
    form.Load();
    EXPECT_EQ(WindowName(form.Window()), L"FrmTest");
    EXPECT_EQ(WindowName(form.Get(L"txtName").Window()), L"txtName");
}

constexpr ControlSpec kBoxes[] = {
    {TextBoxW, L"txtHigh", L"", {100, 100, 1500, 700}},
    {TextBoxW, L"txtLow", L"", {1700, 100, 1500, 270}},
    {TextBoxW, L"txtLines", L"", {3300, 100, 600, 700}, kMultiLine},
    {ComboBoxW, L"cmbOne", L"", {100, 900, 1500, 1500}},
};
constexpr FormSpec kBoxForm = {L"FrmBoxes", L"",   4000, 3000, FormBorder::FixedDialog,
                               false,       kBoxes};

LONG HeightOf(const vndesk::Control& control) {
    RECT box = {};
    GetWindowRect(control.Window(), &box);
    return box.bottom - box.top;
}

TEST(FormWindow, OneLineBoxIsNoHigherThanAComboBox) {
    Form form(kBoxForm);
    form.Load();
    EXPECT_EQ(HeightOf(form.Get(L"txtHigh")), HeightOf(form.Get(L"cmbOne")));
    EXPECT_EQ(HeightOf(form.Get(L"txtLow")), ToPixels(270, form.Dpi()));
    EXPECT_NEAR(HeightOf(form.Get(L"txtLines")), ToPixels(700, form.Dpi()), 1);
    form.Get(L"txtHigh").Move({200, 100, 1400, 700});
    EXPECT_EQ(HeightOf(form.Get(L"txtHigh")), HeightOf(form.Get(L"cmbOne")));
}

TEST(FormWindow, NothingOfItsClassStaysBehind) {
    WNDCLASSEXW found = {};
    found.cbSize = sizeof found;
    {
        TestForm form;
        form.Load();
        EXPECT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), kFormClass, &found));
    }
    EXPECT_FALSE(GetClassInfoExW(GetModuleHandleW(nullptr), kFormClass, &found));
}

void Play(TestForm& form, std::function<void(HWND)> script) {
    DialogDriver user([script] {
        const HWND window = WaitForForm(L"FrmTest");
        WaitForFocus(window, L"txtName");
        script(window);
    });
    form.ShowModal();
    user.Finish();
}

TEST(FormKeys, LettersOfLabelsAndButtonsWorkWithAlt) {
    TestForm form;
    Play(form, [](HWND window) {
        PressKey(VK_TAB);
        WaitForFocus(window, L"cmbGroup");
        PressKey('T', kAlt);
        WaitForFocus(window, L"txtName");
        PressKey('X', kAlt);
        Sleep(200);
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(form.clicks, 1);
}

TEST(FormKeys, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
    TestForm form;
    Play(form, [](HWND) {
        PressKey(VK_RETURN);
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(form.clicks, 1);
}

TEST(FormKeys, FormSeesTheCharactersBeforeItsControls) {
    TestForm form;
    form.swallowKeys = true;
    std::wstring typed;
    DialogDriver user([&] {
        const HWND window = WaitForForm(L"FrmTest");
        WaitForFocus(window, L"txtName");
        TypeText(L"aế");
        PressKey(VK_RETURN);
        PressKey(VK_ESCAPE);
        Sleep(200);
        typed = TextOf(window, L"txtName");
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    form.ShowModal();
    user.Finish();
    EXPECT_EQ(form.keys, L"aế\r\x1b");
    EXPECT_EQ(typed, L"§");
    EXPECT_EQ(form.clicks, 0);
}

TEST(FormKeys, HandlerThatThrowsEndsQuietly) {
    TestForm form;
    form.Load();
    form.Get(L"cmdGo").onClick = [] { throw ComError(E_FAIL); };
    Play(form, [](HWND window) {
        PressKey('X', kAlt);
        Sleep(200);
        EXPECT_TRUE(IsWindow(window));
        PressKey(VK_ESCAPE);
    });
}

TEST(FormWindow, ShownAgainAfterItWasClosed) {
    TestForm form;
    for (int round = 0; round < 2; ++round)
        Play(form, [](HWND) { PressKey(VK_ESCAPE); });
    EXPECT_EQ(form.Window(), nullptr);
}

} // namespace
} // namespace vndesk::test
