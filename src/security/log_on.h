// SPDX-License-Identifier: MIT
// A logon as a whole: the dialog, and the new password where one must be chosen.
#pragma once

#include "accounts/operation.h"
#include "logon/logon_dialog.h"

namespace vndesk {

// Who has logged on; nobody where the dialog was closed or no new password was chosen.
LoggedOn LogOn(const Operation& operation, const LogonOptions& options, HWND owner);

} // namespace vndesk
