// SPDX-License-Identifier: MIT
#include "accounts/text/audit_statements.h"

#include "text/ascii_text.h"

namespace vndesk {

namespace {

// As long as the columns of the upgrade scripts: a name is typed by anybody, at any length.
constexpr std::size_t kMaxUserName = 100;
constexpr std::size_t kMaxSubject = 255;

std::wstring_view Cut(std::wstring_view text, std::size_t most) {
    text = text.substr(0, most);
    // Not between the halves of a surrogate pair.
    if (text.size() == most && text.back() >= 0xD800 && text.back() <= 0xDBFF)
        text.remove_suffix(1);
    return text;
}

std::wstring Unmistakable(const std::wstring& value) {
    if (value.find(L';') == std::wstring::npos && !value.starts_with(L'"'))
        return value;
    return L"\"" + ReplaceEach(value, L'"', L"\"\"") + L"\"";
}

} // namespace

Statement AuditStatement(const Actor& actor, const AuditEntry& entry, const Clock& now,
                         const Dialect* dialect) {
    StatementWriter statement({DatabaseKind::SqlServer, true, dialect});
    statement << L"Insert Into [VnAudit]([At],[UserCode],[UserName],[PC],[WinUser],[Action],"
                 L"[Subject],[Before],[After]) Values(";
    statement << now << L"," << Bind{actor.code} << L"," << Quoted{Cut(actor.name, kMaxUserName)}
              << L"," << Quoted{actor.computer} << L"," << Quoted{actor.windowsUser} << L","
              << Quoted{entry.action} << L"," << Quoted{Cut(entry.subject, kMaxSubject)} << L","
              << Quoted{entry.before} << L"," << Quoted{entry.after};
    return statement << L")";
}

std::wstring Described(std::initializer_list<NamedValue> values) {
    std::wstring text;
    for (const auto& [name, value] : values) {
        if (!text.empty())
            text += L"; ";
        text.append(name).append(L"=").append(Unmistakable(value));
    }
    return text;
}

} // namespace vndesk
