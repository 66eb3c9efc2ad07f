// SPDX-License-Identifier: MIT
#include "passwords/key_derivation.h"

#include <windows.h>

#include <bcrypt.h>

#include "comkit/base/com_error.h"
#include "comkit/base/library.h"

namespace vndesk {

namespace {

struct Cng {
    decltype(&BCryptOpenAlgorithmProvider) Open = nullptr;
    decltype(&BCryptCloseAlgorithmProvider) Close = nullptr;
    decltype(&BCryptDeriveKeyPBKDF2) Derive = nullptr;
    decltype(&BCryptGenRandom) Random = nullptr;
};

Cng FindAll() {
    const Library library(L"bcrypt.dll");
    Cng found;
    library.Find(found.Open, "BCryptOpenAlgorithmProvider");
    library.Find(found.Close, "BCryptCloseAlgorithmProvider");
    library.Find(found.Derive, "BCryptDeriveKeyPBKDF2");
    library.Find(found.Random, "BCryptGenRandom");
    return found;
}

const Cng& Functions() {
    static const Cng found = FindAll();
    return found;
}

void CheckStatus(NTSTATUS status) {
    if (status < 0)
        throw ComError(HRESULT_FROM_NT(status));
}

class HmacSha256 {
public:
    HmacSha256() {
        CheckStatus(Functions().Open(&handle_, BCRYPT_SHA256_ALGORITHM, nullptr,
                                     BCRYPT_ALG_HANDLE_HMAC_FLAG));
    }
    HmacSha256(const HmacSha256&) = delete;
    HmacSha256& operator=(const HmacSha256&) = delete;
    ~HmacSha256() { Functions().Close(handle_, 0); }

    BCRYPT_ALG_HANDLE Handle() const noexcept { return handle_; }

private:
    BCRYPT_ALG_HANDLE handle_ = nullptr;
};

// CNG takes what it only reads as if it wrote to it.
unsigned char* Read(std::span<const unsigned char> bytes) {
    return const_cast<unsigned char*>(bytes.data());
}

ULONG Length(std::span<const unsigned char> bytes) {
    return static_cast<ULONG>(bytes.size());
}

} // namespace

void DeriveKey(std::span<const unsigned char> password, std::span<const unsigned char> salt,
               unsigned long cost, std::span<unsigned char> key) {
    const HmacSha256 hmac;
    CheckStatus(Functions().Derive(hmac.Handle(), Read(password), Length(password), Read(salt),
                                   Length(salt), cost, key.data(), Length(key), 0));
}

void FillWithRandomBytes(std::span<unsigned char> bytes) {
    CheckStatus(
        Functions().Random(nullptr, bytes.data(), Length(bytes), BCRYPT_USE_SYSTEM_PREFERRED_RNG));
}

} // namespace vndesk
