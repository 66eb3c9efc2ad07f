// SPDX-License-Identifier: MIT
// The logon dialog.
#pragma once

#include "accounts/operation.h"

namespace vndesk {

struct LoggedOn {
    long userCode = 0; // 0 where the dialog was closed
    // As the database has it; read where the settings need more than the code.
    std::wstring userName = {};
    // A new password has to be chosen before anything else.
    bool mustChange = false;
};

// Asks for name and password until they fit a user or the dialog is closed.
LoggedOn ShowLogonDialog(const Database& database);

} // namespace vndesk
