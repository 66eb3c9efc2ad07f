// SPDX-License-Identifier: MIT
// The password code. Texts are given in capitals, as the callers do.
#include "logon/text/password_code.h"

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
    EXPECT_EQ(CodeOf(L"ABC"), 65 + 66 * 4 + 67 * 16);
    EXPECT_EQ(CodeOf(L"ABC"), 1401);
}

TEST(PasswordCode, DependsOnTheOrder) {
    EXPECT_EQ(CodeOf(L"CBA"), 67 + 66 * 4 + 65 * 16);
}

TEST(PasswordCode, EmptyTextGivesZero) {
    EXPECT_EQ(CodeOf(L""), 0);
}

TEST(PasswordCode, AcceptsBothEndsOfTheRange) {
    EXPECT_EQ(CodeOf(L"\x20"), 32);
    EXPECT_EQ(CodeOf(L"\x7F"), 127);
}

TEST(PasswordCode, CharacterBelowTheRangeGivesZero) {
    EXPECT_EQ(CodeOf(L"A\x1F"), 0);
    EXPECT_EQ(CodeOf(L"\x1F"
                     L"A"),
              0);
}

TEST(PasswordCode, CharacterAboveTheRangeGivesZero) {
    EXPECT_EQ(CodeOf(L"A\x80"
                     L"A"),
              0);
    EXPECT_EQ(CodeOf(L"\u0110"), 0);
}

TEST(PasswordCode, AsksTheCodePage) {
    EXPECT_EQ(PasswordCode(L"\u0110\u0110", CodeOfTheFirstLetter), 65 + 65 * 4);
}

TEST(PasswordCode, IsExactUpToTheDigitsOfADouble) {
    EXPECT_EQ(CodeOf(std::wstring(20, L' ')), 32 * ((1099511627776.0 - 1) / 3));
}

TEST(PasswordCode, OverflowsForAVeryLongText) {
    EXPECT_NO_THROW(CodeOf(std::wstring(500, L'A')));
    EXPECT_THROW(CodeOf(std::wstring(600, L'A')), std::overflow_error);
}

TEST(PasswordCode, CharacterOutsideTheRangeWinsOverOverflow) {
    EXPECT_EQ(CodeOf(L"\x1F" + std::wstring(600, L'A')), 0);
}
