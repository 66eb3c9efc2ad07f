// SPDX-License-Identifier: MIT
#include "api/classes/cls_logon.h"

#include "comkit/base/bstr.h"
#include "forms/look/font.h"
#include "logon/logon_dialog.h"
#include "logon/session.h"
#include "msgbox/message_box.h"
#include "security/group_manager.h"
#include "security/user_editor.h"
#include "security/user_list.h"
#include "msgbox/text/captions.h"

namespace vndesk {

namespace {

// The numbers of the type library are those of the box.
static_assert(long{vbOKOnly} == kOkOnly && long{vbOKCancel} == kOkCancel &&
              long{vbAbortRetryIgnore} == kAbortRetryIgnore &&
              long{vbYesNoCancel} == kYesNoCancel && long{vbYesNo} == kYesNo &&
              long{vbRetryCancel} == kRetryCancel);
static_assert(long{vbCritical} == kCritical && long{vbQuestion} == kQuestion &&
              long{vbExclamation} == kExclamation && long{vbInformation} == kInformation);

// As hosts read it: empty where the box was closed without a button.
std::wstring NumberText(Pressed button) {
    return button == Pressed::None ? L"" : std::to_wstring(static_cast<long>(button));
}

} // namespace

STDMETHODIMP Logon::ShowLogon(BSTR* connect, long* code) {
    return Guard([&] {
        long& result = ClearedOut(code);
        const SessionConnection connection(FromReference(connect));
        result = ShowLogonDialog();
    });
}

STDMETHODIMP Logon::ShowUser(BSTR* connect, BSTR* userName) {
    return Guard([&] {
        const std::wstring name = FromReference(userName);
        const SessionConnection connection(FromReference(connect));
        ShowUserEditor({.AllowChange = false, .EditMode = true, .OldName = name});
    });
}

STDMETHODIMP Logon::UserManager(BSTR* connect) {
    return Guard([&] {
        const SessionConnection connection(FromReference(connect));
        ShowUserList();
    });
}

STDMETHODIMP Logon::ShowGroup(BSTR* connect) {
    return Guard([&] {
        const SessionConnection connection(FromReference(connect));
        ShowGroupManager();
    });
}

STDMETHODIMP Logon::MgBox(BSTR* message, Buttons button, BSTR* title, IconValue icon,
                          VARIANT_BOOL rightToLeft, BSTR* pressed) {
    return Guard([&] {
        BSTR& result = ClearedOut(pressed);
        const std::wstring given = FromReference(title);
        const std::wstring shown = given.empty() ? texts::kNotice : given;
        // Only the all-ones boolean asks for right-to-left.
        const Pressed answer =
            ShowMsg(FromReference(message), button, shown, icon, rightToLeft == VARIANT_TRUE);
        if (given.empty()) {
            const BSTR replaced = ToBstr(shown);
            SysFreeString(*title);
            *title = replaced;
        }
        result = ToBstr(NumberText(answer));
    });
}

STDMETHODIMP Logon::SetDfFont(BSTR* name) {
    return Guard([&] { SetDefaultFontName(FromReference(name)); });
}

} // namespace vndesk
