// SPDX-License-Identifier: MIT
// The logon dialog.
#pragma once

namespace vndesk {

// Asks for name and password until they fit a user or the dialog is closed. The result is the
// user's Code, or 0. Runs on the session's current database.
long ShowLogonDialog();

} // namespace vndesk
