// SPDX-License-Identifier: MIT
// The names of a list that a search finds, and their order.
#include "text/letters/name_hits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "text/letters/collation.h"

using namespace vndesk;

namespace {

using Names = std::vector<std::wstring>;

constexpr SearchRules kBeginning = {Sensitivity::Smart, false};
constexpr SearchRules kAnywhere = {Sensitivity::Smart, true};

Names At(const Names& names, const std::vector<std::uint32_t>& positions) {
    Names found;
    for (const std::uint32_t position : positions)
        found.push_back(names[position]);
    return found;
}

Names Found(const Names& names, const wchar_t* typed, SearchRules rules) {
    NameHits hits(rules);
    for (const std::wstring& name : names)
        hits.Add(name);
    return At(names, hits.Find(typed));
}

const Names kPlaces = {L"Sân bay Đà Nẵng", L"Cada nang", L"Đà Nẵng 2", L"da nang",
                       L"Ga Đà Nẵng",      L"Đá Nắng",   L"Đà Nẵng",   L"Hải Phòng"};

TEST(NameHitsTest, BetterPlacesComeFirstThenTheVietnameseOrder) {
    EXPECT_EQ((Names{L"da nang", L"Đà Nẵng", L"Đá Nắng", L"Đà Nẵng 2", L"Ga Đà Nẵng",
                     L"Sân bay Đà Nẵng", L"Cada nang"}),
              Found(kPlaces, L"da nang", kAnywhere));
    EXPECT_EQ((Names{L"Đà Nẵng", L"Đà Nẵng 2", L"da nang", L"Đá Nắng"}),
              Found({L"Đá Nắng", L"da nang", L"Đà Nẵng 2", L"Đà Nẵng"}, L"đà nẵng",
                    {Sensitivity::Insensitive, true}));
}

TEST(NameHitsTest, OnlyBeginningsCountUnlessTheRestDoes) {
    EXPECT_EQ((Names{L"da nang", L"Đà Nẵng", L"Đá Nắng", L"Đà Nẵng 2"}),
              Found(kPlaces, L"da nang", kBeginning));
    EXPECT_EQ(Names{L"Đà Nẵng"},
              Found({L"Đà Nẵng", L"Đá Nắng"}, L"ĐÀ N", {Sensitivity::Sensitive, false}));
    EXPECT_EQ(Names{}, Found(kPlaces, L"phong", kBeginning));
    EXPECT_EQ(Names{L"Hải Phòng"}, Found(kPlaces, L"phong", kAnywhere));
}

TEST(NameHitsTest, NothingTypedFindsAllInTheVietnameseOrder) {
    EXPECT_EQ((Names{L"", L"Ăn", L"Ân", L"Đa", L"Em"}),
              Found({L"Em", L"Ân", L"Đa", L"Ăn", L""}, L"", kBeginning));
    EXPECT_EQ(Names{}, Found({}, L"", kBeginning));
}

TEST(NameHitsTest, EqualNamesKeepTheirOrder) {
    NameHits hits(kBeginning);
    for (const wchar_t* name : {L"Hoà", L"HÒA", L"hoà"})
        hits.Add(name);
    EXPECT_EQ((std::vector<std::uint32_t>{0, 1, 2}), hits.Find(L"hòa"));
}

TEST(NameHitsTest, NamesMayComeAfterASearch) {
    NameHits hits(kBeginning);
    hits.Add(L"Đỏ");
    EXPECT_EQ(1u, hits.Find(L"d").size());
    hits.Add(L"Da");
    EXPECT_EQ((std::vector<std::uint32_t>{1, 0}), hits.Find(L"d"));
}

TEST(NameHitsTest, NamesThatTheQuestionDoesNotFindHaveNoPosition) {
    NameHits hits(kBeginning);
    const SearchPattern asked(L"da", Sensitivity::Smart);
    EXPECT_TRUE(hits.AddIfFound(L"Đà Nẵng", asked));
    EXPECT_FALSE(hits.AddIfFound(L"Hà Nội", asked));
    EXPECT_FALSE(hits.AddIfFound(L"Xa Đà", asked)) << "not at the beginning";
    EXPECT_TRUE(hits.AddIfFound(L"Da trời", asked));
    EXPECT_EQ(2u, hits.Count());
    EXPECT_EQ((std::vector<std::uint32_t>{1}), hits.Find(L"da t"));
}

// What stands in the header, name by name.
TEST(NameHitsTest, IsWhatALookAtEveryNameFinds) {
    constexpr std::wstring_view kLetters = L"aàáăắâđdoòơỜuyỷ n\u4E2D\u0303-";
    std::mt19937 random(17);
    const auto word = [&](unsigned longest) {
        std::wstring text;
        for (unsigned length = random() % (longest + 1); length > 0; --length)
            text += kLetters[random() % kLetters.size()];
        return text;
    };
    for (int round = 0; round < 200; ++round) {
        const SearchRules rules = {static_cast<Sensitivity>(random() % 3), random() % 2 == 0};
        Names names(random() % 40);
        for (std::wstring& name : names)
            name = word(12);
        const std::wstring typed = word(3);
        std::vector<std::uint32_t> expected;
        const auto match = [&](std::uint32_t i) { return Matches(names[i], typed, rules.accents); };
        for (std::uint32_t i = 0; i < names.size(); ++i)
            if (match(i) >= (rules.anywhere ? Match::Anywhere : Match::AtStart))
                expected.push_back(i);
        std::stable_sort(expected.begin(), expected.end(), [&](std::uint32_t a, std::uint32_t b) {
            return match(a) != match(b) ? match(a) > match(b) : Compare(names[a], names[b]) < 0;
        });
        NameHits hits(rules);
        for (const std::wstring& name : names)
            hits.Add(name);
        ASSERT_EQ(expected, hits.Find(typed)) << round;
    }
}

} // namespace
