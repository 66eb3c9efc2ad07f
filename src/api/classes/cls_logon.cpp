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

namespace vndesk {

STDMETHODIMP Logon::ShowLogon(BSTR* connect, long* code) {
    return Guard([&] {
        long& result = ClearedOut(code);
        const SessionConnection session(FromReference(connect));
        result = ShowLogonDialog(*session);
    });
}

STDMETHODIMP Logon::ShowUser(BSTR* connect, BSTR* userName) {
    return Guard([&] {
        const std::wstring name = FromReference(userName);
        const SessionConnection session(FromReference(connect));
        ShowUserEditor(*session, {.AllowChange = false, .EditMode = true, .OldName = name});
    });
}

STDMETHODIMP Logon::UserManager(BSTR* connect) {
    return Guard([&] {
        const SessionConnection session(FromReference(connect));
        ShowUserList(*session);
    });
}

STDMETHODIMP Logon::ShowGroup(BSTR* connect) {
    return Guard([&] {
        const SessionConnection session(FromReference(connect));
        ShowGroupManager(*session);
    });
}

STDMETHODIMP Logon::MgBox(BSTR* message, Buttons button, BSTR* title, IconValue icon,
                          VARIANT_BOOL rightToLeft, BSTR* pressed) {
    return Guard([&] {
        BSTR& result = ClearedOut(pressed);
        std::wstring shownTitle = FromReference(title);
        const bool untitled = shownTitle.empty();
        // Only the all-ones boolean asks for right-to-left.
        const std::wstring answer =
            ShowMsg(FromReference(message), button, shownTitle, icon, rightToLeft == VARIANT_TRUE);
        if (untitled) {
            const BSTR replaced = ToBstr(shownTitle);
            SysFreeString(*title);
            *title = replaced;
        }
        result = ToBstr(answer);
    });
}

STDMETHODIMP Logon::SetDfFont(BSTR* name) {
    return Guard([&] { SetDefaultFontName(FromReference(name)); });
}

} // namespace vndesk
