// SPDX-License-Identifier: MIT
// GetRows: a block of rows as a two-dimensional array of Variants, field by row.
#pragma once

#include <windows.h>

#include "ado/objects/cursor.h"

namespace vndesk::ado {

// Moves the cursor behind the last row taken. `count` -1 means all that follow; `start` is missing
// or one of ADO's three fixed bookmarks; `fields` is missing, a name, a number or an array of
// these.
void GetRows(Cursor& cursor, long count, const VARIANT& start, const VARIANT& fields,
             VARIANT& values);

} // namespace vndesk::ado
