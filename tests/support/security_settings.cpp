// SPDX-License-Identifier: MIT
#include "support/security_settings.h"

#include <comutil.h>

#include "support/engine_variant.h"
#include "support/env.h"
#include "support/late_bound.h"
#include "support/new_object.h"
#include "support/text.h"

namespace vndesk::test {

using Microsoft::WRL::ComPtr;

namespace {

bool IsPostgres(const SampleDatabase& database) {
    return database.Engine() == std::wstring_view(L"postgresql");
}

VARIANT_BOOL ToBool(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

} // namespace

ComPtr<ISettings> MakeSettings(const SecuritySettings& values) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    EXPECT_SUCCEEDED(settings->put_BindParameters(
        ToBool(InDialect() ? CurrentVariant().bound : values.BindParameters)));
    EXPECT_SUCCEEDED(settings->put_Dialect(CurrentVariant().dialect));
    EXPECT_SUCCEEDED(settings->put_Audit(ToBool(values.Audit)));
    EXPECT_SUCCEEDED(settings->put_PasswordScheme(values.PasswordScheme));
    EXPECT_SUCCEEDED(settings->put_UpgradeOnLogon(ToBool(values.UpgradeOnLogon)));
    EXPECT_SUCCEEDED(settings->put_MinPasswordLength(values.MinPasswordLength));
    EXPECT_SUCCEEDED(settings->put_LockAfter(values.LockAfter));
    EXPECT_SUCCEEDED(settings->put_LockWindowMinutes(values.LockWindowMinutes));
    EXPECT_SUCCEEDED(settings->put_LockMinutes(values.LockMinutes));
    EXPECT_SUCCEEDED(settings->put_ConnectionErrors(values.ConnectionErrors));
    EXPECT_SUCCEEDED(settings->put_AccentSensitivity(values.Accents));
    EXPECT_SUCCEEDED(settings->put_MatchAnywhere(ToBool(values.MatchAnywhere)));
    EXPECT_SUCCEEDED(settings->put_EnterKey(values.EnterKey));
    EXPECT_SUCCEEDED(settings->put_InputWarnings(ToBool(values.InputWarnings)));
    return settings;
}

ComPtr<ILogon2> LogonWith(const SecuritySettings& values, long userCode) {
    const auto logon = NewObject<ILogon2>(L"VnDesk.clsLogon");
    EXPECT_SUCCEEDED(logon->putref_Settings(MakeSettings(values).Get()));
    EXPECT_SUCCEEDED(logon->put_UserCode(userCode));
    return logon;
}

void Govern(IUnknown* object, const ComPtr<ISettings>& settings) {
    ComPtr<IDispatch> late;
    ASSERT_SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&late)));
    LateBound(late.Get()).PutObject(L"Settings", _variant_t(settings.Get()));
}

void GovernInDialect(IUnknown* object) {
    if (InDialect())
        Govern(object, MakeSettings({}));
}

void Upgrade(const SampleDatabase& database, const wchar_t* script) {
    OdbcSession(database.OdbcString())
        .ExecuteScript(ReadUtf8File(SourceDir() + L"\\schema\\upgrade\\" + script + L"." +
                                    database.Engine() + L".sql"));
}

std::vector<AuditRecord> AuditRecords(const SampleDatabase& database) {
    std::vector<AuditRecord> records;
    for (const auto& row : database.Query(
             L"select \"at\",usercode,username,pc,winuser,\"action\",subject,\"before\",\"after\" "
             L"from vnaudit order by code")) {
        const auto cell = [&](size_t column) { return row.at(column).value_or(L"(null)"); };
        records.push_back(
            {cell(0), cell(1), cell(2), cell(3), cell(4), cell(5), cell(6), cell(7), cell(8)});
    }
    return records;
}

std::vector<std::wstring> AuditLines(const SampleDatabase& database) {
    std::vector<std::wstring> lines;
    for (const AuditRecord& record : AuditRecords(database))
        lines.push_back(record.action + L"|" + record.subject + L"|" + record.before + L"|" +
                        record.after);
    return lines;
}

void RefuseRecords(const SampleDatabase& database) {
    if (!IsPostgres(database)) {
        database.Execute(L"create trigger refusal before insert on vnaudit begin select "
                         L"raise(abort, '" +
                         std::wstring(kAuditRefuses) + L"'); end");
        return;
    }
    database.Execute(L"create function refusal() returns trigger language plpgsql as $$begin raise "
                     L"exception '" +
                     std::wstring(kAuditRefuses) + L"'; end$$");
    database.Execute(L"create trigger refusal before insert on vnaudit for each row execute "
                     L"function refusal()");
}

} // namespace vndesk::test
