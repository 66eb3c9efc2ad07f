// SPDX-License-Identifier: MIT
// What the tests with bad content share: a host's call with a walker that plays its user.
#pragma once

#include "reliability/bad_texts.h"
#include "reliability/database_rules.h"
#include "support/forms/walker.h"

#include "support/env.h"
#include "support/forms/search.h"

namespace vndesk::test {

class BadContent : public Administration {
protected:
    // What scripts/reliability asks for, and make test has no time for.
    static bool Full() { return EnvironmentText(L"VNDESK_RELIABILITY") == L"full"; }

    void Change(const std::wstring& statement) const { Test().database.Execute(statement); }
    std::wstring Text(const std::wstring& text) const { return SqlText(text, Test().server); }
    std::wstring Rows(const std::wstring& table) const {
        return DatabaseRules::Rows(Test().database, table);
    }

    template <class Operation>
    void Play(const wchar_t* form, std::function<void(Walker&, HWND)> script,
              Operation operation) const {
        const auto logon = CreateLogon();
        _bstr_t connect(Test().database.ConnectionString().c_str());
        DialogDriver user([&] {
            Walker walker;
            script(walker, walker.Form(form));
        });
        EXPECT_SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR()));
        user.Finish();
    }
    void PlayUsers(std::function<void(Walker&, HWND)> script) const {
        Play(L"FrmMenu", std::move(script),
             [](ILogon& logon, BSTR* connect) { return logon.UserManager(connect); });
    }
    void PlayGroups(std::function<void(Walker&, HWND)> script) const {
        Play(L"FmGrp", std::move(script),
             [](ILogon& logon, BSTR* connect) { return logon.ShowGroup(connect); });
    }
    // The code that the logon gives for a name and a password; 0 when it was refused.
    long LogOn(const std::wstring& name, const wchar_t* password, Lines* told = nullptr) const {
        long code = -1;
        Play(
            L"FrmLogon",
            [&](Walker& walker, HWND dialog) {
                SetBox(dialog, L"TxtUser", name.c_str());
                SetBox(dialog, L"TxtPass", password);
                // A name of blanks leaves the button disabled.
                if (!IsEnabled(dialog, L"CmdOk") || !walker.Closes(dialog, L"CmdOk"))
                    walker.Leave(dialog, L"CMDCAN");
                if (told)
                    *told = walker.TakeTold();
            },
            [&](ILogon& logon, BSTR* connect) { return logon.ShowLogon(connect, &code); });
        return code;
    }

    static int ListCount(HWND form, const wchar_t* list) {
        return static_cast<int>(SendMessageW(Control(form, list), LB_GETCOUNT, 0, 0));
    }
};

} // namespace vndesk::test
