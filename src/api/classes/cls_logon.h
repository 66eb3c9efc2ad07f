// SPDX-License-Identifier: MIT
// clsLogon: the class through which hosts log users on, administer them and show messages.
#pragma once

#include <optional>
#include <string>

#include <comutil.h>

#include "accounts/operation.h"
#include "accounts/tables.h"
#include "api/classes/governed.h"
#include "comkit/object/connection_points.h"
#include "logon/logon_dialog.h"
#include "vndesk_idl.h"

namespace vndesk {

// Holds nothing but what its host has set, and who has logged on.
class Logon final : public Governed<EventObject<Logon, clsLogon, ILogon2, DLogonEvents>, ILogon> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsLogon";

    STDMETHODIMP ShowLogon(BSTR* connect, long* code) override;
    STDMETHODIMP ShowUser(BSTR* connect, BSTR* userName) override;
    STDMETHODIMP UserManager(BSTR* connect) override;
    STDMETHODIMP ShowGroup(BSTR* connect) override;
    STDMETHODIMP MgBox(BSTR* message, Buttons button, BSTR* title, IconValue icon,
                       VARIANT_BOOL rightToLeft, BSTR* pressed) override;
    STDMETHODIMP SetDfFont(BSTR* name) override;
    STDMETHODIMP get_UserCode(long* value) override;
    STDMETHODIMP put_UserCode(long value) override;
    STDMETHODIMP VerifyPassword(BSTR connection, BSTR name, BSTR password, long* code) override;
    STDMETHODIMP SetPassword(BSTR connection, long userCode, BSTR password,
                             VARIANT_BOOL mustChange) override;
    STDMETHODIMP UnlockUser(BSTR connection, long userCode) override;
    STDMETHODIMP WriteAudit(BSTR connection, BSTR action, BSTR subject, BSTR before,
                            BSTR after) override;
    STDMETHODIMP Ask(BSTR text, Buttons buttons, IconValue icon, BSTR title, long* answer) override;
    STDMETHODIMP get_Caption(BSTR* value) override;
    STDMETHODIMP put_Caption(BSTR value) override;
    STDMETHODIMP get_Banner(BSTR* value) override;
    STDMETHODIMP put_Banner(BSTR value) override;
    STDMETHODIMP get_Picture(IPictureDisp** value) override;
    STDMETHODIMP put_Picture(IPictureDisp* value) override;
    STDMETHODIMP putref_Picture(IPictureDisp* value) override;
    STDMETHODIMP get_HelpFile(BSTR* value) override;
    STDMETHODIMP put_HelpFile(BSTR value) override;
    STDMETHODIMP get_RememberKey(BSTR* value) override;
    STDMETHODIMP put_RememberKey(BSTR value) override;
    STDMETHODIMP get_PickUser(VARIANT_BOOL* value) override;
    STDMETHODIMP put_PickUser(VARIANT_BOOL value) override;
    STDMETHODIMP get_MaxTries(long* value) override;
    STDMETHODIMP put_MaxTries(long value) override;
    STDMETHODIMP get_Owner(VARIANT* value) override;
    STDMETHODIMP put_Owner(VARIANT value) override;
    STDMETHODIMP putref_Owner(VARIANT value) override;
    STDMETHODIMP get_UserName(BSTR* value) override;
    STDMETHODIMP get_GroupCode(long* value) override;
    STDMETHODIMP TestConnection(BSTR connection, BSTR* reason, VARIANT_BOOL* opened) override;

private:
    Operation On(const Database& database);
    template <class Work> void WithoutWindow(BSTR connection, Tables needed, Work work);
    // The host's answer to a new password; the reason where it refuses.
    std::optional<std::wstring> AskHost(const std::wstring& name, const std::wstring& password);

    // The options as they are now, with this object's events.
    LogonOptions OptionsNow();
    HWND OwnerNow() const;

    long userCode_ = 0;
    LogonOptions options_;
    _variant_t owner_;
    LoggedOn last_; // the last successful logon
};

} // namespace vndesk
