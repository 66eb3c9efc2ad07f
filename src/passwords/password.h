// SPDX-License-Identifier: MIT
// The number that the database stores for a password as the user types it.
#pragma once

#include <string_view>

namespace vndesk {

// The password code in the system's code page. Letters count alike in upper and lower case.
double PasswordCodeOf(std::wstring_view password);

} // namespace vndesk
