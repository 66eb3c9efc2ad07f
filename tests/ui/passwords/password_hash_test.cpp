// SPDX-License-Identifier: MIT
// Passwords against stored records. Most records here cost one round, so that the tests are quick.
#include "passwords/password_hash.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <regex>
#include <string>

#include "comkit/base/com_error.h"
#include "passwords/base64.h"
#include "passwords/key_derivation.h"
#include "passwords/password_text.h"
#include "passwords/text/password_record.h"

namespace vndesk::test {
namespace {

// Of "Mật khẩu 123", made by another program.
constexpr const wchar_t* kRecord = L"pbkdf2-sha256$600000$8PHy8/T19vf4+fr7/P3+/w==$"
                                   L"W24LzSARS1mT/HQpqE30eTSimJ8kP+VUY/WLK9qo5JQ=";
constexpr const wchar_t* kCheapRecord = L"pbkdf2-sha256$1000$8PHy8/T19vf4+fr7/P3+/w==$"
                                        L"PUswjndXDAHvQzaffIgXDXHIcVVq2k7mCKxl9KzPOzU=";
constexpr const wchar_t* kEmptyRecord = L"pbkdf2-sha256$1$8PHy8/T19vf4+fr7/P3+/w==$"
                                        L"CwakGkpot9tauxemaHrO05BfE0DHhOwmcv1WrCkRL1s=";

std::wstring CheapRecord(std::wstring_view password) {
    unsigned char salt[kSaltBytes], key[kKeyBytes];
    FillWithRandomBytes(salt);
    const Wiped<unsigned char> bytes = PasswordBytes(password);
    DeriveKey({bytes.Data(), bytes.Size()}, salt, 1, key);
    return WritePasswordRecord({1, ToBase64(salt), ToBase64(key)});
}

bool Matches(std::wstring_view password, std::wstring_view stored) {
    const PasswordMatch match = MatchPassword(password, CheapRecord(stored));
    EXPECT_NE(PasswordMatch::Unreadable, match);
    return match == PasswordMatch::Yes;
}

// What the thread itself has spent, whatever else the machine does.
double ProcessorSeconds() {
    FILETIME made, ended, kernel, user;
    GetThreadTimes(GetCurrentThread(), &made, &ended, &kernel, &user);
    const auto seconds = [](const FILETIME& time) {
        return static_cast<double>(
                   ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart) /
               1e7;
    };
    return seconds(kernel) + seconds(user);
}

template <class Work> double SecondsOf(Work work) {
    const double begin = ProcessorSeconds();
    work();
    return ProcessorSeconds() - begin;
}

TEST(PasswordHash, NewRecordIsOfTodaysCostAndMatchesItsPasswordOnly) {
    const std::wstring record = HashPassword(L"Mật khẩu 123");
    EXPECT_TRUE(std::regex_match(
        record, std::wregex(LR"(pbkdf2-sha256\$600000\$[A-Za-z0-9+/]{22}==\$[A-Za-z0-9+/]{43}=)")))
        << std::string(record.begin(), record.end());
    EXPECT_EQ(PasswordMatch::Yes, MatchPassword(L"Mật khẩu 123", record));
    EXPECT_EQ(PasswordMatch::No, MatchPassword(L"Mật khẩu 124", record));
    // The salt is the record's own.
    EXPECT_NE(record, HashPassword(L"Mật khẩu 123"));
}

TEST(PasswordHash, RecordsOfOtherProgramsMatch) {
    EXPECT_EQ(PasswordMatch::Yes, MatchPassword(L"Mật khẩu 123", kRecord));
    EXPECT_EQ(PasswordMatch::Yes, MatchPassword(L"Mật khẩu 123", kCheapRecord));
    EXPECT_EQ(PasswordMatch::No, MatchPassword(L"Mật khẩu 12", kCheapRecord));
}

TEST(PasswordHash, EmptyPasswordIsAPassword) {
    EXPECT_EQ(PasswordMatch::Yes, MatchPassword(L"", kEmptyRecord));
    EXPECT_EQ(PasswordMatch::No, MatchPassword(L" ", kEmptyRecord));
    EXPECT_EQ(PasswordMatch::No, MatchPassword(L"", kCheapRecord));
}

TEST(PasswordHash, MarksMayBeTypedWithTheLetterOrAfterIt) {
    for (const wchar_t* same :
         {L"thi\u1EBFt k\u1EBF", L"thie\u0302\u0301t ke\u0302\u0301", L"thi\u00EA\u0301t k\u1EBF"})
        EXPECT_TRUE(Matches(same, L"thiết kế"));
    EXPECT_TRUE(Matches(L"thiết kế", L"thie\u0302\u0301t ke\u0302\u0301"));
    EXPECT_FALSE(Matches(L"thiet ke", L"thiết kế"));
    EXPECT_FALSE(Matches(L"thiêt kê", L"thiết kế"));
}

TEST(PasswordHash, CapitalsCount) {
    EXPECT_FALSE(Matches(L"matkhau", L"Matkhau"));
    EXPECT_FALSE(Matches(L"đường", L"Đường"));
}

TEST(PasswordHash, BlanksCount) {
    EXPECT_TRUE(Matches(L" a  b ", L" a  b "));
    for (const wchar_t* other : {L"a  b", L" a  b", L"a  b ", L" a b ", L"a\u00A0b"})
        EXPECT_FALSE(Matches(other, L" a  b "));
}

TEST(PasswordHash, LettersThatNoCodePageHasCount) {
    EXPECT_FALSE(Matches(L"中", L"文"));
    EXPECT_FALSE(Matches(L"\U0001F600", L"\U0001F601"));
    EXPECT_FALSE(Matches(L"ﬁ", L"fi"));
}

TEST(PasswordHash, ZerosAndWhatFollowsThemCount) {
    const std::wstring zero(L"a\0b", 3);
    EXPECT_TRUE(Matches(zero, zero));
    EXPECT_FALSE(Matches(L"a", zero));
    EXPECT_FALSE(Matches(std::wstring(L"a\0c", 3), zero));
    EXPECT_FALSE(Matches(L"b", std::wstring(L"\0b", 2)));
}

// HMAC itself fills a short password up with zeros. Nobody can type one, and a byte put behind
// every password would make records that no other program reads.
TEST(PasswordHash, ZerosAtTheVeryEndDoNotCount) {
    EXPECT_TRUE(Matches(L"a", std::wstring(L"a\0", 2)));
}

TEST(PasswordHash, EveryLetterOfALongPasswordCounts) {
    std::wstring password;
    while (password.size() < 1000)
        password += L"ếựđ7 ";
    EXPECT_TRUE(Matches(password, password));
    std::wstring other = password;
    other.back() = L'x';
    EXPECT_FALSE(Matches(other, password));
    EXPECT_FALSE(Matches(password.substr(0, 999), password));
}

TEST(PasswordHash, HalvesOfSurrogatePairsAndNonCharactersAreNoError) {
    const std::wstring half = std::wstring(L"a") + static_cast<wchar_t>(0xD800) + L"b";
    EXPECT_TRUE(Matches(half, half));
    EXPECT_FALSE(Matches(L"ab", half));
    EXPECT_TRUE(Matches(L"a\uFFFEb", L"a\uFFFEb"));
    EXPECT_FALSE(Matches(L"a\uFFFEb", L"a\uFFFFb"));
}

TEST(PasswordHash, WhatIsNoRecordMatchesNothing) {
    const std::wstring record = kCheapRecord;
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"-1"), std::wstring(L"Mật khẩu 123"), record + L" ",
          record.substr(0, record.size() - 1), L"x" + record,
          std::wstring(L"pbkdf2-sha256$0") + record.substr(record.find(L"$8")),
          std::wstring(L"pbkdf2-sha256$10000001") + record.substr(record.find(L"$8")),
          std::wstring(L"pbkdf2-sha512$1000") + record.substr(record.find(L"$8"))}) {
        EXPECT_EQ(PasswordMatch::Unreadable, MatchPassword(L"Mật khẩu 123", text));
        EXPECT_EQ(PasswordMatch::Unreadable, MatchPassword(L"", text));
    }
}

// Every single bit of the key decides.
TEST(PasswordHash, KeyThatDiffersInOneBitDoesNotMatch) {
    unsigned char key[kKeyBytes];
    const auto whole = ReadPasswordRecord(kEmptyRecord);
    ASSERT_TRUE(whole);
    FromBase64(whole->key, key);
    for (std::size_t bit = 0; bit < kKeyBytes * 8; ++bit) {
        key[bit / 8] ^= static_cast<unsigned char>(1 << bit % 8);
        EXPECT_EQ(PasswordMatch::No,
                  MatchPassword(L"", WritePasswordRecord({1, whole->salt, ToBase64(key)})));
        key[bit / 8] ^= static_cast<unsigned char>(1 << bit % 8);
    }
    EXPECT_EQ(PasswordMatch::Yes,
              MatchPassword(L"", WritePasswordRecord({1, whole->salt, ToBase64(key)})));
}

// Of the two the faster one would tell which names there are. The machine may be busy, so this only
// sees a derivation that is missing or of another cost.
TEST(PasswordHash, NameThatNobodyHasCostsAsMuchAsAWrongPassword) {
    const double wrong = SecondsOf([] { MatchPassword(L"sai mật khẩu", kRecord); });
    const double unknown = SecondsOf([] { SpendPasswordTime(L"sai mật khẩu"); });
    EXPECT_LT(0.02, wrong);
    EXPECT_LT(wrong / 2, unknown);
    EXPECT_LT(unknown / 2, wrong);
}

} // namespace
} // namespace vndesk::test
