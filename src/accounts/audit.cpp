// SPDX-License-Identifier: MIT
#include "accounts/audit.h"

#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"

namespace vndesk {

namespace {

constexpr std::size_t kMaxName = 50;
constexpr std::size_t kMaxHostAction = 40;

template <class Ask> std::wstring NameFromWindows(Ask ask) {
    wchar_t name[256] = L"";
    DWORD size = 256;
    if (!ask(name, &size))
        return {};
    return std::wstring(name).substr(0, kMaxName);
}

void Write(const Database& database, const Actor& actor, const AuditEntry& entry) {
    Execute(database, AuditStatement(actor, entry, ClockOf(database), database.Dialect()));
}

// The name of the operation's user as it is now; empty without one.
std::wstring UserName(const Operation& operation) {
    if (operation.userCode == 0)
        return {};
    Recordset user;
    user.Create(operation.database);
    user.Open(UserCodedStatement(operation.userCode, operation.database.Dialect()));
    return user.Eof() ? std::wstring() : NullToText(user.Value(L"Name"));
}

Actor Found(const Operation& operation) {
    const long code = operation.userCode;
    return {code == 0 ? std::nullopt : std::optional(code), UserName(operation), ComputerName(),
            WindowsUser()};
}

} // namespace

std::wstring ComputerName() {
    return NameFromWindows(GetComputerNameW);
}

std::wstring WindowsUser() {
    return NameFromWindows(GetUserNameW);
}

Clock ClockOf(const Database& database) {
    return {EngineOf(database), MachineTime()};
}

Actor ActorOf(const Operation& operation) {
    return operation.database.settings.Audit ? Found(operation) : Actor();
}

void Record(const Database& database, const Actor& actor, const AuditEntry& entry) {
    if (database.settings.Audit)
        Write(database, actor, entry);
}

void Record(const Operation& operation, const AuditEntry& entry) {
    Record(operation.database, ActorOf(operation), entry);
}

void RecordOf(const Database& database, std::optional<long> userCode, const std::wstring& userName,
              const AuditEntry& entry) {
    Record(database, {userCode, userName, ComputerName(), WindowsUser()}, entry);
}

void WriteHostAudit(const Operation& operation, const std::wstring& action,
                    const std::wstring& subject, const std::wstring& before,
                    const std::wstring& after) {
    if (action.empty() || action.size() > kMaxHostAction)
        throw ComError(E_INVALIDARG,
                       L"An action has 1 to " + std::to_wstring(kMaxHostAction) + L" characters.");
    Write(operation.database, Found(operation), {L"host:" + action, subject, before, after});
}

} // namespace vndesk
