// SPDX-License-Identifier: MIT
#include "tour.h"

#include <comdef.h>

#include "host_error.h"
#include "output.h"

namespace {

// Texts for the library's message box are TCVN3, one character per byte. \u00AD is the letter u
// with horn, which an editor would not show.
constexpr wchar_t kAboutTitle[] = L"Giíi thiÖu";
constexpr wchar_t kAboutText[] = L"Ch\u00AD¬ng tr×nh mÉu cña VnDesk.\n\n"
                                 L"§¨ng nhËp, qu¶n trÞ ng\u00ADêi sö dông, ph©n quyÒn,\n"
                                 L"t×m kiÕm vµ hép th«ng b¸o b»ng tiÕng ViÖt\n"
                                 L"cho ch\u00AD¬ng tr×nh Windows.";
constexpr wchar_t kNotice[] = L"Th«ng b¸o";
constexpr wchar_t kNotInTheSample[] = L"Ch\u00AD¬ng tr×nh mÉu kh«ng cã phÇn nµy.";
constexpr wchar_t kNothingFound[] = L"Kh«ng t×m thÊy dßng nµo.";
constexpr wchar_t kBackedUp[] = L"§· sao l\u00ADu d÷ liÖu.";
constexpr wchar_t kNotBackedUp[] = L"Kh«ng sao l\u00ADu ®\u00ADîc d÷ liÖu.";
constexpr wchar_t kNoFile[] = L"ChØ sao l\u00ADu ®\u00ADîc d÷ liÖu trong tÖp.";

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
    } catch (const _com_error& error) { // a value that is not of its column's type
        ShowError(window_, {error.Error(), error.ErrorMessage()});
    }
}

void Tour::Tell(const wchar_t* text, IconValue icon) {
    vndesk_.MgBox(text, vbOKOnly, kNotice, icon);
}

// The library returns the user's Code; what else the program wants to know, it reads from its own
// database. Called after each form that may have changed the user or the rights of a group.
void Tour::ReadUser() {
    name_.clear();
    rights_ = Rights();
    Try([&] {
        if (!IsLoggedOn())
            return;
        HostDatabase database(options_.connect);
        const auto users =
            database.Read(L"SELECT [Name] FROM [User] WHERE Code=" + std::to_wstring(code_));
        if (users.empty()) {
            code_ = 0; // the user's row has been deleted
            return;
        }
        name_ = TextOf(users.front()[0]);
        rights_ = Rights(database, code_);
    });
    view_.showState(window_, *this);
}

// A database that has not been upgraded is used as version 1.0 does. What else is wrong with it,
// the logon tells.
void Tour::ReadSettings() {
    if (hasSettings_)
        return;
    try {
        HostDatabase database(options_.connect);
        for (const wchar_t* table : {L"VnUser", L"VnAudit"})
            database.Read(std::wstring(L"SELECT * FROM ") + table + L" WHERE 1=0");
    } catch (const HostError&) {
        return;
    }
    vndesk_.UseSettings();
    hasSettings_ = true;
    PrintLine(L"Settings=on");
}

void Tour::LogOn() {
    code_ = 0;
    ReadUser();
    Try([&] {
        ReadSettings();
        code_ = vndesk_.ShowLogon(options_.connect);
        PrintLine(L"Code=" + std::to_wstring(code_));
    });
    ReadUser();
    if (options_.once)
        Quit();
}

void Tour::ChangePassword() {
    Try([&] { vndesk_.ShowUser(options_.connect, name_); });
}

void Tour::ManageUsers() {
    Try([&] { vndesk_.UserManager(options_.connect); });
    ReadUser();
}

void Tour::ManageGroups() {
    Try([&] { vndesk_.ShowGroup(options_.connect); });
    ReadUser();
}

void Tour::BackUp() {
    Try([&] {
        if (options_.file.empty())
            Tell(kNoFile, vbInformation);
        else if (CopyFileW(options_.file.c_str(), (options_.file + L".bak").c_str(), FALSE))
            Tell(kBackedUp, vbInformation);
        else
            Tell(kNotBackedUp, vbCritical);
    });
}

void Tour::Quit() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
}

void Tour::ShowRows(const List& list) {
    Try([&] {
        view_.showList(window_, list, HostDatabase(options_.connect).Read(list.statement));
    });
}

// The condition is put into the program's own statement as it is; one that the database refuses is
// reported like any other error.
void Tour::FindRows(const Search& search) {
    Try([&] {
        const std::wstring condition = vndesk_.Search(options_.connect, search.table, window_);
        if (condition.empty())
            return;
        PrintLine(L"Condition=" + condition);
        const auto rows =
            HostDatabase(options_.connect).Read(search.found.statement + condition + search.order);
        view_.showList(window_, search.found, rows);
        if (rows.empty())
            Tell(kNothingFound, vbInformation);
    });
}

void Tour::NotInTheSample() {
    Try([&] { Tell(kNotInTheSample, vbInformation); });
}

void Tour::About() {
    Try([&] { vndesk_.MgBox(kAboutText, vbOKOnly, kAboutTitle, vbInformation); });
}
