// SPDX-License-Identifier: MIT
// Keys from passwords and random bytes, by Windows' own cryptography (CNG). Its library is loaded
// by the first call. Failures are ComError.
#pragma once

#include <span>

namespace vndesk {

// PBKDF2 with HMAC-SHA-256; the whole span becomes the key.
void DeriveKey(std::span<const unsigned char> password, std::span<const unsigned char> salt,
               unsigned long cost, std::span<unsigned char> key);

void FillWithRandomBytes(std::span<unsigned char> bytes);

} // namespace vndesk
