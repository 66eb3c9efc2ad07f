// SPDX-License-Identifier: MIT
// The form in which user groups are listed, added, described and deleted, and their rights opened.
#pragma once

#include "accounts/operation.h"

namespace vndesk {

void ShowGroupManager(const Operation& operation, HWND owner = nullptr);

} // namespace vndesk
