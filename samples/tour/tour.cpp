// SPDX-License-Identifier: MIT
#include "tour.h"

#include <comdef.h>

#include "host_error.h"
#include "output.h"
#include "receipt.h"

namespace {

constexpr wchar_t kAboutTitle[] = L"Giới thiệu";
constexpr wchar_t kAboutText[] = L"Chương trình mẫu của VnDesk.\n\n"
                                 L"Đăng nhập, quản trị người sử dụng, phân quyền,\n"
                                 L"tìm kiếm và hộp thông báo bằng tiếng Việt\n"
                                 L"cho chương trình Windows.";
constexpr wchar_t kNotInTheSample[] = L"Chương trình mẫu không có phần này.";
constexpr wchar_t kNothingFound[] = L"Không tìm thấy dòng nào.";
constexpr wchar_t kBackedUp[] = L"Đã sao lưu dữ liệu.";
constexpr wchar_t kNotBackedUp[] = L"Không sao lưu được dữ liệu.";
constexpr wchar_t kNoFile[] = L"Chỉ sao lưu được dữ liệu trong tệp.";
constexpr wchar_t kLogonCaption[] = L"Đăng nhập";
constexpr wchar_t kCompany[] =
    L"SELECT KeyValue FROM Options WHERE Section='CongTy' AND KeyName='TenCongTy'";
// Where the program keeps what the Windows user prefers.
constexpr wchar_t kNamesKey[] = L"Software\\VnDesk\\Tour\\Names";
constexpr wchar_t kBackUpKey[] = L"Software\\VnDesk\\Tour\\BackUp";

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

void Tour::Attach(HWND window, const View& view) {
    window_ = window;
    view_ = view;
    vndesk_.SetOwner(window);
}

// The title is the library's word for Notice.
void Tour::Tell(const wchar_t* text, IconValue icon) {
    vndesk_.Ask(text, vbOKOnly, icon, L"");
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
    std::wstring company;
    try {
        HostDatabase database(options_.connect);
        for (const wchar_t* table : {L"VnUser", L"VnAudit"})
            database.Read(std::wstring(L"SELECT * FROM ") + table + L" WHERE 1=0");
        for (const Row& row : database.Read(kCompany))
            company = TextOf(row[0]);
    } catch (const HostError&) {
        return;
    }
    vndesk_.UseSettings();
    vndesk_.SetLogon({kLogonCaption, company, kNamesKey});
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
            return Tell(kNoFile, vbInformation);
        const std::wstring copy = options_.file + L".bak";
        const Question question = {L"Sao lưu dữ liệu?",
                                   L"Tệp dự phòng lần trước sẽ được thay bằng tệp mới.",
                                   options_.file + L"\n→ " + copy,
                                   L"&Sao lưu",
                                   L"Không hỏi lại lần sau",
                                   kBackUpKey};
        if (!vndesk_.Confirm(question, window_))
            return;
        if (CopyFileW(options_.file.c_str(), copy.c_str(), FALSE))
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

// Printing is not in the sample.
void Tour::WriteReceipt() {
    Try([&] {
        const Receipt receipt = AskForReceipt(window_, options_.connect, vndesk_.Settings());
        if (!receipt.customer.empty())
            PrintLine(L"Receipt=" + receipt.customer + L" " + receipt.amount + L" " +
                      receipt.words);
    });
}

void Tour::NotInTheSample() {
    Try([&] { Tell(kNotInTheSample, vbInformation); });
}

void Tour::About() {
    Try([&] { vndesk_.Ask(kAboutText, vbOKOnly, vbInformation, kAboutTitle); });
}
