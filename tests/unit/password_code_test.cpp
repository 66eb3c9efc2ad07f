// SPDX-License-Identifier: MIT
// The password code. Texts are given in capitals, as the callers do.
#include "passwords/text/password_code.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace vndesk;

namespace {

int CodeItself(wchar_t ch) {
    return static_cast<int>(ch);
}

// A code page that shows a letter of its own as an ASCII one.
int CodeOfTheFirstLetter(wchar_t) {
    return 65;
}

double CodeOf(std::wstring_view text) {
    return PasswordCode(text, CodeItself);
}

} // namespace

TEST(PasswordCode, WeightsCharactersFromTheFirstOn) {
    EXPECT_EQ(65 + 66 * 4 + 67 * 16, CodeOf(L"ABC"));
    EXPECT_EQ(1401, CodeOf(L"ABC"));
}

TEST(PasswordCode, DependsOnTheOrder) {
    EXPECT_EQ(67 + 66 * 4 + 65 * 16, CodeOf(L"CBA"));
}

TEST(PasswordCode, EmptyTextGivesZero) {
    EXPECT_EQ(0, CodeOf(L""));
}

TEST(PasswordCode, AcceptsBothEndsOfTheRange) {
    EXPECT_EQ(32, CodeOf(L"\x20"));
    EXPECT_EQ(127, CodeOf(L"\x7F"));
}

TEST(PasswordCode, CharacterBelowTheRangeGivesZero) {
    EXPECT_EQ(0, CodeOf(L"A\x1F"));
    EXPECT_EQ(0, CodeOf(L"\x1F"
                        L"A"));
}

TEST(PasswordCode, CharacterAboveTheRangeGivesZero) {
    EXPECT_EQ(0, CodeOf(L"A\x80"
                        L"A"));
    EXPECT_EQ(0, CodeOf(L"\u0110"));
}

TEST(PasswordCode, AsksTheCodePage) {
    EXPECT_EQ(65 + 65 * 4, PasswordCode(L"\u0110\u0110", CodeOfTheFirstLetter));
}

TEST(PasswordCode, IsExactUpToTheDigitsOfADouble) {
    EXPECT_EQ(32 * ((1099511627776.0 - 1) / 3), CodeOf(std::wstring(20, L' ')));
}

TEST(PasswordCode, OverflowsForAVeryLongText) {
    EXPECT_NO_THROW(CodeOf(std::wstring(500, L'A')));
    EXPECT_THROW(CodeOf(std::wstring(600, L'A')), std::overflow_error);
}

TEST(PasswordCode, CharacterOutsideTheRangeWinsOverOverflow) {
    EXPECT_EQ(0, CodeOf(L"\x1F" + std::wstring(600, L'A')));
}
