// SPDX-License-Identifier: MIT
// The form in which the menu commands of one group are ticked.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

// Throws when a write fails, which also ends the form.
void ShowPermissionForm(const Database& database, long groupCode);

} // namespace vndesk
