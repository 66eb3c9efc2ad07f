// SPDX-License-Identifier: MIT
// The tables of 1.1, which the host's scripts make.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

// 0x80040210, as the reference tells hosts.
inline constexpr HRESULT kMissingTable = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x210);

enum class Tables { AsSettings, Accounts, Audit };

// Throws ComError with table and script where one is missing that the operation needs. A database
// that is not open is left to the first statement, which fails.
void RequireTables(const Database& database, Tables needed = Tables::AsSettings);

} // namespace vndesk
