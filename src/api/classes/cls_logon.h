// SPDX-License-Identifier: MIT
// clsLogon: the class through which hosts log users on, administer them and show messages.
#pragma once

#include <optional>
#include <string>

#include "accounts/operation.h"
#include "api/classes/governed.h"
#include "comkit/object/connection_points.h"
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
    STDMETHODIMP TestConnection(BSTR connection, BSTR* reason, VARIANT_BOOL* opened) override;

private:
    Operation On(const Database& database);
    // The host's answer to a new password; the reason where it refuses.
    std::optional<std::wstring> AskHost(const std::wstring& name, const std::wstring& password);

    long userCode_ = 0;
};

} // namespace vndesk
