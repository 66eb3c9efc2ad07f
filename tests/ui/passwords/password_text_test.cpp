// SPDX-License-Identifier: MIT
// Passwords in Unicode's form C and in UTF-8, and the rules for new ones over texts as typed.
#include "passwords/password_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "comkit/base/com_error.h"
#include "support/random.h"

namespace vndesk::test {
namespace {

std::wstring Normal(std::wstring_view text) {
    const Wiped<wchar_t> normal = NormalForm(text);
    return {normal.Data(), normal.Size()};
}

std::string Utf8(std::wstring_view text) {
    const Wiped<unsigned char> bytes = PasswordBytes(text);
    return {bytes.Data(), bytes.Data() + bytes.Size()};
}

TEST(PasswordText, MarksJoinTheirLetters) {
    EXPECT_EQ(L"\u1EBF", Normal(L"e\u0302\u0301"));
    EXPECT_EQ(L"\u1EC7 \u1EF1", Normal(L"e\u0323\u0302 u\u031B\u0323"));
    EXPECT_EQ(L"", Normal(L""));
    EXPECT_EQ(std::wstring(L"a\0\u1EBF", 3), Normal(std::wstring(L"a\0e\u0302\u0301", 5)));
}

// Written apart it takes three times the room.
TEST(PasswordText, LettersThatFormCTakesApartHaveRoom) {
    std::wstring text, wanted;
    for (int i = 0; i < 1000; ++i) {
        text += L"\uFB2C";
        wanted += L"\u05E9\u05BC\u05C1";
    }
    EXPECT_EQ(wanted, Normal(text));
    EXPECT_EQ(6000u, Utf8(text).size());
}

TEST(PasswordText, BytesAreUtf8) {
    EXPECT_EQ("M\xE1\xBA\xADt \xC4\x91\xF0\x9F\x98\x80", Utf8(L"Mật đ\U0001F600"));
    EXPECT_EQ("", Utf8(L""));
    EXPECT_EQ(std::string("\0a\0", 3), Utf8(std::wstring(L"\0a\0", 3)));
}

TEST(PasswordText, WhatHasNoFormCStaysAsItIs) {
    const std::wstring half(1, static_cast<wchar_t>(0xDC00));
    EXPECT_EQ(half, Normal(half));
    EXPECT_EQ("\xEF\xBF\xBD", Utf8(half));
    EXPECT_EQ(L"\uFFFF", Normal(L"\uFFFF"));
}

TEST(PasswordText, FormCIsReachedInOneStep) {
    Random random;
    for (int i = 0; i < 500; ++i) {
        const std::wstring once = Normal(random.Text());
        ASSERT_EQ(once, Normal(once)) << i;
    }
}

TEST(PasswordText, TextWithoutEndIsAnError) {
    const std::wstring letter = L"a";
    EXPECT_EQ(E_INVALIDARG, ToHresult([&] {
                  NormalForm({letter.data(), static_cast<std::size_t>(0x40000000)});
              }));
}

TEST(PasswordText, RulesSeeTheTextsInFormC) {
    EXPECT_EQ(PasswordVerdict::TooShort, JudgeNewPassword(L"e\u0302\u0301zxk7", L"lan", 6));
    EXPECT_EQ(PasswordVerdict::Fine, JudgeNewPassword(L"e\u0302\u0301zxk7q", L"lan", 6));
    EXPECT_EQ(PasswordVerdict::IsUserName,
              JudgeNewPassword(L"nguyê\u0303n", L"NGUYE\u0302\u0303N", 6));
    EXPECT_EQ(PasswordVerdict::Common, JudgeNewPassword(L"viê\u0323t nam", L"lan", 6));
}

// Says when it goes what it was left with.
struct Witness {
    int value = 7;
    static inline int left = 0;
    ~Witness() { left += value; }
};

TEST(Wiped, IsClearedWhenItIsGivenBack) {
    Witness::left = 0;
    { const Witness kept; }
    ASSERT_EQ(7, Witness::left) << "the witness says nothing";
    Witness::left = 0;
    {
        Wiped<Witness> wiped(5);
        EXPECT_EQ(7, wiped.Data()[4].value);
        wiped.Shorten(2);
        EXPECT_EQ(2u, wiped.Size());
        const Wiped<Witness> taken = std::move(wiped);
        EXPECT_EQ(2u, taken.Size());
        EXPECT_EQ(7, taken.Data()[1].value);
    }
    EXPECT_EQ(0, Witness::left);
}

} // namespace
} // namespace vndesk::test
