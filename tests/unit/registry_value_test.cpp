// SPDX-License-Identifier: MIT
// Bytes of registry values as text.
#include "data/text/registry_value.h"

#include <gtest/gtest.h>

using namespace vndesk;
using namespace std::string_view_literals;

namespace {

TEST(RegistryValue, OneFinalZeroIsDropped) {
    EXPECT_EQ("abc", WithoutFinalZero("abc\0"sv));
    EXPECT_EQ("abc", WithoutFinalZero("abc"));
    EXPECT_EQ("a\0b\0"sv, WithoutFinalZero("a\0b\0\0"sv));
    EXPECT_EQ("", WithoutFinalZero("\0"sv));
    EXPECT_EQ("", WithoutFinalZero(""));
}

TEST(RegistryValue, NumbersAreReadFromTheLastByteToTheFirst) {
    EXPECT_EQ(L"16", NumberText("\x10\0\0\0"sv));
    EXPECT_EQ(L"16", NumberText("\x10\0\0"sv)) << "the last zero may have been dropped";
    EXPECT_EQ(L"0", NumberText("\0\0\0"sv));
    EXPECT_EQ(L"305419896", NumberText("\x78\x56\x34\x12"sv));
    EXPECT_EQ(L"32768", NumberText("\0\x80\0"sv));
    EXPECT_EQ(L"65535", NumberText("\xFF\xFF\0"sv));
    EXPECT_EQ(L"2147483647", NumberText("\xFF\xFF\xFF\x7F"sv));
}

TEST(RegistryValue, NumbersAreSigned) {
    EXPECT_EQ(L"-1", NumberText("\xFF\xFF\xFF\xFF"sv));
    EXPECT_EQ(L"-2147483648", NumberText("\0\0\0\x80"sv));
}

TEST(RegistryValue, WhatIsNoNumberOf32BitsIsEmpty) {
    EXPECT_EQ(L"", NumberText(""));
    EXPECT_EQ(L"", NumberText("\1\2\3\4\5"sv));
}

} // namespace
