// SPDX-License-Identifier: MIT
#include "tools/vnplay/steps.h"

#include <cstdio>

#include "support/keys.h"
#include "support/screenshot.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kRefusal[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";
constexpr wchar_t kMainClass[] = L"VnTourWindow";
constexpr wchar_t kMenuClass[] = L"#32768";

// The form if it is open now.
HWND OpenForm(std::wstring_view name) {
    for (const HWND window : TopWindows())
        if (WindowName(window) == name)
            return window;
    return nullptr;
}

HWND OpenPopup() {
    for (const HWND window : TopWindows())
        if (ClassName(window) == kMenuClass)
            return window;
    return nullptr;
}

} // namespace

void Require(bool condition, const std::wstring& what) {
    if (!condition)
        Fail(what);
}

void Say(const std::wstring& text) {
    printf("%s\n", ToUtf8(text).c_str());
    fflush(stdout);
}

void TypeInto(HWND form, const wchar_t* control, const std::wstring& text) {
    // Passwords are not shown to other programs.
    const bool readable = !(GetWindowLongPtrW(Control(form, control), GWL_STYLE) & ES_PASSWORD);
    WaitReady(form, control, kLimit);
    PressKey(VK_HOME);
    PressKey(VK_END, kShift);
    TypeText(text);
    if (readable && !WaitUntil([&] { return TextOf(form, control) == text; }, kLimit))
        Fail(L"'" + text + L"' did not arrive in " + control + L", which holds '" +
             TextOf(form, control) + L"'");
}

void EnterMovesTo(HWND form, const wchar_t* control) {
    PressKey(VK_RETURN);
    WaitForFocus(form, control, kLimit);
}

void ChooseBelow(HWND form, const wchar_t* list, const std::wstring& item) {
    const HWND window = Control(Control(form, list), L"Cmb1");
    const auto items = ListTexts(window);
    WaitForFocus(form, list, kLimit);
    for (int chosen = ListSelection(window); chosen < static_cast<int>(items.size());) {
        if (chosen >= 0 && items[static_cast<size_t>(chosen)] == item)
            return;
        PressKey(VK_DOWN);
        if (!WaitUntil([&] { return ListSelection(window) > chosen; }, kLimit))
            break;
        chosen = ListSelection(window);
    }
    Fail(std::wstring(list) + L" does not come to " + item);
}

void PressLetter(HWND form, WORD letter) {
    WaitReady(form, {}, kLimit);
    PressKey(letter, kAlt);
}

HWND OpenBy(HWND form, WORD letter, const wchar_t* opens, const wchar_t* control) {
    PressLetter(form, letter);
    const HWND opened = WaitForForm(opens, kLimit);
    WaitReady(opened, control, kLimit);
    return opened;
}

void CloseForm(HWND form) {
    WaitReady(form, {}, kLimit);
    PressKey(VK_ESCAPE);
    WaitForClose(form, kLimit);
}

Tour::Tour() : window_(WaitForClass(kMainClass, kStart)) {}

HWND Tour::LogonDialog() {
    // The first one opens by itself, and a refusal leaves it open.
    if (started_ && !OpenForm(L"FrmLogon")) {
        WaitInFront();
        PressKey('L', kControl);
    }
    started_ = true;
    return WaitForForm(L"FrmLogon", kStart);
}

void Tour::TypeName(HWND dialog, const std::wstring& name) {
    WaitReady(dialog, L"TxtUser", kLimit);
    if (TextOf(dialog, L"TxtUser") != name) {
        if (TextOf(dialog, L"TxtUser").empty())
            Require(!IsEnabled(dialog, L"CmdOk"), L"the OK button is enabled without a name");
        TypeInto(dialog, L"TxtUser", name);
    }
    Require(WaitUntil([&] { return IsEnabled(dialog, L"CmdOk"); }, kLimit),
            L"the OK button stays disabled with a name");
}

void Tour::TypePassword(HWND dialog, const std::wstring& password) {
    if (enterConfirms_) {
        PressKey(VK_TAB);
        WaitForFocus(dialog, L"TxtPass", kLimit);
    } else {
        EnterMovesTo(dialog, L"TxtPass");
    }
    TypeInto(dialog, L"TxtPass", password);
}

void Tour::PressOk(HWND dialog) {
    if (enterConfirms_) {
        PressKey(VK_RETURN);
        return;
    }
    EnterMovesTo(dialog, L"CmdOk");
    PressKey(VK_SPACE);
}

void Tour::BeRefused(const std::wstring& name, const std::wstring& password) {
    const HWND dialog = LogonDialog();
    Picture(L"logon dialog");
    TypeName(dialog, name);
    TypePassword(dialog, password);
    Picture(L"wrong password");
    PressOk(dialog);
    const HWND box = Message();
    if (TextOf(box, L"Message") != kRefusal)
        Fail(L"the message is '" + TextOf(box, L"Message") + L"', not '" + kRefusal + L"'");
    CloseMessage(box, L"refused");
}

void Tour::BeTold(const std::wstring& name, const std::wstring& password, const std::wstring& words,
                  const wchar_t* picture) {
    const HWND dialog = LogonDialog();
    TypeName(dialog, name);
    TypePassword(dialog, password);
    PressOk(dialog);
    const HWND box = Message();
    if (TextOf(box, L"Message").find(words) == std::wstring::npos)
        Fail(L"the message is '" + TextOf(box, L"Message") + L"', without '" + words + L"'");
    CloseMessage(box, picture);
}

void Tour::LogOn(const std::wstring& name, const std::wstring& password) {
    const HWND dialog = LogonDialog();
    TypeName(dialog, name);
    TypePassword(dialog, password);
    PressOk(dialog);
    WaitForClose(dialog, kLimit);
    const HWND status = FindWindowExW(window_, nullptr, L"msctls_statusbar32", nullptr);
    Require(status, L"the tour has no status bar");
    if (!WaitUntil([&] { return TextOf(status).find(name) != std::wstring::npos; }, kLimit))
        Fail(L"the status bar says '" + TextOf(status) + L"', not who has logged on");
}

HWND Tour::OpenByKey(WORD key, const wchar_t* form, const wchar_t* control) {
    WaitInFront();
    PressKey(key, kControl);
    const HWND opened = WaitForForm(form, kLimit);
    WaitReady(opened, control, kLimit);
    return opened;
}

// Both keys reach the program in this order: when the second one's box is there and the form is
// not, then the first key has done nothing.
bool Tour::MayOpen(WORD key, const wchar_t* form) {
    WaitInFront();
    PressKey(key, kControl);
    PressKey(VK_F1);
    HWND opened = nullptr, box = nullptr;
    Require(WaitUntil(
                [&] {
                    opened = OpenForm(form);
                    box = OpenForm(L"MessageBox");
                    return opened || box;
                },
                kLimit),
            L"neither the form nor the about box opens");
    if (opened)
        CloseForm(opened);
    else
        CloseMessage(Message(), nullptr);
    return opened != nullptr;
}

HWND Tour::OpenMenu(WORD letter) {
    constexpr DWORD kPatienceWithAKey = 5000;
    for (int tries = 0; tries < 3; ++tries) {
        WaitInFront();
        PressKey(letter, kAlt);
        if (WaitUntil([] { return OpenPopup() != nullptr; }, kPatienceWithAKey))
            return OpenPopup();
        PressKey(VK_ESCAPE); // out of the bar, if only that has heard the key
    }
    Fail(L"no menu opens");
}

void Tour::ShowMenu(WORD letter, const std::wstring& picture) {
    const HWND popup = OpenMenu(letter);
    Picture(picture);
    // Out of the menu, then out of the bar.
    PressKey(VK_ESCAPE);
    WaitForClose(popup, kLimit);
    PressKey(VK_ESCAPE);
}

void Tour::Choose(WORD menu, WORD command) {
    const HWND popup = OpenMenu(menu);
    PressKey(command);
    WaitForClose(popup, kLimit);
}

void Tour::About() {
    WaitInFront();
    PressKey(VK_F1);
    CloseMessage(Message(), L"about");
}

void Tour::Quit() {
    WaitInFront();
    PressKey(VK_F4, kAlt);
}

// Keys reach the program's own window, or the list in it.
void Tour::WaitInFront() {
    int steady = 0;
    Require(WaitUntil(
                [&] {
                    const HWND focus = FocusWindow(window_);
                    const bool ready = GetForegroundWindow() == window_ &&
                                       (focus == window_ || IsChild(window_, focus)) &&
                                       !OpenPopup();
                    steady = ready ? steady + 1 : 0;
                    return steady == 4;
                },
                kLimit),
            L"the program's window does not come to the front");
}

HWND Tour::Message() {
    const HWND box = WaitForForm(L"MessageBox", kLimit);
    WaitReady(box, L"Cmd1", kLimit);
    return box;
}

// The letter that the button has underlined presses it.
void Tour::CloseMessage(HWND box, const wchar_t* picture) {
    if (picture)
        Picture(picture);
    TypeText(L"n");
    WaitForClose(box, kLimit);
}

void Tour::Picture(const std::wstring& what) {
    Sleep(250); // the last key's effect has still to be painted
    wchar_t number[8];
    swprintf(number, 8, L"%02d-", ++pictures_);
    std::wstring file = number + what;
    for (wchar_t& c : file)
        c = c == L' ' ? L'-' : c;
    Require(!SaveWindow(window_, file).empty(), L"a picture could not be saved");
}

} // namespace vndesk::test
