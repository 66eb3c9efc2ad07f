// SPDX-License-Identifier: MIT
// clsLogon: the class through which hosts log users on, administer them and show messages.
#pragma once

#include "comkit/object/dispatch.h"
#include "vndesk_idl.h"

namespace vndesk {

// Holds no state of its own: two objects used one after another see the same session.
class Logon final : public ClassObject<Logon, clsLogon, ILogon> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsLogon";

    STDMETHODIMP ShowLogon(BSTR* connect, long* code) override;
    STDMETHODIMP ShowUser(BSTR* connect, BSTR* userName) override;
    STDMETHODIMP UserManager(BSTR* connect) override;
    STDMETHODIMP ShowGroup(BSTR* connect) override;
    STDMETHODIMP MgBox(BSTR* message, Buttons button, BSTR* title, IconValue icon,
                       VARIANT_BOOL rightToLeft, BSTR* pressed) override;
    STDMETHODIMP SetDfFont(BSTR* name) override;
};

} // namespace vndesk
