// SPDX-License-Identifier: MIT
// Calling VnDesk.clsLogon, clsSearch and clsMessageBox from C++ through the header that the type
// library's IDL generates. Failed calls throw HostError.
#pragma once
#include <string>

#include <wrl/client.h>

#include "vndesk_idl.h"

// How the logon dialog looks, and where it keeps the names of those who have logged on.
struct LogonLook {
    std::wstring caption, banner, rememberKey;
};

// What the user confirms, and the key below HKEY_CURRENT_USER that keeps "do not ask again".
struct Question {
    const wchar_t *heading, *text;
    std::wstring details;
    const wchar_t *yes, *dontAsk, *dontAskKey;
};

class VnDeskClient {
public:
    VnDeskClient(); // needs CoInitialize on this thread, apartment-threaded

    // What version 1.1 added, for all calls from now on. Salted passwords, locks and records need
    // the tables of schema/upgrade.
    void UseSettings();

    void SetLogon(const LogonLook& look);
    // The window that the library's forms stand in front of.
    void SetOwner(HWND window);

    // Shows the logon dialog. The Code of the user's row, 0 when nobody has logged on.
    long ShowLogon(const std::wstring& connect);

    // The administration: the password of one user, all users, the groups and their rights. Each
    // returns when its form is closed; what has changed stands in the database.
    void ShowUser(const std::wstring& connect, const std::wstring& userName);
    void UserManager(const std::wstring& connect);
    void ShowGroup(const std::wstring& connect);

    // Shows the search dialog over a table, above a window of the program. The condition for the
    // table's rows, empty when the user has cancelled.
    std::wstring Search(const std::wstring& connect, const std::wstring& table, HWND owner);

    // Asks in the library's message box, which speaks Unicode. The answer is a number as Visual
    // Basic's MsgBox has it: 1 OK, 2 Cancel, 6 Yes, 7 No.
    long Ask(const std::wstring& text, Buttons buttons, IconValue icon, const std::wstring& title);
    // Whether the user agrees, now or for ever.
    bool Confirm(const Question& question, HWND owner);

    // What the program's own forms are governed by; null before UseSettings.
    ISettings* Settings() const { return settings_.Get(); }

private:
    Microsoft::WRL::ComPtr<ILogon2> logon_;
    Microsoft::WRL::ComPtr<ISettings> settings_;
};
