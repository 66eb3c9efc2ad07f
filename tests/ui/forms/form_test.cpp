// SPDX-License-Identifier: MIT
// The form library itself: preparation, captions, fonts, focus and keys, on a small form of the
// test's own.
#include "forms/window/form_of.h"

#include <gtest/gtest.h>

#include "forms/window/preparation.h"
#include "msgbox/text/captions.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr ControlSpec kControls[] = {
    Label(L"lblPlain", texts::kNotice, {100, 100, 2000, 240}),
    {.kind = ControlKind::LabelW,
     .name = L"lblCapitals",
     .caption = texts::kNotice,
     .rect = {100, 400, 2000, 240},
     .fontName = L".VnArialH",
     .fontPoints = 10},
    Label(L"lblTitleOfForm", texts::kNotice, {100, 700, 2000, 240}),
    Label(L"lblName", L"&Tªn", {100, 1000, 900, 240}, kMnemonic),
    {ControlKind::TextBoxW, L"txtName", L"§", {1100, 1000, 2000, 315}},
    DropDownList(L"cmbGroup", {1100, 1400, 2000, 1500}),
    CheckBox(L"chkAll", L"TÊt c¶", {100, 1800, 2000, 300}),
    OptionButton(L"optOne", L"Mét", {100, 2100, 2000, 300}),
    Button(L"cmdGo", L"&Xem", {100, 2500, 1200, 375}, kDefault),
    Button(L"cmdTitle", L"§ãng", {1400, 2500, 1200, 375}, kCancel),
};
constexpr FormSpec kForm = {
    .name = L"FrmTest",
    .caption = L"Thö nghiÖm",
    .client = {4000, 3000},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};
constexpr FormSpec kTitleOnlyForm = {
    .name = L"FrmTest",
    .caption = L"Thö nghiÖm",
    .client = {4000, 3000},
    .border = FormBorder::FixedDialog,
    .titleOnly = true,
    .controls = kControls,
};

template <const FormSpec& kDesign> class TestFormOf : public FormOf<kDesign> {
public:
    int clicks = 0;
    std::wstring keys;
    bool swallowKeys = false;

protected:
    void OnLoad() override {
        this->Get(L"cmdGo").onClick = [this] { ++clicks; };
        this->Get(L"cmdTitle").onClick = [this] { this->Unload(); };
    }
    bool OnKeyPress(wchar_t character) override {
        keys += character;
        return swallowKeys;
    }
};

using TestForm = TestFormOf<kForm>;
using TitleOnlyForm = TestFormOf<kTitleOnlyForm>;

// Preparation would make every font Arial: these read what conversion does with the designed fonts.
class UnpreparedForm : public TitleOnlyForm {
protected:
    void OnLoad() override { ConvertFormControls(*this); }
};

TEST(FormPreparation, ConvertsTheCaptionsOfLabelsAndButtons) {
    TestForm form;
    form.Load();
    EXPECT_EQ(L"Thông báo", form.Get(L"lblPlain").Caption());
    EXPECT_EQ(L"Tất cả", form.Get(L"chkAll").Caption());
    EXPECT_EQ(L"Một", form.Get(L"optOne").Caption());
    EXPECT_EQ(L"&Xem", form.Get(L"cmdGo").Caption());
    EXPECT_EQ(L"Thử nghiệm", TextOf(form.Window()));
}

TEST(FormPreparation, LeavesTextBoxesAsTheyAre) {
    TestForm form;
    form.Load();
    EXPECT_EQ(L"§", form.Get(L"txtName").Text());
    EXPECT_EQ(0, LOWORD(SendMessageW(form.Get(L"txtName").Window(), EM_GETMARGINS, 0, 0)));
}

TEST(FormPreparation, CaptionInAFontEndingInHComesOutInCapitals) {
    UnpreparedForm form;
    form.Load();
    EXPECT_EQ(L"THÔNG BÁO", form.Get(L"lblCapitals").Caption());
    EXPECT_EQ(L"Thông báo", form.Get(L"lblPlain").Caption());
}

TEST(FormPreparation, LabelNamedAsTitleComesOutInCapitals) {
    TestForm form;
    form.Load();
    EXPECT_EQ(L"THÔNG BÁO", form.Get(L"lblTitleOfForm").Caption());
    // Only labels: a button of such a name keeps its letters.
    EXPECT_EQ(L"Đóng", form.Get(L"cmdTitle").Caption());
}

TEST(FormPreparation, TitleOnlyLeavesTheControlsUnconverted) {
    TitleOnlyForm form;
    form.Load();
    EXPECT_EQ(texts::kNotice, form.Get(L"lblPlain").Caption());
    EXPECT_EQ(L"Thử nghiệm", TextOf(form.Window()));
}

TEST(FormPreparation, FontBecomesArialAndSmallOnesNine) {
    TestForm form;
    form.Load();
    EXPECT_EQ((FontSpec{L"Arial", 9}), form.Get(L"lblPlain").FontOf());
    EXPECT_EQ((FontSpec{L"Arial", 10}), form.Get(L"lblCapitals").FontOf());
}

TEST(FormPreparation, EmptyDefaultFontIsArialAndAnotherIsKept) {
    SetDefaultFontName(L"");
    EXPECT_EQ(L"", DefaultFontName());
    TestForm().Load();
    EXPECT_EQ(L"Arial", DefaultFontName());
    SetDefaultFontName(L"Tahoma");
    TestForm form;
    form.Load();
    EXPECT_EQ(L"Tahoma", DefaultFontName());
    EXPECT_EQ(L"Arial", form.Get(L"lblPlain").FontOf().name);
    SetDefaultFontName(L"");
}

TEST(FormPreparation, UnicodeTitleReachesAnAnsiWindow) {
    const HWND window = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                        nullptr, nullptr, nullptr);
    SetWindowTextUnicode(window, L"Thông báo");
    wchar_t text[32] = L"";
    DefWindowProcW(window, WM_GETTEXT, 32, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(L"Thông báo", text);
    DestroyWindow(window);
}

TEST(Fonts, AreSharedAndFreedWithTheLastUser) {
    const auto first = Font::Get({L"Arial", 9}, 96);
    EXPECT_EQ(first, Font::Get({L"Arial", 9}, 96));
    EXPECT_NE(first, Font::Get({L"Arial", 10}, 96));
    EXPECT_NE(first, Font::Get({L"Arial", 9}, 144));
    HGDIOBJ handle = nullptr;
    {
        const auto other = Font::Get({L"Tahoma", 11}, 96);
        handle = other->Handle();
        EXPECT_EQ(static_cast<DWORD>(OBJ_FONT), GetObjectType(handle));
    }
    EXPECT_EQ(0u, GetObjectType(handle));
}

TEST(Twips, ScaleWithTheResolution) {
    EXPECT_EQ(96, ToPixels(1440, 96));
    EXPECT_EQ(144, ToPixels(1440, 144));
    EXPECT_EQ(1, ToPixels(15, 96));
    EXPECT_EQ(1440, ToTwips(96, 96));
}

TEST(FormWindow, ControlsAndFormCarryTheirNames) {
    TestForm form;
    form.Load();
    EXPECT_EQ(L"FrmTest", WindowName(form.Window()));
    EXPECT_EQ(L"txtName", WindowName(form.Get(L"txtName").Window()));
}

constexpr ControlSpec kBoxes[] = {
    TextBox(L"txtHigh", {100, 100, 1500, 700}),
    TextBox(L"txtLow", {1700, 100, 1500, 270}),
    TextBox(L"txtLines", {3300, 100, 600, 700}, kMultiLine),
    DropDownList(L"cmbOne", {100, 900, 1500, 1500}),
};
constexpr FormSpec kBoxForm = {
    .name = L"FrmBoxes",
    .client = {4000, 3000},
    .border = FormBorder::FixedDialog,
    .controls = kBoxes,
};

LONG HeightOf(const vndesk::Control& control) {
    RECT box = {};
    GetWindowRect(control.Window(), &box);
    return box.bottom - box.top;
}

TEST(FormWindow, OneLineBoxIsNoHigherThanAComboBox) {
    FormOf<kBoxForm> form;
    form.Load();
    EXPECT_EQ(HeightOf(form.Get(L"cmbOne")), HeightOf(form.Get(L"txtHigh")));
    EXPECT_EQ(ToPixels(270, form.Dpi()), HeightOf(form.Get(L"txtLow")));
    EXPECT_NEAR(HeightOf(form.Get(L"txtLines")), ToPixels(700, form.Dpi()), 1);
    form.Get(L"txtHigh").Move({200, 100, 1400, 700});
    EXPECT_EQ(HeightOf(form.Get(L"cmbOne")), HeightOf(form.Get(L"txtHigh")));
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
    EXPECT_EQ(1, form.clicks);
}

TEST(FormKeys, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
    TestForm form;
    Play(form, [](HWND) {
        PressKey(VK_RETURN);
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(1, form.clicks);
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
    EXPECT_EQ(L"aế\r\x1b", form.keys);
    EXPECT_EQ(L"§", typed);
    EXPECT_EQ(0, form.clicks);
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

// What a debugger of this process would show.
class DebugOutput {
public:
    DebugOutput() : handler_(AddVectoredExceptionHandler(1, Hear)) { heard_.clear(); }
    ~DebugOutput() { RemoveVectoredExceptionHandler(handler_); }
    DebugOutput(const DebugOutput&) = delete;
    DebugOutput& operator=(const DebugOutput&) = delete;

    const std::string& Heard() const { return heard_; }

private:
    static LONG CALLBACK Hear(EXCEPTION_POINTERS* raised) {
        constexpr DWORD kDebugOutput = 0x40010006; // DBG_PRINTEXCEPTION_C
        const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
        if (record.ExceptionCode == kDebugOutput)
            heard_ += reinterpret_cast<const char*>(record.ExceptionInformation[1]);
        return EXCEPTION_CONTINUE_SEARCH;
    }

    static inline std::string heard_;
    void* handler_;
};

TEST(FormWindow, DebuggerHearsOfAHandlerThatThrows) {
    TestForm form;
    form.Load();
    form.Get(L"cmdGo").onClick = [] { throw ComError(E_FAIL, L"no such table"); };
    const DebugOutput output;
    SendMessageW(form.Get(L"cmdGo").Window(), BM_CLICK, 0, 0);
    EXPECT_EQ(output.Heard(), "VnDesk FrmTest: -2147467259 no such table\n");
}

TEST(FormWindow, ShownAgainAfterItWasClosed) {
    TestForm form;
    for (int round = 0; round < 2; ++round)
        Play(form, [](HWND) { PressKey(VK_ESCAPE); });
    EXPECT_EQ(nullptr, form.Window());
}

} // namespace
} // namespace vndesk::test
