// SPDX-License-Identifier: MIT
// Numbers, truth values and UTF-8 as drivers deliver them to the ADO for Wine.
#include <gtest/gtest.h>

#include "ado/text/number_cell.h"
#include "ado/text/utf8.h"

namespace {

using namespace vndesk::ado;

TEST(AdoCell, Integers) {
    EXPECT_EQ(0, ParseInteger("0"));
    EXPECT_EQ(-5, ParseInteger("-5"));
    EXPECT_EQ(7, ParseInteger("+7"));
    EXPECT_EQ(9223372036854775807, ParseInteger("9223372036854775807"));
    for (const char* text : {"", "abc", "1.5", " 1", "1 ", "9223372036854775808", "-", "+", "+-5"})
        EXPECT_FALSE(ParseInteger(text)) << text;
}

TEST(AdoCell, Doubles) {
    EXPECT_EQ(0.1, ParseDouble("0.1"));
    EXPECT_EQ(-12.5, ParseDouble("-12.50"));
    EXPECT_EQ(1e300, ParseDouble("1.0e+300"));
    EXPECT_EQ(.5, ParseDouble(".5"));
    EXPECT_EQ(5000000000.0, ParseDouble("5000000000"));
    for (const char* text : {"", "abc", "1,5", "nan", "inf", "-inf", "1e999", "0x10", ".", "+-1"})
        EXPECT_FALSE(ParseDouble(text)) << text;
}

TEST(AdoCell, TruthValues) {
    for (const char* text : {"1", "-1", "2", "t", "true", "TRUE"})
        EXPECT_EQ(true, ParseBoolean(text)) << text;
    for (const char* text : {"0", "f", "false", "0.0"})
        EXPECT_EQ(false, ParseBoolean(text)) << text;
    EXPECT_EQ(true, ParseBoolean("\x01"));
    EXPECT_EQ(false, ParseBoolean(std::string_view("\0", 1)));
    for (const char* text : {"", "yes", "q", "\x02", "\x01\x01"})
        EXPECT_FALSE(ParseBoolean(text).has_value()) << text;
}

TEST(AdoCell, Utf8BothWays) {
    for (const std::wstring text :
         {L"", L"plain", L"Người sử dụng", L"\U0001F600 mặt cười", L"a\x7F\x80\x7FF\x800"})
        EXPECT_EQ(text, FromUtf8(ToUtf8(text)));
    EXPECT_EQ("\xF0\x9F\x98\x80", ToUtf8(L"\U0001F600"));
    EXPECT_EQ("Ng\xC6\xB0\xE1\xBB\x9Di", ToUtf8(L"Người"));
    EXPECT_EQ(std::wstring(L"a\0b", 3), FromUtf8(std::string_view("a\0b", 3)));
}

TEST(AdoCell, WhatIsNoCharacterIsWrittenAsReplacement) {
    EXPECT_EQ("\xEF\xBF\xBDx", ToUtf8(std::wstring{static_cast<wchar_t>(0xD800), L'x'}));
    if (sizeof(wchar_t) == 4) {
        EXPECT_EQ("\xEF\xBF\xBD", ToUtf8(std::wstring(1, static_cast<wchar_t>(0x110000))));
    }
}

TEST(AdoCell, BrokenUtf8BecomesReplacementCharacters) {
    EXPECT_EQ(L"\xFFFD", FromUtf8("\x80"));
    EXPECT_EQ(L"\xFFFDx", FromUtf8("\xC3x"));
    EXPECT_EQ(L"a\xFFFD", FromUtf8("a\xE1\xBB"));
    EXPECT_EQ(L"\xFFFD", FromUtf8("\xE0\x80\x80")) << "overlong";
    EXPECT_EQ(L"\xFFFD", FromUtf8("\xED\xA0\x80")) << "a surrogate";
    EXPECT_EQ(L"\xFFFD", FromUtf8("\xF4\x90\x80\x80")) << "beyond the last character";
    EXPECT_EQ(L"\xFFFD\xFFFD", FromUtf8("\xC0\xFF"));
}

} // namespace
