// SPDX-License-Identifier: MIT
// clsSettings: what a host asks for beyond version 1.0.
#pragma once

#include "api/classes/settings_source.h"
#include "comkit/object/dispatch.h"
#include "vndesk_idl.h"

namespace vndesk {

class SettingsObject final : public DescribedObject<SettingsObject, clsSettings, ISettings,
                                                    IProvideClassInfo, ISettingsSource> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsSettings";

    Settings Values() const override { return values_; }

    STDMETHODIMP get_BindParameters(VARIANT_BOOL* value) override;
    STDMETHODIMP put_BindParameters(VARIANT_BOOL value) override;
    STDMETHODIMP get_PasswordScheme(PasswordSchemes* value) override;
    STDMETHODIMP put_PasswordScheme(PasswordSchemes value) override;
    STDMETHODIMP get_UpgradeOnLogon(VARIANT_BOOL* value) override;
    STDMETHODIMP put_UpgradeOnLogon(VARIANT_BOOL value) override;
    STDMETHODIMP get_MinPasswordLength(long* value) override;
    STDMETHODIMP put_MinPasswordLength(long value) override;
    STDMETHODIMP get_LockAfter(long* value) override;
    STDMETHODIMP put_LockAfter(long value) override;
    STDMETHODIMP get_LockWindowMinutes(long* value) override;
    STDMETHODIMP put_LockWindowMinutes(long value) override;
    STDMETHODIMP get_LockMinutes(long* value) override;
    STDMETHODIMP put_LockMinutes(long value) override;
    STDMETHODIMP get_Audit(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Audit(VARIANT_BOOL value) override;
    STDMETHODIMP UseRecommended() override;
    STDMETHODIMP get_ConnectionErrors(ConnectionErrorModes* value) override;
    STDMETHODIMP put_ConnectionErrors(ConnectionErrorModes value) override;
    STDMETHODIMP get_Dialect(Dialects* value) override;
    STDMETHODIMP put_Dialect(Dialects value) override;
    STDMETHODIMP get_AccentSensitivity(AccentSensitivity* value) override;
    STDMETHODIMP put_AccentSensitivity(AccentSensitivity value) override;
    STDMETHODIMP get_MatchAnywhere(VARIANT_BOOL* value) override;
    STDMETHODIMP put_MatchAnywhere(VARIANT_BOOL value) override;
    STDMETHODIMP get_EnterKey(EnterKey* value) override;
    STDMETHODIMP put_EnterKey(EnterKey value) override;
    STDMETHODIMP get_InputWarnings(VARIANT_BOOL* value) override;
    STDMETHODIMP put_InputWarnings(VARIANT_BOOL value) override;

private:
    HRESULT GetFlag(bool Settings::*flag, VARIANT_BOOL* value);
    HRESULT PutFlag(bool Settings::*flag, VARIANT_BOOL value);
    HRESULT GetNumber(long Settings::*number, long* value);
    HRESULT PutNumber(long Settings::*number, long value, long least, long most);

    Settings values_;
};

} // namespace vndesk
