// SPDX-License-Identifier: MIT
// Locale-free text helpers.
#include "text/ascii_text.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(AsciiText, UpperCasesAsciiLettersOnly) {
    EXPECT_EQ(ToUpperAscii(L'a'), L'A');
    EXPECT_EQ(ToUpperAscii(L'z'), L'Z');
    EXPECT_EQ(ToUpperAscii(L'`'), L'`');
    EXPECT_EQ(ToUpperAscii(L'{'), L'{');
    EXPECT_EQ(ToUpperAscii(L'\u00E1'), L'\u00E1');
}

TEST(AsciiText, TrimsBlanksOnly) {
    EXPECT_EQ(TrimBlanks(L"  a b  "), L"a b");
    EXPECT_EQ(TrimBlanks(L"   "), L"");
    EXPECT_EQ(TrimBlanks(L"\ta\u00A0"), L"\ta\u00A0");
}

TEST(AsciiText, ComparesIgnoringCase) {
    EXPECT_TRUE(EqualsIgnoringCase(L"Lr", L"lR"));
    EXPECT_FALSE(EqualsIgnoringCase(L"L", L"LR"));
    EXPECT_FALSE(EqualsIgnoringCase(L"a", L"b"));
}

TEST(AsciiText, FindsTheFirstMatchIgnoringCase) {
    EXPECT_EQ(FindIgnoringCase(L"a Set set", L"SET"), 2u);
    EXPECT_EQ(FindIgnoringCase(L"set", L"SET"), 0u);
}

TEST(AsciiText, FindsNothingInAShorterText) {
    EXPECT_EQ(FindIgnoringCase(L"se", L"SET"), std::wstring_view::npos);
    EXPECT_EQ(FindIgnoringCase(L"", L"SET"), std::wstring_view::npos);
}

TEST(AsciiText, ReplacesWithoutSearchingTheReplacement) {
    EXPECT_EQ(ReplaceEach(L"a,b", L',', L"','"), L"a','b");
}
