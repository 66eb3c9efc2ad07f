// SPDX-License-Identifier: MIT
// The logon dialog.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

// Asks for name and password until they fit a user or the dialog is closed. The result is the
// user's Code, or 0.
long ShowLogonDialog(const Database& database);

} // namespace vndesk
