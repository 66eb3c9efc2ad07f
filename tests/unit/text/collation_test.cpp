// SPDX-License-Identifier: MIT
#include "text/letters/collation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "text/letters/letter_case.h"

using namespace vndesk;

namespace {

void ExpectAscending(const std::vector<std::wstring>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = 0; j < texts.size(); ++j)
            EXPECT_EQ((i > j) - (i < j), Compare(texts[i], texts[j])) << i << " " << j;
}

TEST(CollationTest, LettersStandInTheVietnameseOrder) {
    std::vector<std::wstring> letters;
    for (const wchar_t letter : std::wstring(L"aăâbcdđeêghiklmnoôơpqrstuưvxy"))
        letters.emplace_back(1, letter);
    ExpectAscending(letters);
    ExpectAscending({L"e", L"f", L"g", L"i", L"j", L"k", L"v", L"w", L"x", L"y", L"z"});
}

TEST(CollationTest, TonesDecideLast) {
    ExpectAscending(
        {L"ba", L"bà", L"bả", L"bã", L"bá", L"bạ", L"ban", L"bán", L"băn", L"bắn", L"bân", L"ca"});
    ExpectAscending({L"má a", L"ma b", L"má b"});
    ExpectAscending({L"Hà Đông", L"Hà Nam", L"Hà Nội", L"Hải Phòng", L"Huế"});
}

TEST(CollationTest, LetterCaseBlanksAndThePlaceOfTheToneDoNotCount) {
    EXPECT_EQ(0, Compare(L"Hoà  Bình", L"HÒA BÌNH"));
    EXPECT_EQ(SortKey(L"Hoà  Bình"), SortKey(L"hòa bình"));
    EXPECT_NE(SortKey(L"Hoà"), SortKey(L"Hoá"));
    EXPECT_NE(SortKey(L"lý"), SortKey(L"lí"));
}

TEST(CollationTest, BlanksSignsAndDigitsComeBeforeLetters) {
    ExpectAscending({L"", L" ", L"-", L"1", L"2", L"a", L"z"});
    ExpectAscending({L"An", L"An Bình", L"An-Bình", L"An1", L"Ana"});
}

TEST(CollationTest, KeysOfVietnameseAreAsciiAndSortByTheirUnits) {
    std::vector<std::wstring> names = {L"Đặng Ước", L"Dương Ýên", L"Ánh \"x\" ~",
                                       L"ăn",       L"Ấm 09",     L"Zalo",
                                       L"Õng",      L"ức",        L"\x01\x1F\x7F"};
    for (const std::wstring& name : names)
        for (const wchar_t unit : SortKey(name))
            EXPECT_TRUE(unit >= L' ' && (unit <= L'~' || name[0] == 1)) << static_cast<long>(unit);
    auto byKey = names;
    std::sort(byKey.begin(), byKey.end(),
              [](const auto& left, const auto& right) { return SortKey(left) < SortKey(right); });
    std::sort(names.begin(), names.end(),
              [](const auto& left, const auto& right) { return Compare(left, right) < 0; });
    EXPECT_EQ(names, byKey);
}

} // namespace
