// SPDX-License-Identifier: MIT
// Calling VnDesk.clsLogon and VnDesk.clsSearch from C++ through the header that the type library's
// IDL generates. Failed calls throw HostError.
#pragma once
#include <string>

#include <wrl/client.h>

#include "vndesk_idl.h"

class VnDeskClient {
public:
    VnDeskClient(); // needs CoInitialize on this thread, apartment-threaded

    // What version 1.1 added, for all calls from now on. Salted passwords, locks and records need
    // the tables of schema/upgrade.
    void UseSettings();

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

    // Shows the library's message box. Both texts are TCVN3, each byte as one character.
    // The pressed button's number as text: "1" OK, "2" Cancel, "6" Yes, ...
    std::wstring MgBox(const std::wstring& message, Buttons buttons, const std::wstring& title,
                       IconValue icon);

private:
    Microsoft::WRL::ComPtr<ILogon2> logon_;
    Microsoft::WRL::ComPtr<ISettings> settings_;
};
