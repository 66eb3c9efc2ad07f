// SPDX-License-Identifier: MIT
// A logon as a whole: the dialog, and the new password where one must be chosen.
#pragma once

#include "accounts/operation.h"

namespace vndesk {

// The Code of the user who has logged on, or 0.
long LogOn(const Operation& operation);

} // namespace vndesk
