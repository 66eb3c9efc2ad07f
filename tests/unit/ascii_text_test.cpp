// SPDX-License-Identifier: MIT
// Locale-free text helpers.
#include "text/ascii_text.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(AsciiText, UpperCasesAsciiLettersOnly) {
    EXPECT_EQ(L'A', ToUpperAscii(L'a'));
    EXPECT_EQ(L'Z', ToUpperAscii(L'z'));
    EXPECT_EQ(L'`', ToUpperAscii(L'`'));
    EXPECT_EQ(L'{', ToUpperAscii(L'{'));
    EXPECT_EQ(L'\u00E1', ToUpperAscii(L'\u00E1'));
}

TEST(AsciiText, TrimsBlanksOnly) {
    EXPECT_EQ(L"a b", TrimBlanks(L"  a b  "));
    EXPECT_EQ(L"", TrimBlanks(L"   "));
    EXPECT_EQ(L"\ta\u00A0", TrimBlanks(L"\ta\u00A0"));
}

TEST(AsciiText, ComparesIgnoringCase) {
    EXPECT_TRUE(EqualsIgnoringCase(L"Lr", L"lR"));
    EXPECT_FALSE(EqualsIgnoringCase(L"L", L"LR"));
    EXPECT_FALSE(EqualsIgnoringCase(L"a", L"b"));
}

TEST(AsciiText, FindsTheFirstMatchIgnoringCase) {
    EXPECT_EQ(2u, FindIgnoringCase(L"a Set set", L"SET"));
    EXPECT_EQ(0u, FindIgnoringCase(L"set", L"SET"));
}

TEST(AsciiText, FindsNothingInAShorterText) {
    EXPECT_EQ(std::wstring_view::npos, FindIgnoringCase(L"se", L"SET"));
    EXPECT_EQ(std::wstring_view::npos, FindIgnoringCase(L"", L"SET"));
}

TEST(AsciiText, ReplacesWithoutSearchingTheReplacement) {
    EXPECT_EQ(L"a','b", ReplaceEach(L"a,b", L',', L"','"));
}
