// SPDX-License-Identifier: MIT
// The form in which the menu commands of one group are ticked.
#pragma once

#include "accounts/operation.h"

namespace vndesk {

// Throws when a write fails, which also ends the form.
void ShowPermissionForm(const Operation& operation, long groupCode);

} // namespace vndesk
