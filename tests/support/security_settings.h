// SPDX-License-Identifier: MIT
// What hosts ask for beyond version 1.0, on a test's own database: settings, the tables that they
// need, and the records in VnAudit.
#pragma once

#include <string>
#include <vector>
#include <wrl/client.h>

#include "support/sample_database.h"
#include "vndesk_idl.h"

namespace vndesk::test {

// The values of one clsSettings, by default those of 1.0.
struct SecuritySettings {
    bool BindParameters = false;
    bool Audit = false;
    PasswordSchemes PasswordScheme = vnPasswordCode;
    bool UpgradeOnLogon = true;
    long MinPasswordLength = 0;
    long LockAfter = 0;
    long LockWindowMinutes = 15;
    long LockMinutes = 15;
    ConnectionErrorModes ConnectionErrors = vnErrorsShowString;
    AccentSensitivity Accents = vnAccentSensitive;
    bool MatchAnywhere = false;
    ::EnterKey EnterKey = vnEnterMovesOn;
    bool InputWarnings = false;
};

// Names as users type them: what a new program should have.
inline constexpr SecuritySettings kFindNames = {.Accents = vnAccentSmart, .MatchAnywhere = true};

// A clsSettings of the registered DLL, with the dialect of the running test.
Microsoft::WRL::ComPtr<ISettings> MakeSettings(const SecuritySettings& values);

// A clsLogon with such settings, in whose name a user changes what there is.
Microsoft::WRL::ComPtr<ILogon2> LogonWith(const SecuritySettings& values, long userCode = 0);

// Hands the settings to an object that has the property, whatever its class.
void Govern(IUnknown* object, const Microsoft::WRL::ComPtr<ISettings>& settings);

// Hands settings over where the hosts of the running test name a dialect.
void GovernInDialect(IUnknown* object);

// Runs schema/upgrade/<name>.<engine>.sql: L"accounts", L"audit".
void Upgrade(const SampleDatabase& database, const wchar_t* script);

struct AuditRecord {
    std::wstring at; // "2026-01-31 10:20:30", UTC
    std::wstring userCode;
    std::wstring userName;
    std::wstring pc;
    std::wstring winUser;
    std::wstring action;
    std::wstring subject;
    std::wstring before;
    std::wstring after;
};

// In the order in which they were written. Nulls read as "(null)".
std::vector<AuditRecord> AuditRecords(const SampleDatabase& database);

// "user-edit|Admin|Name=Admin; …|Name=Chính; …" for each of them.
std::vector<std::wstring> AuditLines(const SampleDatabase& database);

// From now on VnAudit refuses every record, with this text in the error.
inline constexpr wchar_t kAuditRefuses[] = L"khong ghi duoc";
void RefuseRecords(const SampleDatabase& database);

} // namespace vndesk::test
