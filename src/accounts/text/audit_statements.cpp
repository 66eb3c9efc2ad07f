// SPDX-License-Identifier: MIT
#include "accounts/text/audit_statements.h"

namespace vndesk {

Statement AuditStatement(const Actor& actor, const AuditEntry& entry, const Clock& now) {
    StatementWriter statement({DatabaseKind::SqlServer, true});
    statement << L"Insert Into [VnAudit]([At],[UserCode],[UserName],[PC],[WinUser],[Action],"
                 L"[Subject],[Before],[After]) Values(";
    statement << now << L"," << BoundValue(actor.code) << L"," << Quoted{actor.name} << L","
              << Quoted{actor.computer} << L"," << Quoted{actor.windowsUser} << L","
              << Quoted{entry.action} << L"," << Quoted{entry.subject} << L","
              << Quoted{entry.before} << L"," << Quoted{entry.after};
    return statement << L")";
}

std::wstring Described(std::initializer_list<NamedValue> values) {
    std::wstring text;
    for (const auto& [name, value] : values) {
        if (!text.empty())
            text += L"; ";
        text.append(name).append(L"=").append(value);
    }
    return text;
}

} // namespace vndesk
