// SPDX-License-Identifier: MIT
// The form in which the menu commands of one group are ticked.
#pragma once

namespace vndesk {

// Runs on the session's current database. A write that fails ends the form and is thrown here.
void ShowPermissionForm(long groupCode);

} // namespace vndesk
