// SPDX-License-Identifier: MIT
#include "tour.h"

#include "host_error.h"
#include "main_window.h"
#include "output.h"
#include "user_name.h"

namespace {

// Texts for the library's message box are TCVN3, one character per byte. \u00AD is the letter u
// with horn, which an editor would not show.
constexpr wchar_t kAboutTitle[] = L"Giíi thiÖu";
constexpr wchar_t kAboutText[] = L"Ch\u00AD¬ng tr×nh mÉu cña VnDesk.\n\n"
                                 L"§¨ng nhËp vµ hép th«ng b¸o b»ng tiÕng ViÖt\n"
                                 L"cho ch\u00AD¬ng tr×nh Windows.";

void ShowError(HWND owner, const HostError& error) {
    wchar_t number[16];
    wsprintfW(number, L"0x%08lX", error.code);
    MessageBoxW(owner, (error.description + L"\n" + number).c_str(), L"VnDesk", MB_ICONERROR);
}

} // namespace

template <class Steps> void Tour::Try(Steps steps) {
    try {
        steps();
    } catch (const HostError& error) {
        ShowError(window_, error);
    }
}

void Tour::LogOn() {
    code_ = 0;
    name_.clear();
    Try([&] {
        code_ = vndesk_.ShowLogon(options_.connect);
        PrintLine(L"Code=" + std::to_wstring(code_));
        if (IsLoggedOn())
            name_ = ReadUserName(options_.connect, code_);
    });
    ShowState(window_, *this);
    if (options_.once)
        Quit();
}

void Tour::Quit() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
}

void Tour::About() {
    Try([&] { vndesk_.MgBox(kAboutText, vbOKOnly, kAboutTitle, vbInformation); });
}
