// SPDX-License-Identifier: MIT
// Records of VnAudit.
#pragma once

#include <string>

#include "accounts/text/account_statements.h"

namespace vndesk {

// Who does something, and where.
struct Actor {
    std::optional<long> code;
    std::wstring name;
    std::wstring computer;
    std::wstring windowsUser;
};

// What was done to what. Never a password, its number or its hash.
struct AuditEntry {
    std::wstring action;
    std::wstring subject;
    std::wstring before = {};
    std::wstring after = {};
};

Statement AuditStatement(const Actor& actor, const AuditEntry& entry, const Clock& now,
                         const Dialect* dialect = nullptr);

// How a user or group stands in Before and After: "Name=An; Dec=Thu kho; IdGroup=5". A value that
// could be taken for more stands in quotes, with those in it doubled.
struct NamedValue {
    std::wstring_view name;
    std::wstring value;
};
std::wstring Described(std::initializer_list<NamedValue> values);

} // namespace vndesk
