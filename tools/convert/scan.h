// SPDX-License-Identifier: MIT
// Reads all rows and judges them.
#pragma once

#include "convert/changes.h"
#include "convert/refusal.h"

namespace vndesk::convert {

// Throws ComError.
Changes ScanTable(const Database& database, const Table& table, const Options& options,
                  const Tell& tell);

} // namespace vndesk::convert
