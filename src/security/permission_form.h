// SPDX-License-Identifier: MIT
// The form in which the menu commands of one group are ticked.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

// A write that fails ends the form and is raised here.
void ShowPermissionForm(const Database& database, long groupCode);

} // namespace vndesk
