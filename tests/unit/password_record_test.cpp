// SPDX-License-Identifier: MIT
// The stored form of a password: what is written is read back, and nothing else is read.
#include "passwords/text/password_record.h"

#include <gtest/gtest.h>

#include <string>

#include "support/random.h"

using namespace vndesk;
using vndesk::test::Random;

namespace {

const std::wstring kSalt = L"8PHy8/T19vf4+fr7/P3+/w==";
const std::wstring kKey = L"47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=";
const std::wstring kWhole = L"pbkdf2-sha256$600000$" + kSalt + L"$" + kKey;

std::wstring WithCost(const std::wstring& cost) {
    return L"pbkdf2-sha256$" + cost + L"$" + kSalt + L"$" + kKey;
}

unsigned long CostOf(const std::wstring& text) {
    const auto record = ReadPasswordRecord(text);
    return record ? record->cost : 0;
}

bool IsRead(const std::wstring& text) {
    return ReadPasswordRecord(text).has_value();
}

TEST(PasswordRecord, IsTakenApart) {
    const auto record = ReadPasswordRecord(kWhole);
    ASSERT_TRUE(record);
    EXPECT_EQ(600000u, record->cost);
    EXPECT_EQ(kSalt, record->salt);
    EXPECT_EQ(kKey, record->key);
}

TEST(PasswordRecord, IsWrittenAsItIsRead) {
    EXPECT_EQ(kWhole, WritePasswordRecord({600000, kSalt, kKey}));
    EXPECT_LE(kWhole.size(), 200u) << "the column holds no more";
}

TEST(PasswordRecord, CostMayGrowUpToALimit) {
    EXPECT_EQ(1u, CostOf(WithCost(L"1")));
    EXPECT_EQ(10000000u, CostOf(WithCost(L"10000000")));
    EXPECT_FALSE(IsRead(WithCost(L"10000001")));
    EXPECT_FALSE(IsRead(WithCost(L"4294967297")));
    EXPECT_FALSE(IsRead(WithCost(std::wstring(100, L'9'))));
}

TEST(PasswordRecord, CostIsPlainDigits) {
    for (const wchar_t* cost : {L"", L"0", L"00", L"0600000", L"+600000", L"-1", L" 600000",
                                L"600000 ", L"6e5", L"600.000", L"0x10", L"\u0661"})
        EXPECT_FALSE(IsRead(WithCost(cost))) << testing::PrintToString(std::wstring(cost));
}

TEST(PasswordRecord, OtherSchemesAreNotRead) {
    for (const wchar_t* scheme : {L"", L"pbkdf2-sha1", L"PBKDF2-SHA256", L"pbkdf2-sha256 ",
                                  L" pbkdf2-sha256", L"pbkdf2-sha2567"})
        EXPECT_FALSE(IsRead(std::wstring(scheme) + kWhole.substr(kWhole.find(L'$'))));
}

TEST(PasswordRecord, PartsAreAllThereAndNoMore) {
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"1234"), std::wstring(L"$$$"), kWhole + L"$", kWhole + L" ",
          L" " + kWhole, kWhole + kKey, L"$" + kWhole, kWhole + std::wstring(1, L'\0'),
          WithCost(L"1$1"), kWhole.substr(0, kWhole.rfind(L'$'))})
        EXPECT_FALSE(IsRead(text));
}

TEST(PasswordRecord, NothingCanBeMissingAtTheEnd) {
    for (std::size_t length = 0; length < kWhole.size(); ++length)
        EXPECT_FALSE(IsRead(kWhole.substr(0, length))) << length;
}

TEST(PasswordRecord, SaltAndKeyHaveTheirLengths) {
    const std::wstring head = L"pbkdf2-sha256$1$";
    EXPECT_TRUE(IsRead(head + kSalt + L"$" + kKey));
    EXPECT_FALSE(IsRead(head + kKey + L"$" + kSalt));
    EXPECT_FALSE(IsRead(head + kSalt + L"$" + kSalt));
    EXPECT_FALSE(IsRead(head + kKey + L"$" + kKey));
}

TEST(PasswordRecord, Base64HasItsAlphabetAndPadding) {
    const auto withSalt = [](const std::wstring& salt) {
        return L"pbkdf2-sha256$1$" + salt + L"$" + kKey;
    };
    EXPECT_TRUE(IsRead(withSalt(L"AAAAAAAAAAAAAAAAAAAAAA==")));
    for (const wchar_t* salt :
         {L"AAAAAAAAAAAAAAAAAAAAAAA=", L"AAAAAAAAAAAAAAAAAAAAAAAA", L"AAAAAAAAAAAAAAAAAAAAAA=A",
          L"AAAAAAAAAAAAAAAAAAAAAA", L"AAAAAAAAAA=AAAAAAAAAAA==", L"AAAAAAAAAA AAAAAAAAAAA==",
          L"AAAAAAAAAA-AAAAAAAAAAA==", L"AAAAAAAAAA_AAAAAAAAAAA==", L"AAAAAAAAAA\nAAAAAAAAAAA==",
          L"AAAAAAAAAA\u0110AAAAAAAAAAA==", L"========================", L""})
        EXPECT_FALSE(IsRead(withSalt(salt)));
}

// Two texts of the same bytes would be two records of the same password.
TEST(PasswordRecord, BitsBehindTheLastByteAreZero) {
    int read = 0;
    for (const wchar_t last : std::wstring(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                           L"0123456789+/"))
        read += IsRead(L"pbkdf2-sha256$1$" + kSalt.substr(0, 21) + last + L"==$" + kKey);
    EXPECT_EQ(4, read);
    EXPECT_FALSE(IsRead(WithCost(L"1").replace(WithCost(L"1").size() - 2, 1, L"V")));
}

std::wstring RandomBase64(Random& random, std::size_t letters, std::wstring_view lasts,
                          const wchar_t* padding) {
    constexpr std::wstring_view kAll =
        L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::wstring text;
    while (text.size() + 1 < letters)
        text += random.Of(kAll);
    return text + random.Of(lasts) + padding;
}

TEST(PasswordRecord, EveryRecordComesBackAndNoChangedOneAsItWas) {
    Random random;
    for (int i = 0; i < 3000; ++i) {
        constexpr std::wstring_view kSaltLasts = L"AQgw", kKeyLasts = L"AEIMQUYcgkosw048";
        const PasswordRecord record{1ul + random.Below(10000000),
                                    RandomBase64(random, 22, kSaltLasts, L"=="),
                                    RandomBase64(random, 43, kKeyLasts, L"=")};
        std::wstring text = WritePasswordRecord(record);
        const auto read = ReadPasswordRecord(text);
        ASSERT_TRUE(read) << i;
        ASSERT_EQ(record.cost, read->cost) << i;
        ASSERT_EQ(record.salt, read->salt) << i;
        ASSERT_EQ(record.key, read->key) << i;

        text[random.Below(static_cast<unsigned>(text.size()))] =
            static_cast<wchar_t>(32 + random.Below(96));
        if (const auto changed = ReadPasswordRecord(text)) {
            ASSERT_EQ(text, WritePasswordRecord(*changed)) << i;
        }
    }
}

} // namespace
