// SPDX-License-Identifier: MIT
// What a new password must satisfy, and what the user is told when it does not.
#include "passwords/text/password_rules.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "passwords/text/common_passwords.h"
#include "text/capitals.h"
#include "text/tcvn3.h"

using namespace vndesk;

namespace {

PasswordVerdict VerdictOf(std::wstring_view password, long leastLength = 8) {
    return JudgePassword(password, L"Nguyễn Văn Ếch", leastLength);
}

TEST(PasswordRules, PasswordOfTheLeastLengthIsFine) {
    EXPECT_EQ(PasswordVerdict::TooShort, VerdictOf(L"zhx7 pk"));
    EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(L"zhx7 pkq"));
    EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(std::wstring(1000, L'x')));
}

TEST(PasswordRules, BlanksAreCharacters) {
    EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(L" zhx7pk "));
}

TEST(PasswordRules, LengthCountsCodePoints) {
    EXPECT_EQ(0u, CountCodePoints(L""));
    EXPECT_EQ(4u, CountCodePoints(L"đườn"));
    EXPECT_EQ(2u, CountCodePoints(L"\U0001F600\U0001F600"));
    EXPECT_EQ(PasswordVerdict::TooShort, VerdictOf(L"\U0001F600\U0001F601\U0001F602\U0001F603"));
    EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(L"ặếỗựỷẩậệ"));
}

// Halves of pairs count one each, a pair written as two units counts one.
TEST(PasswordRules, HalvesOfPairsCountOneEach) {
    const std::wstring high(1, static_cast<wchar_t>(0xD83D)), low(1, static_cast<wchar_t>(0xDE00));
    EXPECT_EQ(1u, CountCodePoints(high));
    EXPECT_EQ(1u, CountCodePoints(low));
    EXPECT_EQ(1u, CountCodePoints(high + low));
    EXPECT_EQ(2u, CountCodePoints(low + high));
    EXPECT_EQ(2u, CountCodePoints(high + high + low));
    EXPECT_EQ(2u, CountCodePoints(high + low + low));
}

TEST(PasswordRules, WithoutALeastLengthTheOtherRulesStay) {
    for (const long none : {0l, -1l, -2147483647l}) {
        EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(L"", none));
        EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(L"x", none));
        EXPECT_EQ(PasswordVerdict::Common, VerdictOf(L"1234", none));
    }
    EXPECT_EQ(PasswordVerdict::TooShort, VerdictOf(std::wstring(1000, L'x'), 2147483647));
}

TEST(PasswordRules, UserNameIsRefusedInEveryLetterCase) {
    for (const wchar_t* name : {L"Nguyễn Văn Ếch", L"nguyễn văn ếch", L"NGUYỄN VĂN ẾCH"})
        EXPECT_EQ(PasswordVerdict::IsUserName, VerdictOf(name));
    for (const wchar_t* other :
         {L"Nguyen Van Ech", L"Nguyễn Văn Ếch1", L"Nguyễn Văn Ếc", L" Nguyễn Văn Ếch"})
        EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(other));
}

TEST(PasswordRules, CommonPasswordsAreRefusedInEveryLetterCase) {
    for (const wchar_t* common :
         {L"12345678", L"123456789", L"matkhau123", L"MatKhau123", L"anhyeuem", L"AnhYeuEm",
          L"emyeuanh", L"password", L"P@ssw0rd", L"qwertyuiop", L"iloveyou", L"Vietnam123",
          L"saigon123", L"admin@123", L"mật khẩu", L"Mật Khẩu", L"anh yêu em", L"maatjkhaaur"})
        EXPECT_EQ(PasswordVerdict::Common, VerdictOf(common));
    for (const wchar_t* common : {L"123456", L"matkhau", L"vietnam", L"hanoi", L"saigon"})
        EXPECT_EQ(PasswordVerdict::Common, VerdictOf(common, 5));
}

TEST(PasswordRules, NoKindsOfCharactersAreAskedFor) {
    for (const wchar_t* password : {L"conmeotreocaycau", L"73920184", L"~~~~~~~~~~", L"ÂÂÂÂÂÂÂÂ"})
        EXPECT_EQ(PasswordVerdict::Fine, VerdictOf(password));
}

TEST(PasswordRules, WhatIsToldFirstIsTheLength) {
    EXPECT_EQ(PasswordVerdict::TooShort, JudgePassword(L"1234", L"1234", 8));
    EXPECT_EQ(PasswordVerdict::IsUserName, JudgePassword(L"Admin123", L"admin123", 8));
}

TEST(PasswordRules, EachVerdictHasItsText) {
    const auto shown = [](PasswordVerdict verdict, long length) {
        return ToUncText(TextOfVerdict(verdict, length), kToUnicode);
    };
    EXPECT_EQ(L"Mật khẩu phải có ít nhất 8 ký tự.", shown(PasswordVerdict::TooShort, 8));
    EXPECT_EQ(L"Mật khẩu phải có ít nhất 12 ký tự.", shown(PasswordVerdict::TooShort, 12));
    EXPECT_EQ(L"Mật khẩu không được trùng với tên người sử dụng.",
              shown(PasswordVerdict::IsUserName, 8));
    EXPECT_EQ(L"Mật khẩu này quá dễ đoán.", shown(PasswordVerdict::Common, 8));
    EXPECT_EQ(L"", shown(PasswordVerdict::Fine, 8));
}

TEST(CommonPasswords, StandInOrderWithoutDoubles) {
    const auto all = CommonPasswords();
    EXPECT_LE(300u, all.size());
    EXPECT_GE(600u, all.size());
    for (std::size_t i = 1; i < all.size(); ++i)
        EXPECT_LT(std::wstring_view(all[i - 1]), std::wstring_view(all[i])) << i;
}

TEST(CommonPasswords, StandInCapitalsAsTheyAreCompared) {
    for (const auto& row : CommonPasswords()) {
        EXPECT_EQ(row, InCapitals(row));
        EXPECT_LE(4u, std::wstring_view(row).size());
    }
}

TEST(CommonPasswords, AreAllFound) {
    for (const auto& row : CommonPasswords()) {
        const std::wstring common = row;
        EXPECT_TRUE(IsCommonPassword(common));
        EXPECT_FALSE(IsCommonPassword(common + L'\0'));
        EXPECT_FALSE(IsCommonPassword(common + L"\u1EF9"));
        EXPECT_FALSE(IsCommonPassword(L" " + common));
    }
    EXPECT_FALSE(IsCommonPassword(L""));
    EXPECT_FALSE(IsCommonPassword(L"\uFFFF"));
}

} // namespace
