// SPDX-License-Identifier: MIT
// The list of all users, from which they are added, edited and deleted.
#pragma once

#include "accounts/operation.h"

namespace vndesk {

void ShowUserList(const Operation& operation, HWND owner = nullptr);

} // namespace vndesk
