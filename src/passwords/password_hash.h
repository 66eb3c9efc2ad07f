// SPDX-License-Identifier: MIT
// Passwords as the database stores them: a key that is derived slowly, so that a stolen table
// cannot be tried through, and a salt, so that equal passwords do not look equal.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

enum class PasswordMatch { Yes, No, Unreadable };

// A new record, with a salt of its own and the cost of today. Throws ComError.
std::wstring HashPassword(std::wstring_view password);

// Takes as long for a wrong password as for the right one. A record that is none costs nothing.
PasswordMatch MatchPassword(std::wstring_view password, std::wstring_view record);

// The time that MatchPassword takes with a record of today's cost: a name that nobody has must not
// be refused sooner than a wrong password.
void SpendPasswordTime(std::wstring_view password);

} // namespace vndesk
