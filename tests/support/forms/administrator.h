// SPDX-License-Identifier: MIT
// What an administrator does in the forms of clsLogon, each act from the host's call to its return.
// The forms are worked by messages.
#pragma once

#include "support/forms/walker.h"

namespace vndesk::test {

class Administrator {
protected:
    ~Administrator() = default;
    // Where the acts are done.
    virtual const AdministrationTest& Test() const = 0;

    // One form opened by the button of another, filled and confirmed.
    void WithUser(int row, const wchar_t* button, const std::function<void(HWND)>& fill) {
        Test().PlayUsers([&](HWND list) {
            SelectRow(list, L"Lv", row);
            const HWND editor = walker_.Open(list, button, L"FrmInput");
            fill(editor);
            Confirm(editor);
            walker_.Leave(list, L"CmdExit");
        });
    }
    void AddUser() {
        WithUser(0, L"CmdAdd", [](HWND editor) {
            SetBox(editor, L"TxtUser", L"O'Brien");
            SetBox(editor, L"TxtDes", L"Thủ kho");
            SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 3, 0);
            SetBox(editor, L"TxtPass", L"matkhau");
            SetBox(editor, L"txtConfirm", L"matkhau");
        });
    }
    void EditUser(const wchar_t* name) {
        WithUser(0, L"CmdEdit", [&](HWND editor) { SetBox(editor, L"TxtUser", name); });
    }
    void DeleteUser(int row) {
        Test().PlayUsers([&](HWND list) {
            SelectRow(list, L"Lv", row);
            walker_.Do(list, L"CmdDel");
            walker_.Leave(list, L"CmdExit");
        });
    }
    void ChangePassword() {
        Test().PlayEditor(L"Admin", [&](HWND editor) {
            SetBox(editor, L"TxtPass", L"matkhau");
            SetBox(editor, L"txtConfirm", L"matkhau");
            Confirm(editor);
        });
    }
    void InGroups(const std::function<void(HWND)>& act) {
        Test().PlayGroups([&](HWND groups) {
            act(groups);
            walker_.Leave(groups, L"CmdExit");
        });
    }
    void AddGroup() {
        InGroups([&](HWND groups) {
            walker_.Do(groups, L"CmdAdd");
            SetBox(groups, L"txtName", L"Vận tải");
            SetBox(groups, L"TxtDesc", L"Đội xe");
            walker_.Do(groups, L"CmdWrite");
        });
    }
    void EditGroup() {
        InGroups([&](HWND groups) {
            ChooseGroup(groups, L"Kế toán");
            SetBox(groups, L"txtName", L"Tài vụ");
            walker_.Do(groups, L"CmdWrite");
        });
    }
    void DeleteGroups() {
        InGroups([&](HWND groups) {
            ChooseGroup(groups, L"Kho");
            SendMessageW(Control(groups, L"Lv1"), LB_SETSEL, TRUE, ItemOf(groups, L"Kế toán"));
            walker_.Do(groups, L"CmdDelete");
        });
    }
    void WriteRights() {
        InGroups([&](HWND groups) {
            ChooseGroup(groups, L"Kế toán");
            const HWND rights = walker_.Open(groups, L"CmdPms", L"FrPms");
            TickCommand(rights, 1);
            Confirm(rights);
        });
    }
    // What a form tells that cannot write comes when it has gone.
    void Confirm(HWND form) {
        walker_.Leave(form, L"CmdOk");
        if (isRefused_)
            walker_.Await([&] { return !walker_.Told().empty(); });
    }
    long LogOn(const wchar_t* name, const wchar_t* password) {
        return PlayLogon(*Test().Host().Get(), Test().database.ConnectionString(), [&] {
            const HWND form = walker_.Form(L"FrmLogon");
            SetBox(form, L"TxtUser", name);
            SetBox(form, L"TxtPass", password);
            if (!walker_.Closes(form, L"CmdOk"))
                walker_.Leave(form, L"CMDCAN");
        });
    }

    Walker walker_;
    // Nothing can be recorded: forms close and tell it.
    bool isRefused_ = false;
};

} // namespace vndesk::test
