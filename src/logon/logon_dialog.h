// SPDX-License-Identifier: MIT
// The logon dialog.
#pragma once

#include <string>

#include "data/connect/database.h"
#include "logon/logon_options.h"

namespace vndesk {

struct LoggedOn {
    long userCode = 0; // 0 where the dialog was closed
    // As the database has them.
    std::wstring userName = {};
    long groupCode = 0;
    // A new password has to be chosen before anything else.
    bool mustChange = false;
};

// Asks for name and password until they fit a user or the dialog is closed.
LoggedOn ShowLogonDialog(const Database& database, const LogonOptions& options = {},
                         HWND owner = nullptr);

} // namespace vndesk
