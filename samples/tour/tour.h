// SPDX-License-Identifier: MIT
// What the program knows while it runs, and what its commands do with it.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "lists.h"
#include "options.h"
#include "rights.h"
#include "vndesk_client.h"

class Tour;

// How the program's window shows what the commands have changed or found.
struct View {
    // Who is logged on, and which commands the user may run. A list that another user has opened is
    // closed.
    void (*showState)(HWND window, const Tour& tour) = nullptr;
    void (*showList)(HWND window, const List& list, const std::vector<Row>& rows) = nullptr;
};

class Tour {
public:
    explicit Tour(const Options& options) : options_(options) {}

    void Attach(HWND window, const View& view);

    // The commands of commands.cpp. An error ends the command with a message, never the program.
    void LogOn();
    void ChangePassword();
    void ManageUsers();
    void ManageGroups();
    void BackUp();
    void Quit();
    template <const List& list> void Show() { ShowRows(list); }
    template <const Search& search> void Find() { FindRows(search); }
    void WriteReceipt();
    void NotInTheSample();
    void About();

    const Options& Settings() const { return options_; }
    bool IsLoggedOn() const { return code_ != 0; }
    long UserCode() const { return code_; }
    const std::wstring& UserName() const { return name_; }
    const Rights& RightsNow() const { return rights_; }

private:
    template <class Steps> void Try(Steps steps);
    void ReadUser();
    void ReadSettings();
    void ShowRows(const List& list);
    void FindRows(const Search& search);
    void Tell(const wchar_t* text, IconValue icon);

    Options options_;
    VnDeskClient vndesk_; // one object serves every call
    bool hasSettings_ = false;
    HWND window_ = nullptr;
    View view_;
    long code_ = 0;
    std::wstring name_;
    Rights rights_;
};
