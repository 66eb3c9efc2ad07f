// SPDX-License-Identifier: MIT
// Windows' own PBKDF2, random bytes and base64 as this library calls them: published test vectors
// (RFC 7914, section 11, and RFC 6070's inputs with HMAC-SHA-256).
#include "passwords/key_derivation.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <set>
#include <string>
#include <vector>

#include "comkit/base/com_error.h"
#include "passwords/base64.h"
#include "comkit/base/wiped.h"

namespace vndesk::test {
namespace {

using Bytes = std::vector<unsigned char>;
using std::string_literals::operator""s;

Bytes BytesOf(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

std::string Hex(const Bytes& bytes) {
    std::string text;
    for (const unsigned char byte : bytes)
        for (const int digit : {byte >> 4, byte & 15})
            text += "0123456789abcdef"[digit];
    return text;
}

struct Vector {
    std::string password, salt;
    unsigned long cost;
    std::string key;
};

TEST(KeyDerivation, GivesThePublishedKeys) {
    const Vector kAll[] = {
        {"passwd", "salt", 1,
         "55ac046e56e3089fec1691c22544b605f94185216dde0465e68b9d57c20dacbc"
         "49ca9cccf179b645991664b39d77ef317c71b845b1e30bd509112041d3a19783"},
        {"Password", "NaCl", 80000,
         "4ddcd8f60b98be21830cee5ef22701f9641a4418d04c0414aeff08876b34ab56"
         "a1d425a1225833549adb841b51c9b3176a272bdebba1d078478f62b397f33c8d"},
        {"password", "salt", 1, "120fb6cffcf8b32c43e7225256c4f837a86548c92ccc35480805987cb70be17b"},
        {"password", "salt", 2, "ae4d0c95af6b46d32d0adff928f06dd02a303f8ef3c251dfd6e2d85a95474c43"},
        {"password", "salt", 4096,
         "c5e478d59288c841aa530db6845c4c8d962893a001ce4e11a4963873aa98134a"},
        {"passwordPASSWORDpassword", "saltSALTsaltSALTsaltSALTsaltSALTsalt", 4096,
         "348c89dbcbd32b2f32d814b8116e84cf2b17347ebc1800181c4e2a1fb8dd53e1c635518c7dac47e9"},
        {"pass\0word"s, "sa\0lt"s, 4096, "89b69d0516f829893c696226650a8687"},
    };
    for (const Vector& each : kAll) {
        Bytes key(each.key.size() / 2);
        DeriveKey(BytesOf(each.password), BytesOf(each.salt), each.cost, key);
        EXPECT_EQ(each.key, Hex(key)) << each.password << ", " << each.cost;
    }
}

TEST(KeyDerivation, FailureIsAnError) {
    Bytes key(32);
    const HRESULT invalid = ToHresult([&] { DeriveKey({}, BytesOf("salt"), 0, key); });
    EXPECT_TRUE(FAILED(invalid));
    EXPECT_EQ(static_cast<HRESULT>(0xD000000D), invalid) << "STATUS_INVALID_PARAMETER";
}

TEST(RandomBytes, AreOthersEachTimeAndFillTheSpan) {
    std::set<Bytes> drawn;
    std::vector<bool> seen(16);
    for (int i = 0; i < 20; ++i) {
        Bytes bytes(16);
        FillWithRandomBytes(bytes);
        drawn.insert(bytes);
        for (std::size_t at = 0; at < bytes.size(); ++at)
            seen[at] = seen[at] || bytes[at] != 0;
    }
    EXPECT_EQ(20u, drawn.size());
    EXPECT_EQ(std::vector<bool>(16, true), seen);
}

TEST(Base64, IsOneLineAndComesBack) {
    EXPECT_EQ(L"AAECAwQFBgcICQoLDA0ODw==",
              ToBase64(Bytes{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
    EXPECT_EQ(L"+/8=", ToBase64(Bytes{0xFB, 0xFF}));
    for (const std::size_t size : {1u, 2u, 3u, 16u, 32u, 100u}) {
        Bytes bytes(size), read(size);
        FillWithRandomBytes(bytes);
        const std::wstring text = ToBase64(bytes);
        EXPECT_EQ((size + 2) / 3 * 4, text.size());
        FromBase64(text, read);
        EXPECT_EQ(bytes, read);
    }
}

TEST(Base64, TextOfAnotherLengthIsAnError) {
    for (const wchar_t* text : {L"AAECAw==", L"AAEC", L"????????", L"AAECAwQFBg=="}) {
        Bytes bytes(5);
        EXPECT_TRUE(FAILED(ToHresult([&] { FromBase64(text, bytes); })));
    }
}

} // namespace
} // namespace vndesk::test
