// SPDX-License-Identifier: MIT
// The search for the first name with a beginning, one name after the other and in the index.
#include "controls/picker/text/name_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace vndesk;

namespace {

class NameSearchTest : public testing::TestWithParam<bool> {
protected:
    NameSearch Names(std::initializer_list<const wchar_t*> names) {
        NameSearch search;
        for (const wchar_t* name : names)
            search.Add(name);
        if (GetParam())
            search.Index();
        return search;
    }
};

INSTANTIATE_TEST_SUITE_P(NameSearch, NameSearchTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "Indexed" : "OneByOne"; });

TEST_P(NameSearchTest, FirstNameWithTheBeginningIsFoundFromTheTop) {
    const NameSearch names = Names({L"CA", L"ABC", L"ABD", L"AB"});
    EXPECT_EQ(1, names.Find(L"A"));
    EXPECT_EQ(2, names.Find(L"ABD"));
    EXPECT_EQ(0, names.Find(L"CA"));
}

TEST_P(NameSearchTest, TextInsideANameOrLongerThanItIsNotFound) {
    const NameSearch names = Names({L"CA", L"ABC"});
    EXPECT_EQ(-1, names.Find(L"B"));
    EXPECT_EQ(-1, names.Find(L"CAB"));
    // Not over the end of one name into the next.
    EXPECT_EQ(-1, names.Find(L"CAA"));
    EXPECT_EQ(-1, names.Find(L"ABCD"));
}

TEST_P(NameSearchTest, EmptyBeginningFindsTheFirstName) {
    EXPECT_EQ(0, Names({L"", L"A"}).Find(L""));
    EXPECT_EQ(0, Names({L"B", L"A"}).Find(L""));
}

TEST_P(NameSearchTest, NothingIsFoundAmongNoNames) {
    NameSearch names;
    EXPECT_EQ(-1, names.Find(L""));
    names.Add(L"A");
    names.Clear();
    EXPECT_EQ(-1, names.Find(L"A"));
    names.Add(L"B");
    EXPECT_EQ(0, names.Find(L"B"));
}

TEST_P(NameSearchTest, EmptyNamesKeepTheirPlaces) {
    const NameSearch names = Names({L"", L"", L"A", L"", L"B"});
    EXPECT_EQ(2, names.Find(L"A"));
    EXPECT_EQ(4, names.Find(L"B"));
}

TEST(NameSearch, NameAddedToAnIndexIsFound) {
    NameSearch names;
    names.Add(L"B");
    names.Index();
    names.Add(L"A");
    EXPECT_EQ(1, names.Find(L"A"));
    names.Index();
    EXPECT_EQ(1, names.Find(L"A"));
}

TEST(NameSearch, IndexFindsWhatALookAtEveryNameFinds) {
    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round) {
        NameSearch plain;
        for (unsigned i = random() % 200; i > 0; --i) {
            std::wstring name;
            for (unsigned length = random() % 6; length > 0; --length)
                name += static_cast<wchar_t>(L'A' + random() % 3);
            plain.Add(name);
        }
        NameSearch indexed = plain;
        indexed.Index();
        for (const wchar_t* beginning :
             {L"", L"A", L"B", L"C", L"D", L"AB", L"BA", L"CCC", L"ABCA", L"@"})
            EXPECT_EQ(plain.Find(beginning), indexed.Find(beginning)) << round << ' ' << beginning;
    }
}

} // namespace
