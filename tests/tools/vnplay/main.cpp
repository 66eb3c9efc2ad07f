// SPDX-License-Identifier: MIT
// vnplay NAME PASSWORD PROGRAM ARGUMENTS...: plays the user of the tour on the keyboard. It types a
// wrong password, is refused, types the right one and looks around. Each step leaves a picture in
// the out folder. The exit code is the program's; 1 when something did not show up.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "support/keys.h"
#include "support/screenshot.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "tour_process.h"

namespace vndesk::test {
namespace {

constexpr DWORD kStart = 30000; // a first start under Wine takes its time
constexpr wchar_t kWrongPassword[] = L"sai mat khau";
constexpr wchar_t kRefusal[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";
constexpr wchar_t kMainClass[] = L"VnTourWindow";

void Require(bool condition, const wchar_t* what) {
    if (!condition)
        Fail(what);
}

class Player {
public:
    Player(std::wstring name, std::wstring password)
        : name_(std::move(name)), password_(std::move(password)) {}

    void Play() {
        main_ = WaitForClass(kMainClass, kStart);
        dialog_ = WaitForForm(L"FrmLogon", kStart);
        TypeName();
        TryWrongPassword();
        CloseMessage(kRefusal, L"refused");
        TypeRightPassword();
        LookAround();
    }

private:
    void TypeName() {
        WaitForFocus(dialog_, L"TxtUser");
        Require(!IsEnabled(dialog_, L"CmdOk"), L"the OK button is enabled without a name");
        Picture(L"logon dialog");
        TypeText(name_);
        Require(WaitUntil([&] { return TextOf(dialog_, L"TxtUser") == name_; }),
                L"the name did not arrive in its box");
        Require(WaitUntil([&] { return IsEnabled(dialog_, L"CmdOk"); }),
                L"the OK button stays disabled with a name");
    }

    void TryWrongPassword() {
        EnterMovesTo(L"TxtPass");
        TypeText(kWrongPassword);
        Picture(L"wrong password");
        PressOk();
    }

    void TypeRightPassword() {
        WaitForFocus(dialog_, L"TxtUser");
        EnterMovesTo(L"TxtPass");
        TypeText(password_);
        Picture(L"right password");
        PressOk();
        WaitForClose(dialog_);
    }

    // Enter moves on like Tab, also to the button, which the space bar presses.
    void PressOk() {
        EnterMovesTo(L"CmdOk");
        PressKey(VK_SPACE);
    }

    void EnterMovesTo(const wchar_t* control) {
        PressKey(VK_RETURN);
        WaitForFocus(dialog_, control);
    }

    // The letter that the button has underlined presses it.
    void CloseMessage(const std::wstring& text, const wchar_t* picture) {
        const HWND box = WaitForForm(L"MessageBox");
        WaitForFocus(box, L"Cmd1");
        if (!text.empty() && TextOf(box, L"Message") != text)
            Fail(L"the message is '" + TextOf(box, L"Message") + L"', not '" + text + L"'");
        Picture(picture);
        TypeText(L"n");
        WaitForClose(box);
    }

    void LookAround() {
        const HWND status = FindWindowExW(main_, nullptr, L"msctls_statusbar32", nullptr);
        Require(status, L"the tour has no status bar");
        if (!WaitUntil([&] { return TextOf(status).find(name_) != std::wstring::npos; }))
            Fail(L"the status bar says '" + TextOf(status) + L"', not who has logged on");
        Picture(L"logged on");
        PressKey(VK_F1);
        CloseMessage(L"", L"about");
        PressKey(VK_F4, kAlt);
    }

    void Picture(const std::wstring& what) {
        Sleep(150); // the last key's effect has still to be painted
        std::wstring file = std::to_wstring(++pictures_) + L"-" + what;
        for (wchar_t& c : file)
            c = c == L' ' ? L'-' : c;
        Require(!SaveWindow(main_, file).empty(), L"a picture could not be saved");
    }

    std::wstring name_, password_;
    HWND main_ = nullptr, dialog_ = nullptr;
    int pictures_ = 0;
};

BOOL CALLBACK PrintChild(HWND child, LPARAM) {
    if (IsWindowVisible(child))
        fprintf(stderr, "    %s\n", ToUtf8(DescribeWindow(child)).c_str());
    return TRUE;
}

// What a user would have seen when it went wrong.
void PrintScreen() {
    for (const HWND window : TopWindows()) {
        fprintf(stderr, "  open: %s\n", ToUtf8(DescribeWindow(window)).c_str());
        EnumChildWindows(window, PrintChild, 0);
    }
    const std::wstring picture = SaveDesktop(L"failed");
    fprintf(stderr, "  screen: %s\n", ToUtf8(picture).c_str());
}

int PlayProgram(const std::vector<std::wstring>& words) {
    TourProcess program({words.begin() + 2, words.end()});
    WatchProcess(program.Id());
    try {
        Player(words[0], words[1]).Play();
        return static_cast<int>(program.ExitCode(kStart));
    } catch (const std::exception& error) {
        fprintf(stderr, "vnplay: %s\n", error.what());
        if (program.HasEnded())
            fprintf(stderr, "  the program has ended with exit code %lu\n", program.ExitCode(0));
        else
            PrintScreen();
        return 1;
    }
}

} // namespace
} // namespace vndesk::test

int wmain(int argc, wchar_t** argv) {
    if (argc < 4) {
        fprintf(stderr, "usage: vnplay NAME PASSWORD PROGRAM ARGUMENTS...\n");
        return 2;
    }
    SetConsoleOutputCP(CP_UTF8);
    try {
        return vndesk::test::PlayProgram({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        fprintf(stderr, "vnplay: %s\n", error.what());
        return 1;
    }
}
