// SPDX-License-Identifier: MIT
#include "passwords/password_hash.h"

#include <array>

#include "passwords/base64.h"
#include "passwords/key_derivation.h"
#include "passwords/password_text.h"
#include "passwords/text/password_record.h"

namespace vndesk {

namespace {

using Salt = std::array<unsigned char, kSaltBytes>;

Wiped<unsigned char> KeyOf(std::wstring_view password, const Salt& salt, unsigned long cost) {
    const Wiped<unsigned char> bytes = PasswordBytes(password);
    Wiped<unsigned char> key(kKeyBytes);
    DeriveKey({bytes.Data(), bytes.Size()}, salt, cost, {key.Data(), key.Size()});
    return key;
}

// Looks at every byte wherever the first difference is: the time tells nothing of it.
bool AreEqual(const Wiped<unsigned char>& left, const Wiped<unsigned char>& right) {
    volatile unsigned char difference = 0;
    for (std::size_t i = 0; i < kKeyBytes; ++i)
        difference = static_cast<unsigned char>(difference | (left.Data()[i] ^ right.Data()[i]));
    return difference == 0;
}

} // namespace

std::wstring HashPassword(std::wstring_view password) {
    Salt salt;
    FillWithRandomBytes(salt);
    const Wiped<unsigned char> key = KeyOf(password, salt, kPasswordCost);
    return WritePasswordRecord({kPasswordCost, ToBase64(salt), ToBase64({key.Data(), key.Size()})});
}

PasswordMatch MatchPassword(std::wstring_view password, std::wstring_view record) {
    const auto stored = ReadPasswordRecord(record);
    if (!stored)
        return PasswordMatch::Unreadable;
    Salt salt;
    FromBase64(stored->salt, salt);
    Wiped<unsigned char> wanted(kKeyBytes);
    FromBase64(stored->key, {wanted.Data(), wanted.Size()});
    const Wiped<unsigned char> key = KeyOf(password, salt, stored->cost);
    return AreEqual(key, wanted) ? PasswordMatch::Yes : PasswordMatch::No;
}

void SpendPasswordTime(std::wstring_view password) {
    KeyOf(password, Salt{}, kPasswordCost);
}

} // namespace vndesk
