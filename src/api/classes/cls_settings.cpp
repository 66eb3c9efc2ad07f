// SPDX-License-Identifier: MIT
#include "api/classes/cls_settings.h"

#include <limits>

#include "comkit/base/bstr.h"

namespace vndesk {

namespace {

constexpr long kMaxLong = std::numeric_limits<long>::max();
constexpr long kMinutesOfAYear = 525600;
// What every form takes and a password may have.
constexpr long kMaxMinLength = 64;
constexpr long kRecommendedLength = 8;

static_assert(long{vnPasswordCode} == static_cast<long>(PasswordScheme::Code) &&
              long{vnPasswordPbkdf2} == static_cast<long>(PasswordScheme::Pbkdf2));
static_assert(long{vnErrorsShowString} == static_cast<long>(ConnectionErrors::ShowString) &&
              long{vnErrorsShowReason} == static_cast<long>(ConnectionErrors::ShowReason) &&
              long{vnErrorsRaise} == static_cast<long>(ConnectionErrors::Raise));

static_assert(long{vnDialectAuto} == static_cast<long>(DialectChoice::Auto) &&
              long{vnDialectJet} == static_cast<long>(DialectChoice::Jet) &&
              long{vnDialectSqlServer} == static_cast<long>(DialectChoice::SqlServer) &&
              long{vnDialectPostgreSql} == static_cast<long>(DialectChoice::PostgreSql) &&
              long{vnDialectSqlite} == static_cast<long>(DialectChoice::Sqlite) &&
              long{vnDialectMySql} == static_cast<long>(DialectChoice::MySql));

static_assert(long{vnAccentSensitive} == static_cast<long>(AccentRule::Sensitive) &&
              long{vnAccentSmart} == static_cast<long>(AccentRule::Smart) &&
              long{vnAccentInsensitive} == static_cast<long>(AccentRule::Insensitive));
static_assert(long{vnEnterMovesOn} == static_cast<long>(EnterMode::MovesOn) &&
              long{vnEnterConfirms} == static_cast<long>(EnterMode::Confirms));

} // namespace

HRESULT SettingsObject::GetFlag(bool Settings::*flag, VARIANT_BOOL* value) {
    return Get(value, [&] { return values_.*flag ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT SettingsObject::PutFlag(bool Settings::*flag, VARIANT_BOOL value) {
    return Guard([&] { values_.*flag = value != VARIANT_FALSE; });
}

HRESULT SettingsObject::GetNumber(long Settings::*number, long* value) {
    return Get(value, [&] { return values_.*number; });
}

HRESULT SettingsObject::PutNumber(long Settings::*number, long value, long least, long most) {
    return Guard([&] {
        if (value < least || value > most)
            throw ComError(E_INVALIDARG, L"The number must be " + std::to_wstring(least) + L" to " +
                                             std::to_wstring(most) + L".");
        values_.*number = value;
    });
}

STDMETHODIMP SettingsObject::get_BindParameters(VARIANT_BOOL* value) {
    return GetFlag(&Settings::BindParameters, value);
}
STDMETHODIMP SettingsObject::put_BindParameters(VARIANT_BOOL value) {
    return PutFlag(&Settings::BindParameters, value);
}

STDMETHODIMP SettingsObject::get_PasswordScheme(PasswordSchemes* value) {
    return Get(value, [&] { return static_cast<PasswordSchemes>(values_.Scheme); });
}
STDMETHODIMP SettingsObject::put_PasswordScheme(PasswordSchemes value) {
    return Guard([&] {
        if (value != vnPasswordCode && value != vnPasswordPbkdf2)
            throw ComError(E_INVALIDARG, L"There is no such way to keep passwords.");
        values_.Scheme = static_cast<PasswordScheme>(value);
    });
}

STDMETHODIMP SettingsObject::get_UpgradeOnLogon(VARIANT_BOOL* value) {
    return GetFlag(&Settings::UpgradeOnLogon, value);
}
STDMETHODIMP SettingsObject::put_UpgradeOnLogon(VARIANT_BOOL value) {
    return PutFlag(&Settings::UpgradeOnLogon, value);
}

STDMETHODIMP SettingsObject::get_MinPasswordLength(long* value) {
    return GetNumber(&Settings::MinPasswordLength, value);
}
STDMETHODIMP SettingsObject::put_MinPasswordLength(long value) {
    return PutNumber(&Settings::MinPasswordLength, value, 0, kMaxMinLength);
}

STDMETHODIMP SettingsObject::get_LockAfter(long* value) {
    return GetNumber(&Settings::LockAfter, value);
}
STDMETHODIMP SettingsObject::put_LockAfter(long value) {
    return PutNumber(&Settings::LockAfter, value, 0, kMaxLong);
}

STDMETHODIMP SettingsObject::get_LockWindowMinutes(long* value) {
    return GetNumber(&Settings::LockWindowMinutes, value);
}
STDMETHODIMP SettingsObject::put_LockWindowMinutes(long value) {
    return PutNumber(&Settings::LockWindowMinutes, value, 1, kMinutesOfAYear);
}

STDMETHODIMP SettingsObject::get_LockMinutes(long* value) {
    return GetNumber(&Settings::LockMinutes, value);
}
STDMETHODIMP SettingsObject::put_LockMinutes(long value) {
    return PutNumber(&Settings::LockMinutes, value, 1, kMinutesOfAYear);
}

STDMETHODIMP SettingsObject::get_Audit(VARIANT_BOOL* value) {
    return GetFlag(&Settings::Audit, value);
}
STDMETHODIMP SettingsObject::put_Audit(VARIANT_BOOL value) {
    return PutFlag(&Settings::Audit, value);
}

STDMETHODIMP SettingsObject::get_Dialect(Dialects* value) {
    return Get(value, [&] { return static_cast<Dialects>(values_.Dialect); });
}
STDMETHODIMP SettingsObject::put_Dialect(Dialects value) {
    return Guard([&] {
        if (value < vnDialectAuto || value > vnDialectMySql)
            throw ComError(E_INVALIDARG, L"There is no such dialect.");
        values_.Dialect = static_cast<DialectChoice>(value);
    });
}

STDMETHODIMP SettingsObject::UseRecommended() {
    return Guard([&] {
        values_.BindParameters = true;
        values_.MinPasswordLength = kRecommendedLength;
        values_.OnConnectionError = ConnectionErrors::ShowReason;
        values_.Accents = AccentRule::Smart;
        values_.MatchAnywhere = true;
        values_.Enter = EnterMode::Confirms;
        values_.InputWarnings = true;
    });
}

STDMETHODIMP SettingsObject::get_ConnectionErrors(ConnectionErrorModes* value) {
    return Get(value, [&] { return static_cast<ConnectionErrorModes>(values_.OnConnectionError); });
}
STDMETHODIMP SettingsObject::put_ConnectionErrors(ConnectionErrorModes value) {
    return Guard([&] {
        if (value < vnErrorsShowString || value > vnErrorsRaise)
            throw ComError(E_INVALIDARG, L"There is no such way to tell of failed connections.");
        values_.OnConnectionError = static_cast<ConnectionErrors>(value);
    });
}

STDMETHODIMP SettingsObject::get_AccentSensitivity(AccentSensitivity* value) {
    return Get(value, [&] { return static_cast<AccentSensitivity>(values_.Accents); });
}
STDMETHODIMP SettingsObject::put_AccentSensitivity(AccentSensitivity value) {
    return Guard([&] {
        if (value < vnAccentSensitive || value > vnAccentInsensitive)
            throw ComError(E_INVALIDARG, L"There is no such AccentSensitivity.");
        values_.Accents = static_cast<AccentRule>(value);
    });
}

STDMETHODIMP SettingsObject::get_MatchAnywhere(VARIANT_BOOL* value) {
    return GetFlag(&Settings::MatchAnywhere, value);
}
STDMETHODIMP SettingsObject::put_MatchAnywhere(VARIANT_BOOL value) {
    return PutFlag(&Settings::MatchAnywhere, value);
}

STDMETHODIMP SettingsObject::get_EnterKey(EnterKey* value) {
    return Get(value, [&] { return static_cast<EnterKey>(values_.Enter); });
}
STDMETHODIMP SettingsObject::put_EnterKey(EnterKey value) {
    return Guard([&] {
        if (value != vnEnterMovesOn && value != vnEnterConfirms)
            throw ComError(E_INVALIDARG, L"Enter can do no such thing.");
        values_.Enter = static_cast<EnterMode>(value);
    });
}

STDMETHODIMP SettingsObject::get_InputWarnings(VARIANT_BOOL* value) {
    return GetFlag(&Settings::InputWarnings, value);
}
STDMETHODIMP SettingsObject::put_InputWarnings(VARIANT_BOOL value) {
    return PutFlag(&Settings::InputWarnings, value);
}

} // namespace vndesk
