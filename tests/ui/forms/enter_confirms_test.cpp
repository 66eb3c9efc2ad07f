// SPDX-License-Identifier: MIT
// Enter in a form where it confirms, on a small form of the test's own, with real keys.
#include "forms/window/form_of.h"

#include <gtest/gtest.h>

#include "data/connect/plain_message.h"
#include "forms/keys/enter_rule.h"
#include "msgbox/message_box.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr ControlSpec kControls[] = {
    TextBox(L"txtName", {100, 100, 2000, 315}),
    Button(L"cmdLook", L"?", {2200, 100, 300, 315}),
    DropDownList(L"cmbGroup", {100, 500, 2000, 1500}),
    TextBox(L"txtPass", {100, 900, 2000, 315}, kPassword | kEnterGoesOn),
    TextBox(L"txtAgain", {100, 1300, 2000, 315}, kPassword),
    TextBox(L"txtShown", {100, 1700, 2000, 315}, kReadOnly),
    CheckBox(L"chkAll", L"", {100, 2100, 2000, 300}),
    Button(L"cmdOk", L"", {100, 2500, 1000, 375}, kConfirms),
    Button(L"cmdCancel", L"", {1200, 2500, 1000, 375}, kCancel),
    TextBox(L"txtBehind", {100, 2900, 2000, 315}),
};
constexpr FormSpec kForm = {
    .name = L"FrmEnter",
    .caption = L"Enter",
    .client = {4000, 3300},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

class EnterForm : public FormOf<kForm> {
public:
    explicit EnterForm(bool confirms = true) { ConfirmByEnter(confirms); }

    std::atomic<int> looks{0}, confirms{0}, cancels{0};
    std::function<void()> onConfirm;
    std::wstring characters;

    void Play(std::function<void(HWND)> script) {
        DialogDriver user([&] {
            const HWND window = WaitForForm(L"FrmEnter");
            WaitReady(window, L"txtName");
            script(window);
            PostMessageW(window, WM_CLOSE, 0, 0);
        });
        ShowModal();
        user.Finish();
    }

protected:
    void OnLoad() override {
        Get(L"cmdLook").onClick = [this] { ++looks; };
        Get(L"cmdOk").onClick = [this] {
            ++confirms;
            if (onConfirm)
                onConfirm();
        };
        Get(L"cmdCancel").onClick = [this] { ++cancels; };
        for (const wchar_t* item : {L"một", L"hai"})
            SendMessageW(Get(L"cmbGroup").Window(), CB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(item));
    }
    bool OnKeyPress(wchar_t character) override {
        characters += character;
        return false;
    }
};

void Fill(HWND form, const wchar_t* box, const wchar_t* text) {
    SendMessageW(Control(form, box), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

void FocusOn(HWND form, const wchar_t* control) {
    SendMessageW(form, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(form, control)), TRUE);
    WaitReady(form, control);
}

void ExpectCount(const std::atomic<int>& count, int expected) {
    EXPECT_TRUE(WaitUntil([&] { return count == expected; }, 3000))
        << count << " instead of " << expected;
}

TEST(EnterConfirms, GoesOnWhileTheNextFieldIsEmptyAndConfirmsInTheLast) {
    EnterForm form;
    form.Play([&](HWND window) {
        TypeText(L"a");
        PressKey(VK_RETURN);
        WaitReady(window, L"cmbGroup"); // over the button
        PressKey(VK_DOWN);
        PressPadEnter();
        WaitReady(window, L"txtPass");
        TypeText(L"b");
        PressKey(VK_RETURN);
        WaitReady(window, L"txtAgain");
        EXPECT_EQ(0, form.confirms);
        PressKey(VK_RETURN); // ticks are never empty
        ExpectCount(form.confirms, 1);
        EXPECT_EQ(L"txtAgain", FocusName(window));
        // Where the next field is filled.
        FocusOn(window, L"txtName");
        PressPadEnter();
        ExpectCount(form.confirms, 2);
        EXPECT_EQ(L"txtName", FocusName(window));
        // The repetition of a password is typed anew.
        Fill(window, L"txtAgain", L"b");
        FocusOn(window, L"txtPass");
        PressKey(VK_RETURN);
        WaitReady(window, L"txtAgain");
        for (const wchar_t* last : {L"chkAll", L"txtShown", L"txtBehind"}) {
            FocusOn(window, last);
            const int before = form.confirms;
            PressKey(VK_RETURN);
            ExpectCount(form.confirms, before + 1);
        }
    });
    EXPECT_EQ(0, form.looks + form.cancels);
    EXPECT_EQ(L"ab", form.characters) << "Enter is no character of these forms";
}

TEST(EnterConfirms, PressesTheButtonThatHasTheKeyboardAndBackWithShift) {
    EnterForm form;
    form.Play([&](HWND window) {
        FocusOn(window, L"cmdLook");
        PressKey(VK_RETURN);
        ExpectCount(form.looks, 1);
        FocusOn(window, L"cmdCancel");
        PressPadEnter();
        ExpectCount(form.cancels, 1);
        FocusOn(window, L"txtPass");
        PressKey(VK_RETURN, kShift);
        WaitReady(window, L"cmbGroup");
    });
    EXPECT_EQ(0, form.confirms);
}

TEST(EnterConfirms, ControlAndEnterConfirmFromEverywhere) {
    EnterForm form;
    form.Play([&](HWND window) {
        int count = 0;
        for (const wchar_t* from : {L"txtName", L"cmdLook", L"txtShown", L"cmdCancel"}) {
            FocusOn(window, from);
            PressKey(VK_RETURN, kControl);
            ExpectCount(form.confirms, ++count);
        }
        // An open list closes with what is chosen in it.
        FocusOn(window, L"cmbGroup");
        PressKey(VK_F4);
        PressKey(VK_DOWN);
        PressKey(VK_RETURN, kControl);
        ExpectCount(form.confirms, ++count);
        EXPECT_EQ(0, SendMessageW(Control(window, L"cmbGroup"), CB_GETDROPPEDSTATE, 0, 0));
        EXPECT_EQ(0, ListSelection(Control(window, L"cmbGroup")));
    });
    EXPECT_EQ(0, form.looks + form.cancels);
}

TEST(EnterConfirms, ChoosesInAnOpenListAndOnlyThenGoesOn) {
    EnterForm form;
    form.Play([&](HWND window) {
        const HWND group = Control(window, L"cmbGroup");
        const auto isOpen = [=] { return SendMessageW(group, CB_GETDROPPEDSTATE, 0, 0) != 0; };
        FocusOn(window, L"cmbGroup");
        PressKey(VK_F4);
        EXPECT_TRUE(WaitUntil(isOpen));
        PressKey(VK_DOWN);
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !isOpen(); }));
        EXPECT_EQ(1, ListSelection(group));
        EXPECT_EQ(L"cmbGroup", FocusName(window));
        PressKey(VK_RETURN);
        WaitReady(window, L"txtPass");
    });
    EXPECT_EQ(0, form.confirms);
}

TEST(EnterConfirms, DisabledDefaultButtonLeadsToWhatIsMissing) {
    EnterForm form;
    form.Load();
    form.Get(L"cmdOk").SetEnabled(false);
    form.Play([&](HWND window) {
        Fill(window, L"txtName", L"a");
        FocusOn(window, L"txtAgain");
        PressKey(VK_RETURN);
        WaitReady(window, L"cmbGroup");
        PressKey(VK_RETURN, kControl);
        EXPECT_EQ(L"cmbGroup", FocusName(window));
    });
    EXPECT_EQ(0, form.confirms);
}

TEST(EnterConfirms, KeysOfAnInputMethodAreNoEnter) {
    EnterForm form;
    form.Play([&](HWND window) {
        const HWND box = Control(window, L"txtAgain");
        FocusOn(window, L"txtAgain");
        // Enter in the middle of a composition, and one that is sent as a character.
        PostMessageW(box, WM_KEYDOWN, VK_PROCESSKEY, MAKELPARAM(1, MapVirtualKeyW(VK_RETURN, 0)));
        PostMessageW(box, WM_KEYUP, VK_RETURN, 0xC01C0001);
        TypeText(L"\r");
        TypeText(L"x");
        EXPECT_TRUE(WaitUntil([=] { return TextOf(box).ends_with(L"x"); }));
        EXPECT_EQ(L"txtAgain", FocusName(window));
    });
    EXPECT_EQ(0, form.confirms);
}

TEST(EnterConfirms, HeldKeyPressesOnceWhateverThePressOpens) {
    EnterForm form;
    form.onConfirm = [&] {
        if (form.confirms == 1)
            ShowMsg(L"abc", kOkOnly, L"x");
        else if (form.confirms == 2)
            PlainMessage(L"abc");
    };
    form.Play([&](HWND window) {
        FocusOn(window, L"txtAgain");
        HoldKeyBesideWindows(VK_RETURN);
        const HWND box = WaitForForm(L"MessageBox");
        EXPECT_EQ(1, form.confirms);
        PressKey(VK_RETURN); // a new one
        WaitForClose(box);
        WaitReady(window, L"txtAgain");
        HoldKeyBesideWindows(VK_RETURN);
        const HWND plain = WaitForTitle(L"VnDesk");
        EXPECT_EQ(2, form.confirms);
        PressKey(VK_RETURN);
        WaitForClose(plain);
        WaitReady(window, L"txtAgain");
        HoldKeyBesideWindows(VK_RETURN);
        EXPECT_EQ(3, form.confirms);
        FocusOn(window, L"txtName");
        HoldKeyBesideWindows(VK_RETURN);
        EXPECT_EQ(L"cmbGroup", FocusName(window)) << "one step";
    });
    EXPECT_EQ(3, form.confirms);
}

// Enter that arrives at a window while it counts.
class HostWindow {
public:
    HostWindow()
        : window_(CreateWindowExW(0, L"EDIT", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 200,
                                  100, nullptr, nullptr, nullptr, nullptr)) {
        SetForegroundWindow(window_);
        SetFocus(window_);
    }
    ~HostWindow() { DestroyWindow(window_); }

    // What comes until the thread has been quiet for a while.
    int Enters() const {
        int enters = 0;
        PumpUntil(
            [&] {
                MSG message;
                while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                    enters += message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
                    DispatchMessageW(&message);
                }
                return false;
            },
            200);
        return enters;
    }

private:
    HWND window_;
};

TEST(EnterConfirms, HeldKeyThatClosesTheFormDoesNotReachTheWindowBehind) {
    const HostWindow host;
    EnterForm form;
    form.onConfirm = [&] { form.Unload(); };
    DialogDriver user([&] {
        const HWND window = WaitForForm(L"FrmEnter");
        FocusOn(window, L"txtAgain");
        HoldKey(VK_RETURN, 30);
        EXPECT_FALSE(IsWindow(window));
    });
    form.ShowModal();
    EXPECT_LE(0, GetAsyncKeyState(VK_RETURN)) << "released before the host goes on";
    user.Finish();
    EXPECT_EQ(1, form.confirms);
    EXPECT_EQ(0, host.Enters());
}

TEST(EnterConfirms, FormsThatAreNotAskedForItGetEnterAsACharacter) {
    EnterForm form(false);
    form.Play([&](HWND window) {
        EXPECT_EQ(BS_PUSHBUTTON, GetWindowLongPtrW(Control(window, L"cmdOk"), GWL_STYLE) & 0xF);
        FocusOn(window, L"txtAgain");
        PressKey(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return form.characters == L"\r"; }));
    });
    EXPECT_EQ(0, form.confirms);
}

TEST(EnterRule, DoesNothingWhereNothingCanBeDone) {
    EXPECT_EQ(EnterStep::Nothing, AfterEnter({}, 0, false).kind);
    const EnterStop only[] = {{.kind = EnterStop::Field}};
    EXPECT_EQ(EnterStep::Nothing, AfterEnter(only, 0, false).kind);
    EXPECT_EQ(EnterStep::Nothing, AfterEnter(only, 1, true).kind);
    // Where the keyboard is in no control, there is still a default button.
    const EnterStop confirmed[] = {{.kind = EnterStop::Field},
                                   {.kind = EnterStop::Button, .confirms = true}};
    EXPECT_EQ(EnterStep::Press, AfterEnter(confirmed, 2, false).kind);
    EXPECT_EQ(1u, AfterEnter(confirmed, 2, false).stop);
}

} // namespace
} // namespace vndesk::test
