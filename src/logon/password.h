// SPDX-License-Identifier: MIT
// Passwords as the user types them, turned into the number that the database keeps.
#pragma once

#include <string_view>

namespace vndesk {

// The password code in the system's code page. Letters count alike in upper and lower case.
double PasswordCodeOf(std::wstring_view password);

} // namespace vndesk
