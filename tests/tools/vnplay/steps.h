// SPDX-License-Identifier: MIT
// What a user does with the tour and with the library's forms, step by step. Each step waits until
// the program is ready for it and throws when something does not show up.
#pragma once
#include <windows.h>

#include <string>
#include <string_view>

namespace vndesk::test {

constexpr DWORD kStart = 30000; // a first start under Wine takes its time
constexpr DWORD kLimit = 15000; // a busy machine

void Require(bool condition, const std::wstring& what);

// A line for whoever reads along.
void Say(const std::wstring& text);

// Replaces a text box's text by typing, and checks that it arrived.
void TypeInto(HWND form, const wchar_t* control, const std::wstring& text);
// Enter moves on like Tab.
void EnterMovesTo(HWND form, const wchar_t* control);
// Chooses an item of a drop-down list that has the focus, downwards from where it stands.
void ChooseBelow(HWND form, const wchar_t* list, const std::wstring& item);
// The letter that a control has underlined leads to it or presses it.
void PressLetter(HWND form, WORD letter);
// The same, where it opens a form.
HWND OpenBy(HWND form, WORD letter, const wchar_t* opens, const wchar_t* control);
void CloseForm(HWND form);

class Tour {
public:
    // Waits for the program's window.
    Tour();

    HWND Window() const { return window_; }
    // The program's settings let Enter log on, and go to the password box only while that is empty.
    void EnterConfirms() { enterConfirms_ = true; }

    // The logon dialog, which opens by itself first and by its key later.
    void LogOn(const std::wstring& name, const std::wstring& password);
    // The same with a password that is refused, and the dialog left open for the right one.
    void BeRefused(const std::wstring& name, const std::wstring& password);
    // With the words that the message must hold, and a picture of it if that has a name.
    void BeTold(const std::wstring& name, const std::wstring& password, const std::wstring& words,
                const wchar_t* picture);

    // The form behind a command's key, ready for keys on one of its controls.
    HWND OpenByKey(WORD key, const wchar_t* form, const wchar_t* control);
    // Whether the command opens its form; the form is closed again.
    bool MayOpen(WORD key, const wchar_t* form);

    // Opens a menu by its letter, takes a picture and closes it.
    void ShowMenu(WORD letter, const std::wstring& picture);
    // Chooses a command by the letters of menu and command.
    void Choose(WORD menu, WORD command);
    void About();
    void Quit();

    // Saves what stands in the program's window and above it.
    void Picture(const std::wstring& what);

private:
    HWND LogonDialog();
    void TypeName(HWND dialog, const std::wstring& name);
    void TypePassword(HWND dialog, const std::wstring& password);
    HWND OpenMenu(WORD letter);
    void WaitInFront();
    void PressOk(HWND dialog);
    HWND Message();
    void CloseMessage(HWND box, const wchar_t* picture);

    HWND window_ = nullptr;
    bool started_ = false;
    bool enterConfirms_ = false;
    int pictures_ = 0;
};

} // namespace vndesk::test
