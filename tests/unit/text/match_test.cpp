// SPDX-License-Identifier: MIT
#include "text/letters/match.h"

#include <gtest/gtest.h>

#include "text/letters/normal_form.h"

using namespace vndesk;

namespace {

constexpr auto kSensitive = Sensitivity::Sensitive;
constexpr auto kSmart = Sensitivity::Smart;
constexpr auto kInsensitive = Sensitivity::Insensitive;

bool Finds(const wchar_t* pattern, const wchar_t* text, Sensitivity sensitivity = kSmart) {
    return Matches(text, pattern, sensitivity) != Match::None;
}

TEST(MatchTest, WhatThePatternGivesMustAgreeAndWhatItLeavesOutIsFree) {
    for (const wchar_t* text : {L"đường", L"dương", L"Dưỡng", L"ĐƯỜNG"})
        EXPECT_TRUE(Finds(L"dương", text));
    EXPECT_FALSE(Finds(L"dương", L"duong"));
    EXPECT_FALSE(Finds(L"đuong", L"dương"));
    EXPECT_TRUE(Finds(L"dường", L"đường"));
    EXPECT_FALSE(Finds(L"dường", L"đưỡng"));
    EXPECT_TRUE(Finds(L"dùong", L"Dùông")) << "shape and tone apart";
    EXPECT_TRUE(Finds(L"da nang", L"Đà Nẵng"));
    EXPECT_FALSE(Finds(L"đa nâng", L"Đà Nẵng"));
}

TEST(MatchTest, InsensitiveLooksAtBasesOnly) {
    EXPECT_TRUE(Finds(L"dương", L"duong", kInsensitive));
    EXPECT_TRUE(Finds(L"đa nâng", L"Đà Nẵng", kInsensitive));
    EXPECT_FALSE(Finds(L"da nang", L"Đà Nắm", kInsensitive));
    EXPECT_FALSE(Finds(L"ly", L"Lí", kInsensitive)) << "i and y are two letters";
}

TEST(MatchTest, SensitiveWantsEveryAccent) {
    EXPECT_TRUE(Finds(L"đà nẵng", L"ĐÀ NẴNG", kSensitive));
    EXPECT_FALSE(Finds(L"da nang", L"Đà Nẵng", kSensitive));
    EXPECT_FALSE(Finds(L"đà nẵng", L"Da Nang", kSensitive));
}

TEST(MatchTest, OldAndNewPlacesOfTheToneAreOne) {
    for (const Sensitivity sensitivity : {kSensitive, kSmart, kInsensitive}) {
        EXPECT_TRUE(Finds(L"hoà", L"hòa", sensitivity));
        EXPECT_TRUE(Finds(L"hòa", L"hoà", sensitivity));
        EXPECT_TRUE(Finds(L"thuỷ", L"thủy", sensitivity));
        EXPECT_TRUE(Finds(L"KHỎE", L"khoẻ", sensitivity));
        EXPECT_EQ(Match::AtStartExactly, Matches(L"Thủy", L"thuỷ", sensitivity));
    }
    EXPECT_FALSE(Finds(L"hoà", L"hoa"));
    EXPECT_FALSE(Finds(L"hoà", L"hoá"));
    EXPECT_FALSE(Finds(L"hoa", L"hòa", kSensitive));
    EXPECT_FALSE(Finds(L"lý", L"lí")) << "i and y are two letters";
}

// Whoever is still typing has typed a beginning, wherever the tone stands then.
TEST(MatchTest, WhatHasBeenTypedOfATextBeginsIt) {
    for (const std::wstring text :
         {L"Hòa Bình", L"Hoà Bình", L"Thủy Tạ", L"Hoàng Quý", L"khuỷu tay", L"qùy", L"ngoẹo",
          L"Huỳnh Thuý Oanh", L"tạp hóa  Xuân", L"Cộng hoà"})
        for (std::size_t begin = 0; begin < text.size(); ++begin)
            for (std::size_t length = 1; begin + length <= text.size(); ++length)
                for (const Sensitivity sensitivity : {kSensitive, kSmart, kInsensitive}) {
                    const std::wstring part = text.substr(begin, length);
                    const Match found = Matches(text, part, sensitivity);
                    EXPECT_NE(Match::None, found) << begin << "+" << length;
                    EXPECT_TRUE(begin > 0 || found == Match::AtStartExactly) << length;
                }
    EXPECT_TRUE(Finds(L"hò", L"Hoà", kSensitive));
    EXPECT_FALSE(Finds(L"hó", L"Hoà", kSensitive));
    EXPECT_TRUE(Finds(L"hoà", L"Hoàng"));
    EXPECT_TRUE(Finds(L"hòa", L"Hoàng"));
}

TEST(MatchTest, StrokedDAndEthAreOneLetter) {
    for (const wchar_t* text : {L"đa", L"Đa", L"ðA", L"ÐA"}) {
        EXPECT_EQ(Match::AtStart, Matches(text, L"da", kInsensitive));
        EXPECT_EQ(Match::AtStart, Matches(text, L"da", kSmart));
        EXPECT_EQ(Match::AtStartExactly, Matches(text, L"đa", kSmart));
        EXPECT_EQ(Match::AtStartExactly, Matches(text, L"Ða", kSensitive));
    }
    EXPECT_FALSE(Finds(L"đa", L"da"));
}

TEST(MatchTest, PlacesAreRanked) {
    EXPECT_EQ(Match::None, Matches(L"Hà Nội", L"hue", kSmart));
    EXPECT_EQ(Match::Anywhere, Matches(L"Hà Nội", L"oi", kSmart));
    EXPECT_EQ(Match::AtWord, Matches(L"Hà Nội", L"noi", kSmart));
    EXPECT_EQ(Match::AtWord, Matches(L"(Hà) Nội", L"ha", kSmart));
    EXPECT_EQ(Match::AtStart, Matches(L"Hà Nội", L"ha", kSmart));
    EXPECT_EQ(Match::AtStart, Matches(L"Hà Nội", L"hà noi", kSmart));
    EXPECT_EQ(Match::AtStartExactly, Matches(L"Hà Nội", L"hà n", kSmart));
    EXPECT_EQ(Match::AtStartExactly, Matches(L"Hà Nội", L"HÀ NỘI", kInsensitive));
    EXPECT_EQ(Match::AtWord, Matches(L"xoan, An", L"an", kSmart)) << "the best place counts";
    EXPECT_EQ(Match::AtStartExactly, Matches(L"", L"", kSmart));
    EXPECT_EQ(Match::None, Matches(L"", L"a", kSmart));
}

TEST(MatchTest, RunsOfBlanksAreOne) {
    EXPECT_EQ(Match::AtStartExactly, Matches(L"Đà \t\u00A0 Nẵng", L"Đà Nẵng", kSensitive));
    EXPECT_EQ(Match::AtStartExactly, Matches(L"Đà Nẵng", L"Đà   Nẵng", kSensitive));
    EXPECT_FALSE(Finds(L"đànẵng", L"Đà Nẵng"));
}

TEST(MatchTest, LettersMayComeInAnyNormalForm) {
    const std::wstring apart = ToNfd(L"Thuỷ Điện Hoà Bình"); // đ has no other form
    for (const Sensitivity sensitivity : {kSensitive, kSmart, kInsensitive}) {
        EXPECT_EQ(Match::AtStartExactly, Matches(apart, L"thủy điện hòa", sensitivity));
        EXPECT_EQ(Match::AtStartExactly, Matches(L"Thuỷ Điện Hoà Bình", apart, sensitivity));
    }
    EXPECT_TRUE(Finds(L"e\u0323\u0302", L"ệ", kSensitive));
    EXPECT_TRUE(Finds(L"e\u0302\u0323", L"ệ", kSensitive));
}

TEST(MatchTest, OtherMarksAreShapesToo) {
    EXPECT_TRUE(Finds(L"muller", L"Müller"));
    EXPECT_FALSE(Finds(L"müller", L"Muller"));
    EXPECT_FALSE(Finds(L"müller", L"Mûller"));
    EXPECT_TRUE(Finds(L"\u01D6", L"u\u0308\u0304", kSensitive));
}

} // namespace
