// SPDX-License-Identifier: MIT
// InputWarnings: what password boxes do for users whose keyboard is not what they think.
#include "comkit/base/library.h"
#include "support/forms/administration.h"
#include "support/late_bound.h"
#include "support/screenshot.h"
#include "support/typing.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kMethod[] = L"Bộ gõ tiếng Việt đang bật. Hãy tắt rồi gõ lại mật khẩu.";
constexpr wchar_t kCapsLock[] = L"Phím Caps Lock đang bật";
constexpr wchar_t kMethodAndCapsLock[] =
    L"Bộ gõ tiếng Việt đang bật. Hãy tắt rồi gõ lại mật khẩu.\nPhím Caps Lock đang bật";

TEST(InputWarningsSetting, IsOffAtFirstAndOnWithWhatIsRecommended) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    VARIANT_BOOL value = VARIANT_TRUE;
    EXPECT_SUCCEEDED(settings->get_InputWarnings(&value));
    EXPECT_EQ(VARIANT_FALSE, value);
    EXPECT_SUCCEEDED(settings->UseRecommended());
    EXPECT_SUCCEEDED(settings->get_InputWarnings(&value));
    EXPECT_EQ(VARIANT_TRUE, value);
    const LateBound late = LateBound::Create(L"VnDesk.clsSettings");
    late.Put(L"InputWarnings", true);
    EXPECT_TRUE(static_cast<bool>(late.Get(L"InputWarnings")));
}

// The screen's Caps Lock, put back afterwards.
class CapsLock {
public:
    static void Press() {
        SendKeyEvent(VK_CAPITAL, true);
        SendKeyEvent(VK_CAPITAL, false);
    }
    CapsLock() { Press(); }
    ~CapsLock() { Press(); }
    CapsLock(const CapsLock&) = delete;
    CapsLock& operator=(const CapsLock&) = delete;
};

std::wstring Warning(HWND form) {
    return IsShown(form, L"InputWarning") ? TextOf(form, L"InputWarning") : L"";
}
void ExpectWarning(HWND form, const std::wstring& text) {
    EXPECT_TRUE(WaitUntil([&] { return Warning(form) == text; }))
        << ToUtf8(Warning(form)) << " instead of " << ToUtf8(text);
}

RECT RectOf(HWND window) {
    RECT box = {};
    GetWindowRect(window, &box);
    return box;
}

LRESULT Mask(HWND form, const wchar_t* box) {
    return SendMessageW(Control(form, box), EM_GETPASSWORDCHAR, 0, 0);
}
void ExpectMask(HWND form, const wchar_t* box, LRESULT mask) {
    EXPECT_TRUE(WaitUntil([=] { return Mask(form, box) == mask; })) << Mask(form, box);
}

void PressMouse(HWND window, bool down) {
    const RECT box = RectOf(window);
    MoveMouseTo({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    SendInput(1, &input, sizeof input);
}

// For the documentation, and to be looked at.
void Picture(HWND form, const wchar_t* name) {
    if (!(SendMessageW(Control(form, L"TxtPassEye"), BM_GETSTATE, 0, 0) & BST_PUSHED))
        MoveMouseTo({0, 0}); // no tool tip
    Sleep(300);
    EXPECT_NE(L"", SaveWindow(form, name));
}

void Enter(HWND form, const wchar_t* control) {
    SendMessageW(form, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(form, control)), TRUE);
    WaitReady(form, control);
}

void ExpectText(HWND form, const wchar_t* box, const std::wstring& text) {
    EXPECT_TRUE(WaitUntil([&] { return TextOf(form, box) == text; }))
        << ToUtf8(TextOf(form, box)) << " instead of " << ToUtf8(text);
}

// The keys by hand, what an input method makes of them at full speed; returns the keys.
std::wstring PlayByHand(HWND form, const TypingStream& stream, SentBy way) {
    const HWND box = FocusWindow(form);
    std::wstring keys;
    const auto press = [&](wchar_t key) {
        TypeKeys({&key, 1});
        keys += key;
        WaitUntil([&] { return TextOf(box) == keys; });
    };
    for (const Stroke& stroke : StrokesOf(stream))
        if (stroke.kind == Stroke::Key)
            press(stroke.character);
        else
            PlayStroke(stroke, way, box);
    press(L'.');
    return keys;
}

class InputWarnings : public testing::Test {
protected:
    InputWarnings() { settings_.InputWarnings = true; }

    // The logon dialog with the keyboard in its password box.
    long InLogon(const std::function<void(HWND dialog)>& use) {
        return PlayLogon(*LogonWith(settings_).Get(), database_.ConnectionString(), [&] {
            const HWND dialog = WaitForForm(L"FrmLogon");
            WaitReady(dialog, L"TxtUser");
            if (settings_.InputWarnings)
                Enter(dialog, L"TxtPass");
            use(dialog);
            if (IsWindow(dialog))
                PressKey(VK_ESCAPE);
        });
    }

    const SampleDatabase database_ = SampleDatabase::Embedded();
    SecuritySettings settings_;
};

TEST_F(InputWarnings, WithoutThemTheDialogIsAsItWas) {
    settings_.InputWarnings = false;
    InLogon([](HWND dialog) {
        EXPECT_EQ(nullptr, FindControl(dialog, L"TxtPassEye"));
        EXPECT_EQ(nullptr, FindControl(dialog, L"InputWarning"));
        const RECT user = RectOf(Control(dialog, L"TxtUser"));
        EXPECT_EQ(user.right, RectOf(Control(dialog, L"TxtPass")).right);
        Enter(dialog, L"TxtPass");
        TypeText(L"đ");
        ExpectText(dialog, L"TxtPass", L"đ");
    });
}

TEST_F(InputWarnings, WhatInputMethodsSendIsNotTakenAndTold) {
    InLogon([](HWND dialog) {
        const HWND box = Control(dialog, L"TxtPass");
        const RECT before = RectOf(dialog);
        EXPECT_EQ(L"", Warning(dialog));
        for (const TypingStream& stream : kTypingStreams)
            for (const SentBy way : {SentBy::Input, SentBy::Posts}) {
                SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
                ExpectText(dialog, L"TxtPass", PlayByHand(dialog, stream, way));
                ExpectWarning(dialog, kMethod);
                EXPECT_EQ(box, FocusWindow(dialog));
            }
        // The form is higher, below all that it had, and as before when there is nothing to say.
        const RECT warned = RectOf(dialog);
        EXPECT_LT(before.bottom, warned.bottom);
        EXPECT_LE(RectOf(Control(dialog, L"CmdOk")).bottom,
                  RectOf(Control(dialog, L"InputWarning")).top);
        Enter(dialog, L"TxtUser");
        ExpectWarning(dialog, L"");
        const RECT after = RectOf(dialog);
        EXPECT_TRUE(EqualRect(&before, &after));
    });
}

TEST_F(InputWarnings, WarningStaysUntilThePasswordIsTypedAnew) {
    InLogon([](HWND dialog) {
        TypeKeys(L"ab");
        TypeText(L"ê", 0);
        ExpectWarning(dialog, kMethod);
        ExpectText(dialog, L"TxtPass", L"ab");
        TypeKeys(L"cd");
        ExpectText(dialog, L"TxtPass", L"abcd");
        EXPECT_EQ(kMethod, Warning(dialog));
        for (int i = 0; i < 4; ++i)
            PressKey(VK_BACK);
        ExpectText(dialog, L"TxtPass", L"");
        EXPECT_EQ(kMethod, Warning(dialog));
        TypeKeys(L"x");
        ExpectWarning(dialog, L"");
        // Hands delete and type as they like; letters may be pasted.
        TypeKeys(L"\by");
        ExpectText(dialog, L"TxtPass", L"y");
        SendMessageW(Control(dialog, L"TxtPass"), EM_REPLACESEL, TRUE,
                     reinterpret_cast<LPARAM>(L"ệ"));
        EXPECT_EQ(L"yệ", TextOf(dialog, L"TxtPass"));
        EXPECT_EQ(L"", Warning(dialog));
    });
}

TEST_F(InputWarnings, SelectionComesBackWithTheText) {
    InLogon([](HWND dialog) {
        const HWND box = Control(dialog, L"TxtPass");
        TypeKeys(L"abcdef");
        ExpectText(dialog, L"TxtPass", L"abcdef");
        SendMessageW(box, EM_SETSEL, 2, 4);
        PlayTyping({"Word", L"<{ê}{n}"}, SentBy::Input, box);
        ExpectWarning(dialog, kMethod);
        ExpectText(dialog, L"TxtPass", L"abcdef");
        DWORD start = 0, end = 0;
        SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(2u, start);
        EXPECT_EQ(4u, end);
    });
}

TEST_F(InputWarnings, LettersSentByTheClipboardAreNoticedToo) {
    InLogon([](HWND dialog) {
        TypeKeys(L"ab");
        ExpectText(dialog, L"TxtPass", L"ab");
        TypeKeys(L"\b\x16");
        ExpectWarning(dialog, kMethod);
        ExpectText(dialog, L"TxtPass", L"ab");
    });
}

TEST_F(InputWarnings, InputMethodsOfWindowsAreOffInPasswordBoxesOnly) {
    InLogon([](HWND dialog) {
        HANDLE(WINAPI * contextOf)(HWND) = nullptr;
        Library(L"imm32.dll").Find(contextOf, "ImmGetContext");
        EXPECT_EQ(nullptr, contextOf(Control(dialog, L"TxtPass")));
        EXPECT_NE(nullptr, contextOf(Control(dialog, L"TxtUser")));
    });
}

TEST_F(InputWarnings, CapsLockIsToldWhileTheBoxHasTheKeyboard) {
    InLogon([](HWND dialog) {
        {
            const CapsLock on;
            ExpectWarning(dialog, kCapsLock);
            TypeText(L"đ", 0);
            ExpectWarning(dialog, kMethodAndCapsLock);
            Enter(dialog, L"TxtUser");
            ExpectWarning(dialog, L"");
            Enter(dialog, L"TxtPass");
            ExpectWarning(dialog, kCapsLock);
        }
        ExpectWarning(dialog, L"");
    });
}

TEST_F(InputWarnings, EyeShowsThePasswordWhileItIsHeld) {
    EXPECT_NE(0, InLogon([](HWND dialog) {
                  const HWND eye = Control(dialog, L"TxtPassEye");
                  const HWND box = Control(dialog, L"TxtPass");
                  SetBox(dialog, L"TxtUser", L"Admin");
                  EXPECT_EQ(L"Hiện mật khẩu", TextOf(eye)) << "what screen readers say";
                  EXPECT_LE(RectOf(box).right, RectOf(eye).left);
                  EXPECT_EQ(RectOf(Control(dialog, L"TxtUser")).right, RectOf(eye).right);
                  TypeKeys(L"bimat");
                  ExpectText(dialog, L"TxtPass", L"bimat");
                  ExpectMask(dialog, L"TxtPass", L'*');
                  PressMouse(eye, true);
                  ExpectMask(dialog, L"TxtPass", 0);
                  EXPECT_EQ(box, FocusWindow(dialog)) << "the user types on";
                  PressMouse(eye, false);
                  ExpectMask(dialog, L"TxtPass", L'*');
                  // What ends it besides: the keyboard goes elsewhere, another window comes.
                  PressMouse(eye, true);
                  ExpectMask(dialog, L"TxtPass", 0);
                  Enter(dialog, L"CMDCAN");
                  ExpectMask(dialog, L"TxtPass", L'*');
                  PressMouse(eye, false);
                  PressMouse(eye, true);
                  ExpectMask(dialog, L"TxtPass", 0);
                  const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0,
                                                     40, 40, nullptr, nullptr, nullptr, nullptr);
                  SetForegroundWindow(other);
                  ExpectMask(dialog, L"TxtPass", L'*');
                  PressMouse(eye, false);
                  DestroyWindow(other);
                  // The keys that press OK do not show anything: the eye comes last by Tab.
                  SetForegroundWindow(dialog);
                  Enter(dialog, L"TxtPass");
                  PressKey(VK_TAB);
                  WaitReady(dialog, L"CmdOk");
                  Enter(dialog, L"TxtUser");
                  PressKey(VK_TAB, kShift);
                  WaitReady(dialog, L"TxtPassEye");
                  SendKeyEvent(VK_SPACE, true);
                  ExpectMask(dialog, L"TxtPass", 0);
                  SendKeyEvent(VK_SPACE, true); // the key repeats
                  SendKeyEvent(VK_SPACE, false);
                  ExpectMask(dialog, L"TxtPass", L'*');
                  SendKeyEvent(VK_SPACE, true);
                  ExpectMask(dialog, L"TxtPass", 0);
                  PressKey(VK_TAB);
                  ExpectMask(dialog, L"TxtPass", L'*');
                  SendKeyEvent(VK_SPACE, false);
                  WaitReady(dialog, L"TxtUser");
                  EXPECT_EQ(L"bimat", TextOf(dialog, L"TxtPass"));
                  // Logging on is as it was.
                  SetBox(dialog, L"TxtPass", L"abc");
                  ClickWindow(Control(dialog, L"CmdOk"));
                  WaitForClose(dialog);
              }));
}

TEST_F(InputWarnings, EyeShowsNothingThatTheFormHasFilledInAsInThePicture) {
    const auto logon = LogonWith(settings_);
    _bstr_t connect(database_.ConnectionString().c_str()), name(L"Admin");
    DialogDriver user([] {
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtPass");
        EXPECT_NE(L"", TextOf(editor, L"TxtPass")) << "the number that the table has";
        EXPECT_FALSE(IsEnabled(editor, L"TxtPassEye"));
        EXPECT_FALSE(IsEnabled(editor, L"txtConfirmEye"));
        const HWND box = Control(editor, L"TxtPass");
        const std::wstring number = TextOf(box);
        SendMessageW(box, EM_SETSEL, 0, -1);
        PlayTyping({"Word", L"<{ê}"}, SentBy::Input, box);
        ExpectWarning(editor, kMethod);
        ExpectText(editor, L"TxtPass", number);
        EXPECT_FALSE(IsEnabled(editor, L"TxtPassEye")) << "emptied by the input method only";
        SendMessageW(box, EM_SETSEL, 0, -1);
        PressKey(VK_DELETE);
        EXPECT_TRUE(WaitUntil([=] { return IsEnabled(editor, L"TxtPassEye"); }));
        EXPECT_FALSE(SendMessageW(box, EM_CANUNDO, 0, 0));
        EXPECT_FALSE(IsEnabled(editor, L"txtConfirmEye"));
        TypeKeys(L"ab");
        TypeText(L"ê", 0);
        ExpectWarning(editor, kMethod);
        ExpectText(editor, L"TxtPass", L"ab");
        Picture(editor, L"user-editor-input-method");
        PressKey(VK_ESCAPE);
    });
    EXPECT_SUCCEEDED(logon->ShowUser(&connect.GetBSTR(), &name.GetBSTR()));
    user.Finish();
}

TEST_F(InputWarnings, PicturesOfTheLogonDialog) {
    InLogon([](HWND dialog) {
        SetBox(dialog, L"TxtUser", L"Admin");
        TypeKeys(L"matkhau");
        ExpectText(dialog, L"TxtPass", L"matkhau");
        Picture(dialog, L"logon-eye");
        PressMouse(Control(dialog, L"TxtPassEye"), true);
        ExpectMask(dialog, L"TxtPass", 0);
        Picture(dialog, L"logon-eye-held");
        PressMouse(Control(dialog, L"TxtPassEye"), false);
        TypeText(L"ệ", 0);
        ExpectWarning(dialog, kMethod);
        Picture(dialog, L"logon-input-method");
        Enter(dialog, L"TxtUser");
        const CapsLock on;
        Enter(dialog, L"TxtPass");
        ExpectWarning(dialog, kCapsLock);
        SendMessageW(Control(dialog, L"TxtPass"), EM_SETSEL, 7, 7);
        Picture(dialog, L"logon-caps-lock");
    });
}

} // namespace
} // namespace vndesk::test
