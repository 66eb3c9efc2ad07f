// SPDX-License-Identifier: MIT
// Which menu item a typed letter means.
#include "menus/item/menu_char.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

wchar_t Upper(wchar_t letter) {
    if (letter == L'đ')
        return L'Đ';
    return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

LetterMatch Match(const std::vector<LetterItem>& items, wchar_t letter) {
    return MatchLetter(items, letter, Upper);
}

TEST(MenuChar, OneItemIsExecuted) {
    const std::vector<LetterItem> items = {{L"&Mở"}, {L"&Đóng"}, {}, {L"T&hoát"}};
    for (const wchar_t letter : {L'đ', L'Đ'}) {
        EXPECT_EQ(1, Match(items, letter).position);
        EXPECT_TRUE(Match(items, letter).execute);
    }
    EXPECT_EQ(3, Match(items, L'H').position);
    EXPECT_EQ(-1, Match(items, L'x').position);
    EXPECT_EQ(-1, Match({}, L'x').position);
}

TEST(MenuChar, DisabledItemIsOnlyMovedTo) {
    const LetterMatch match = Match({{L"&a", false}}, L'a');
    EXPECT_EQ(0, match.position);
    EXPECT_FALSE(match.execute);
}

TEST(MenuChar, SameLetterGoesRoundTheItems) {
    std::vector<LetterItem> items = {{L"&a"}, {L"b"}, {L"&A"}, {L"&a 3"}};
    EXPECT_EQ(0, Match(items, L'a').position);
    EXPECT_FALSE(Match(items, L'a').execute);
    items[0].highlighted = true;
    EXPECT_EQ(2, Match(items, L'a').position);
    items[0].highlighted = false;
    items[2].highlighted = true;
    EXPECT_EQ(3, Match(items, L'a').position);
    items[2].highlighted = false;
    items[3].highlighted = true;
    EXPECT_EQ(0, Match(items, L'a').position);
}

TEST(MenuChar, FirstLetterCountsWhereNoItemHasTheLetterMarked) {
    const std::vector<LetterItem> items = {{L"Mở"}, {L"Lưu &m"}, {L"In"}, {L"&Xem"}};
    EXPECT_EQ(1, Match(items, L'm').position) << "the marked one comes first";
    EXPECT_EQ(2, Match(items, L'i').position);
    EXPECT_TRUE(Match(items, L'i').execute);
    EXPECT_EQ(-1, Match(items, L'L').position) << "an item with a marked letter has that one only";
}

} // namespace
