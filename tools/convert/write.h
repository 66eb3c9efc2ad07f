// SPDX-License-Identifier: MIT
// Writes what has been decided, and looks whether the database has kept it.
#pragma once

#include "convert/changes.h"
#include "convert/refusal.h"

namespace vndesk::convert {

// Both inside of the caller's transaction. Throw Refusal.
void WriteChanges(const Database& database, const Table& table, const Changes& changes,
                  const Tell& tell);
// An engine may cut a text, or write question marks, without a word.
void VerifyChanges(const Database& database, const Table& table, const Changes& changes);

} // namespace vndesk::convert
