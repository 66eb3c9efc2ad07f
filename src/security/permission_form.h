// SPDX-License-Identifier: MIT
// The form in which the menu commands of one group are ticked.
#pragma once

namespace vndesk {

// Runs on the session's current database. Throws when a write fails, which also ends the form.
void ShowPermissionForm(long groupCode);

} // namespace vndesk
