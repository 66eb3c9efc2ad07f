// SPDX-License-Identifier: MIT
// Records of logons and changes.
#pragma once

#include <string>

#include "accounts/operation.h"
#include "accounts/text/audit_statements.h"

namespace vndesk {

// Up to 50 characters, as the tables keep them.
std::wstring ComputerName();
std::wstring WindowsUser();

Clock ClockOf(const Database& database);

// In whose name an operation changes something, where the settings ask for records. To be asked
// before the change, which may be of that user; and before its transaction, which then begins with
// a write: of two that begin with reading SQLite would refuse one.
Actor ActorOf(const Operation& operation);

// Writes a record where the settings ask for them. In the transaction of the change that it tells
// of, so that there are both or none.
void Record(const Database& database, const Actor& actor, const AuditEntry& entry);
void Record(const Operation& operation, const AuditEntry& entry);
// In the name of somebody else than the operation's user: of who logs on.
void RecordOf(const Database& database, std::optional<long> userCode, const std::wstring& userName,
              const AuditEntry& entry);

// Something that the host has done, whatever the settings.
void WriteHostAudit(const Operation& operation, const std::wstring& action,
                    const std::wstring& subject, const std::wstring& before,
                    const std::wstring& after);

} // namespace vndesk
