// SPDX-License-Identifier: MIT
// vnplay [--second] NAME PASSWORD PROGRAM ARGUMENTS...: plays the tour on the keyboard. The user
// types a wrong password, is refused, types the right one and looks around. Then the administrator
// logs on, adds a user, gives and takes rights, searches customers and changes his own password,
// and the first user finds what has changed. --second is what comes after that in a database with
// the tables of 1.1 (second_act.h). Each step is printed and leaves a picture in the out folder.
// The exit code is the program's; 1 when something did not show up.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/keys.h"
#include "support/screenshot.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "tools/vnplay/second_act.h"
#include "tools/vnplay/steps.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kWrongPassword[] = L"sai mat khau";
// What the sample database knows, and what is added to it.
constexpr wchar_t kAdministrator[] = L"Admin", kOldPassword[] = L"abc", kNewPassword[] = L"moi2005";
constexpr wchar_t kNewUser[] = L"Võ Thị Lan", kNewUsersPassword[] = L"lan123";

bool HasTick(HWND rights, int command) {
    return SendMessageW(Control(rights, L"LstSubMenu"), LVM_GETITEMSTATE,
                        static_cast<WPARAM>(command), LVIS_STATEIMAGEMASK) >>
               12 ==
           2;
}

class Player {
public:
    Player(std::wstring name, std::wstring password)
        : name_(std::move(name)), password_(std::move(password)) {}

    void Play() {
        LookAroundAsUser();
        tour_.LogOn(kAdministrator, kOldPassword);
        Say(std::wstring(L"* Logged on as the administrator, ") + kAdministrator);
        tour_.ShowMenu('H', L"menu of the administrator");
        AddUser();
        GiveRights();
        TakeOwnRights();
        SearchCustomers();
        ChangePassword();
        UseWhatHasChanged();
        tour_.Quit();
    }

private:
    void LookAroundAsUser() {
        tour_.BeRefused(name_, kWrongPassword);
        Say(L"* " + name_ + L" was refused with a wrong password");
        tour_.LogOn(name_, password_);
        Say(L"* " + name_ + L" has logged on");
        tour_.Picture(L"logged on");
        tour_.ShowMenu('H', L"menu before");
        Require(!tour_.MayOpen('U', L"FrmMenu"), L"the user list opens without the right to it");
        tour_.ShowMenu('D', L"catalogues before");
        tour_.Choose('B', 'T');
        tour_.Picture(L"report");
        tour_.About();
    }

    void AddUser() {
        const HWND list = tour_.OpenByKey('U', L"FrmMenu", L"Lv");
        const HWND editor = OpenBy(list, 'H', L"FrmInput", L"TxtUser");
        TypeInto(editor, L"TxtUser", kNewUser);
        EnterMovesTo(editor, L"TxtDes");
        TypeInto(editor, L"TxtDes", L"Thủ quỹ");
        EnterMovesTo(editor, L"TxtIdGroup");
        PressKey(VK_DOWN);
        PressKey(VK_DOWN); // the second group
        EnterMovesTo(editor, L"TxtPass");
        TypeInto(editor, L"TxtPass", kNewUsersPassword);
        EnterMovesTo(editor, L"txtConfirm");
        TypeInto(editor, L"txtConfirm", kNewUsersPassword);
        tour_.Picture(L"new user");
        PressLetter(editor, 'G');
        WaitForClose(editor, kLimit);
        WaitReady(list, L"Lv", kLimit);
        tour_.Picture(L"users");
        CloseForm(list);
        Say(std::wstring(L"* Added the user ") + kNewUser);
    }

    // Ticks or unticks one command of one bar for a group, each named by its place.
    void ToggleRight(int group, int bar, int command, bool tickAfter, const std::wstring& picture) {
        const HWND groups = tour_.OpenByKey('G', L"FmGrp", L"Lv1");
        PressKey(VK_HOME);
        for (int i = 0; i < group; ++i)
            PressKey(VK_DOWN);
        const HWND rights = OpenBy(groups, 'Q', L"FrPms", L"LstMenuBar");
        for (int i = 0; i < bar; ++i)
            PressKey(VK_DOWN);
        Require(
            WaitUntil([&] { return ListSelection(Control(rights, L"LstMenuBar")) == bar; }, kLimit),
            L"the menu bar is not selected");
        PressKey(VK_TAB);
        WaitReady(rights, L"LstSubMenu", kLimit);
        PressKey(VK_HOME);
        for (int i = 0; i < command; ++i)
            PressKey(VK_DOWN);
        Require(HasTick(rights, command) != tickAfter, L"the right is as it shall become");
        PressKey(VK_SPACE);
        Require(WaitUntil([&] { return HasTick(rights, command) == tickAfter; }, kLimit),
                L"the tick does not change");
        tour_.Picture(picture);
        PressLetter(rights, 'G');
        WaitForClose(rights, kLimit);
        CloseForm(groups);
    }

    void GiveRights() {
        ToggleRight(1, 0, 1, true, L"right given");
        Say(L"* Gave the group Kế toán the right to Người sử dụng");
    }

    void TakeOwnRights() {
        ToggleRight(0, 2, 4, false, L"right taken");
        tour_.ShowMenu('B', L"reports after");
        Say(L"* Took the right to Công nợ phải trả from the own group: greyed at once");
    }

    // One line of the search: field, operator and value, each reached by Enter.
    void FillLine(HWND form, int line, const wchar_t* field, const wchar_t* op,
                  const wchar_t* value) {
        const auto name = [=](const wchar_t* row) {
            return row + (L"(" + std::to_wstring(line) + L")");
        };
        ChooseBelow(form, name(L"CmbFld").c_str(), field);
        EnterMovesTo(form, name(L"CmbPredicate").c_str());
        ChooseBelow(form, name(L"CmbPredicate").c_str(), op);
        EnterMovesTo(form, name(L"MskValue").c_str());
        TypeInto(form, name(L"MskValue").c_str(), value);
    }

    void SearchCustomers() {
        tour_.ShowMenu('K', L"search menu");
        const HWND form = tour_.OpenByKey('F', L"FrmFind", L"Cmb1");
        FillLine(form, 0, L"Tên khách hàng", L"bắt đầu bằng", L"Công ty");
        EnterMovesTo(form, L"cmbLg(1)");
        EnterMovesTo(form, L"CmbFld(1)");
        FillLine(form, 1, L"Công nợ", L"lớn hơn", L"40000000");
        tour_.Picture(L"search");
        PressLetter(form, 'G');
        WaitForClose(form, kLimit);
        const HWND list = FindWindowExW(tour_.Window(), nullptr, WC_LISTVIEWW, nullptr);
        Require(WaitUntil([=] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == 3; }, kLimit),
                L"the search does not find the three companies");
        tour_.Picture(L"found");
        Say(L"* Searched the customers: three companies owe more than 40 million");
    }

    void ChangePassword() {
        const HWND editor = tour_.OpenByKey('M', L"FrmInput", L"TxtPass");
        TypeInto(editor, L"TxtPass", kNewPassword);
        EnterMovesTo(editor, L"txtConfirm");
        TypeInto(editor, L"txtConfirm", kNewPassword);
        tour_.Picture(L"own password");
        PressLetter(editor, 'G');
        WaitForClose(editor, kLimit);
        Say(L"* Changed the administrator's password");
    }

    void UseWhatHasChanged() {
        tour_.LogOn(kAdministrator, kNewPassword);
        Say(L"* Logged on with the new password");
        tour_.LogOn(kNewUser, kNewUsersPassword);
        Say(std::wstring(L"* Logged on as the new user, ") + kNewUser);
        tour_.LogOn(name_, password_);
        tour_.ShowMenu('H', L"menu after");
        Require(tour_.MayOpen('U', L"FrmMenu"),
                L"the user list does not open with the right to it");
        Say(L"* " + name_ + L" has logged on again and may open the list of users now");
    }

    std::wstring name_, password_;
    Tour tour_{Tour::Enter::kMovesOn};
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

int PlayProgram(const std::vector<std::wstring>& words, bool second) {
    ChildProcess program({words.begin() + 2, words.end()});
    WatchProcess(program.Id());
    try {
        if (second) {
            Tour tour(Tour::Enter::kConfirms);
            PlaySecondAct(tour, {words[0], words[1]}, {kAdministrator, kNewPassword});
        } else {
            Player(words[0], words[1]).Play();
        }
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
    const bool second = argc > 1 && std::wstring_view(argv[1]) == L"--second";
    const int first = second ? 2 : 1;
    if (argc < first + 3) {
        fprintf(stderr, "usage: vnplay [--second] NAME PASSWORD PROGRAM ARGUMENTS...\n");
        return 2;
    }
    SetConsoleOutputCP(CP_UTF8);
    SetProcessDPIAware(); // pictures of the tour are in its own pixels
    try {
        return vndesk::test::PlayProgram({argv + first, argv + argc}, second);
    } catch (const std::exception& error) {
        fprintf(stderr, "vnplay: %s\n", error.what());
        return 1;
    }
}
