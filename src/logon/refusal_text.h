// SPDX-License-Identifier: MIT
// What a user is told whose password is refused.
#pragma once

#include <string>

#include "accounts/credentials.h"

namespace vndesk {

// In TCVN3: until when the user is locked, or `refused` with the tries that are left.
std::wstring RefusalText(const LogonAnswer& answer, const wchar_t* refused);

} // namespace vndesk
