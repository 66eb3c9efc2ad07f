// SPDX-License-Identifier: MIT
#include "api/classes/cls_logon.h"

#include <comutil.h>

#include "accounts/audit.h"
#include "accounts/credentials.h"
#include "accounts/passwords.h"
#include "accounts/tables.h"
#include "api/classes/owner_window.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "data/connect/failure.h"
#include "forms/look/font.h"
#include "logon/session.h"
#include "msgbox/ask.h"
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

enum LogonEvent : DISPID { kCheckPassword = 1, kLoggedOn, kLogonFailed, kHelp };

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

LogonOptions Logon::OptionsNow() {
    LogonOptions options = options_;
    options.helped = [this] {
        VARIANT_BOOL handled = VARIANT_FALSE;
        Fire(kHelp, {ByReference(handled)});
        return handled != VARIANT_FALSE;
    };
    options.refused = [this](std::wstring_view name, long refusals) {
        Fire(kLogonFailed, {_variant_t(std::wstring(name).c_str()), _variant_t(refusals)});
    };
    return options;
}

HWND Logon::OwnerNow() const {
    return OwnerWindow(owner_);
}

STDMETHODIMP Logon::ShowLogon(BSTR* connect, long* code) {
    return Guard([&] {
        long& result = ClearedOut(code);
        const HWND owner = OwnerNow();
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        const LoggedOn user = LogOn(On(*session), OptionsNow(), owner);
        result = user.userCode;
        if (result == 0)
            return;
        userCode_ = result;
        last_ = user;
        Fire(kLoggedOn, {_variant_t(user.userCode), _variant_t(user.userName.c_str())});
    });
}

STDMETHODIMP Logon::ShowUser(BSTR* connect, BSTR* userName) {
    return Guard([&] {
        const std::wstring name = FromReference(userName);
        const HWND owner = OwnerNow();
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        ShowUserEditor(On(*session), {.EditMode = true, .OldName = name, .Owner = owner});
    });
}

STDMETHODIMP Logon::UserManager(BSTR* connect) {
    return Guard([&] {
        const HWND owner = OwnerNow();
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        ShowUserList(On(*session), owner);
    });
}

STDMETHODIMP Logon::ShowGroup(BSTR* connect) {
    return Guard([&] {
        const HWND owner = OwnerNow();
        const SessionConnection session(FromReference(connect), CurrentSettings());
        if (session.Ended())
            return;
        RequireTables(*session);
        ShowGroupManager(On(*session), owner);
    });
}

STDMETHODIMP Logon::MgBox(BSTR* message, Buttons button, BSTR* title, IconValue icon,
                          VARIANT_BOOL rightToLeft, BSTR* pressed) {
    return Guard([&] {
        BSTR& result = ClearedOut(pressed);
        const std::wstring given = FromReference(title);
        const std::wstring shown = given.empty() ? texts::kNotice : given;
        // Only the all-ones boolean asks for right-to-left.
        const Pressed answer = ShowMsg(FromReference(message), button, shown, icon,
                                       rightToLeft == VARIANT_TRUE, OwnerNow());
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

// What a provider says of a statement is told as a form would show it.
template <class Work> void Logon::WithoutWindow(BSTR connection, Tables needed, Work work) {
    const OpenedDatabase opened(FromBstr(connection), CurrentSettings());
    RequireTables(*opened, needed);
    if (const ErrorState error = Trap([&] { work(*opened); }))
        throw ComError(error.code, ShownText(*opened, error.description));
}

STDMETHODIMP Logon::VerifyPassword(BSTR connection, BSTR name, BSTR password, long* code) {
    return Guard([&] {
        long& result = ClearedOut(code);
        WithoutWindow(connection, Tables::AsSettings, [&](const Database& database) {
            result = VerifiedUser(database, FromBstr(name), FromBstr(password));
        });
    });
}

STDMETHODIMP Logon::SetPassword(BSTR connection, long userCode, BSTR password,
                                VARIANT_BOOL mustChange) {
    return Guard([&] {
        WithoutWindow(connection, Tables::AsSettings, [&](const Database& database) {
            vndesk::SetPassword(On(database), userCode, FromBstr(password),
                                mustChange != VARIANT_FALSE);
        });
    });
}

STDMETHODIMP Logon::UnlockUser(BSTR connection, long userCode) {
    return Guard([&] {
        WithoutWindow(connection, Tables::Accounts, [&](const Database& database) {
            vndesk::UnlockUser(On(database), userCode);
        });
    });
}

STDMETHODIMP Logon::WriteAudit(BSTR connection, BSTR action, BSTR subject, BSTR before,
                               BSTR after) {
    return Guard([&] {
        WithoutWindow(connection, Tables::Audit, [&](const Database& database) {
            WriteHostAudit(On(database), FromBstr(action), FromBstr(subject), FromBstr(before),
                           FromBstr(after));
        });
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

STDMETHODIMP Logon::Ask(BSTR text, Buttons buttons, IconValue icon, BSTR title, long* answer) {
    return Get(answer, [&] {
        return static_cast<long>(
            vndesk::Ask(FromBstr(text), buttons, icon, FromBstr(title), OwnerNow()));
    });
}

// --- The logon dialog of this object ---

STDMETHODIMP Logon::get_Caption(BSTR* value) {
    return Get(value, [&] { return ToBstr(options_.caption); });
}

STDMETHODIMP Logon::put_Caption(BSTR value) {
    return Guard([&] { options_.caption = FromBstr(value); });
}

STDMETHODIMP Logon::get_Banner(BSTR* value) {
    return Get(value, [&] { return ToBstr(options_.banner); });
}

STDMETHODIMP Logon::put_Banner(BSTR value) {
    return Guard([&] { options_.banner = FromBstr(value); });
}

STDMETHODIMP Logon::get_Picture(IPictureDisp** value) {
    return Guard([&] {
        IPictureDisp*& result = ClearedOut(value);
        if (options_.picture)
            CheckHr(options_.picture->QueryInterface(__uuidof(IPictureDisp),
                                                     reinterpret_cast<void**>(&result)));
    });
}

STDMETHODIMP Logon::put_Picture(IPictureDisp* value) {
    return putref_Picture(value);
}

STDMETHODIMP Logon::putref_Picture(IPictureDisp* value) {
    return Guard([&] {
        ComPtr<IPicture> picture;
        if (value && FAILED(value->QueryInterface(IID_PPV_ARGS(&picture))))
            throw ComError(E_INVALIDARG, L"The picture is no picture object of this process.");
        options_.picture = picture;
    });
}

STDMETHODIMP Logon::get_HelpFile(BSTR* value) {
    return Get(value, [&] { return ToBstr(options_.helpFile); });
}

STDMETHODIMP Logon::put_HelpFile(BSTR value) {
    return Guard([&] { options_.helpFile = FromBstr(value); });
}

STDMETHODIMP Logon::get_RememberKey(BSTR* value) {
    return Get(value, [&] { return ToBstr(options_.rememberKey); });
}

STDMETHODIMP Logon::put_RememberKey(BSTR value) {
    return Guard([&] { options_.rememberKey = FromBstr(value); });
}

STDMETHODIMP Logon::get_PickUser(VARIANT_BOOL* value) {
    return Get(value, [&] { return options_.pickUser ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP Logon::put_PickUser(VARIANT_BOOL value) {
    return Guard([&] { options_.pickUser = value != VARIANT_FALSE; });
}

STDMETHODIMP Logon::get_MaxTries(long* value) {
    return Get(value, [&] { return options_.maxTries; });
}

STDMETHODIMP Logon::put_MaxTries(long value) {
    return Guard([&] {
        if (value < 0)
            throw ComError(E_INVALIDARG, L"MaxTries is 0 or the number of tries.");
        options_.maxTries = value;
    });
}

STDMETHODIMP Logon::get_Owner(VARIANT* value) {
    return Guard([&] {
        if (!value)
            throw ComError(E_POINTER);
        VariantInit(value);
        CheckHr(VariantCopy(value, &owner_));
    });
}

STDMETHODIMP Logon::put_Owner(VARIANT value) {
    return Guard([&] {
        const _variant_t owner = Resolved(value);
        OwnerWindow(owner); // what is no window is refused now
        owner_ = owner;
    });
}

STDMETHODIMP Logon::putref_Owner(VARIANT value) {
    return put_Owner(value);
}

STDMETHODIMP Logon::get_UserName(BSTR* value) {
    return Get(value, [&] { return ToBstr(last_.userName); });
}

STDMETHODIMP Logon::get_GroupCode(long* value) {
    return Get(value, [&] { return last_.groupCode; });
}

} // namespace vndesk
