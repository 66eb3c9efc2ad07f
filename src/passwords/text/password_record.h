// SPDX-License-Identifier: MIT
// The form in which the database holds a password: `pbkdf2-sha256$600000$<salt>$<key>`, salt and
// key in base64. The cost stands in it, so that later passwords may cost more.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vndesk {

inline constexpr unsigned long kPasswordCost = 600000;
// A record that somebody has put in must not hold up a logon for hours.
inline constexpr unsigned long kHighestPasswordCost = 10000000;
inline constexpr std::size_t kSaltBytes = 16;
inline constexpr std::size_t kKeyBytes = 32;

struct PasswordRecord {
    unsigned long cost = 0;
    std::wstring salt; // in base64, as the key
    std::wstring key;
};

// Nothing when any part is not exactly as it is written here.
std::optional<PasswordRecord> ReadPasswordRecord(std::wstring_view text);

std::wstring WritePasswordRecord(const PasswordRecord& record);

} // namespace vndesk
