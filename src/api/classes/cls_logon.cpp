// SPDX-License-Identifier: MIT
#include "api/classes/cls_logon.h"

#include <comutil.h>

#include "accounts/audit.h"
#include "accounts/credentials.h"
#include "accounts/passwords.h"
#include "accounts/tables.h"
#include "comkit/base/bstr.h"
#include "data/connect/failure.h"
#include "forms/look/font.h"
#include "logon/session.h"
#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "security/group_manager.h"
#include "security/log_on.h"
#include "security/user_editor.h"
#include "security/user_list.h"

namespace vndesk {

namespace {

// The numbers of the type library are those of the box.
static_assert(long{vbOKOnly} == kOkOnly && long{vbOKCancel} == kOkCancel &&
              long{vbAbortRetryIgnore} == kAbortRetryIgnore &&
              long{vbYesNoCancel} == kYesNoCancel && long{vbYesNo} == kYesNo &&
              long{vbRetryCancel} == kRetryCancel);
static_assert(long{vbCritical} == kCritical && long{vbQuestion} == kQuestion &&
              long{vbExclamation} == kExclamation && long{vbInformation} == kInformation);

constexpr DISPID kCheckPassword = 1;

// As hosts read it: empty where the box was closed without a button.
std::wstring NumberText(Pressed button) {
    return button == Pressed::None ? L"" : std::to_wstring(static_cast<long>(button));
}

} // namespace

Operation Logon::On(const Database& database) {
    return {database, userCode_,
            [this](const auto& name, const auto& password) { return AskHost(name, password); }};
}

std::optional<std::wstring> Logon::AskHost(const std::wstring& name, const std::wstring& password) {
    VARIANT_BOOL refuse = VARIANT_FALSE;
    BSTR text = nullptr;
    _variant_t refused, reason;
    V_VT(&refused) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&refused) = &refuse;
    V_VT(&reason) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&reason) = &text;
    Fire(kCheckPassword, {_variant_t(name.c_str()), _variant_t(password.c_str()), refused, reason});
    _bstr_t given(text, false);
    if (refuse == VARIANT_FALSE)
        return std::nullopt;
    return FromBstr(given.GetBSTR());
}

STDMETHODIMP Logon::ShowLogon(BSTR* connect, long* code) {
    return Guard([&] {
        long& result = ClearedOut(code);
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        result = LogOn(On(*session));
        if (result != 0)
            userCode_ = result;
    });
}

STDMETHODIMP Logon::ShowUser(BSTR* connect, BSTR* userName) {
    return Guard([&] {
        const std::wstring name = FromReference(userName);
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        ShowUserEditor(On(*session), {.AllowChange = false, .EditMode = true, .OldName = name});
    });
}

STDMETHODIMP Logon::UserManager(BSTR* connect) {
    return Guard([&] {
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        ShowUserList(On(*session));
    });
}

STDMETHODIMP Logon::ShowGroup(BSTR* connect) {
    return Guard([&] {
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        ShowGroupManager(On(*session));
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

STDMETHODIMP Logon::get_UserCode(long* value) {
    return Get(value, [&] { return userCode_; });
}

STDMETHODIMP Logon::put_UserCode(long value) {
    return Guard([&] { userCode_ = value; });
}

STDMETHODIMP Logon::VerifyPassword(BSTR connection, BSTR name, BSTR password, long* code) {
    return Guard([&] {
        long& result = ClearedOut(code);
        const OpenedDatabase opened(FromBstr(connection), CurrentSettings());
        RequireTables(*opened);
        result = VerifiedUser(*opened, FromBstr(name), FromBstr(password));
    });
}

STDMETHODIMP Logon::SetPassword(BSTR connection, long userCode, BSTR password,
                                VARIANT_BOOL mustChange) {
    return Guard([&] {
        const OpenedDatabase opened(FromBstr(connection), CurrentSettings());
        RequireTables(*opened);
        vndesk::SetPassword(On(*opened), userCode, FromBstr(password), mustChange != VARIANT_FALSE);
    });
}

STDMETHODIMP Logon::UnlockUser(BSTR connection, long userCode) {
    return Guard([&] {
        const OpenedDatabase opened(FromBstr(connection), CurrentSettings());
        RequireTables(*opened, Tables::Accounts);
        vndesk::UnlockUser(On(*opened), userCode);
    });
}

STDMETHODIMP Logon::WriteAudit(BSTR connection, BSTR action, BSTR subject, BSTR before,
                               BSTR after) {
    return Guard([&] {
        const OpenedDatabase opened(FromBstr(connection), CurrentSettings());
        RequireTables(*opened, Tables::Audit);
        WriteHostAudit(On(*opened), FromBstr(action), FromBstr(subject), FromBstr(before),
                       FromBstr(after));
    });
}

STDMETHODIMP Logon::TestConnection(BSTR connection, BSTR* reason, VARIANT_BOOL* opened) {
    return Guard([&] {
        VARIANT_BOOL& result = ClearedOut(opened);
        if (!reason)
            throw ComError(E_POINTER);
        OpenedOrNot tried = TryConnection(FromBstr(connection), CurrentSettings());
        CloseConnection(tried.database);
        const BSTR text = ToBstr(tried.failure ? WholeFailureText(*tried.failure) : L"");
        SysFreeString(*reason);
        *reason = text;
        result = tried.failure ? VARIANT_FALSE : VARIANT_TRUE;
    });
}

} // namespace vndesk
