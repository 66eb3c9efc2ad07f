// SPDX-License-Identifier: MIT
// The search for the first name with a beginning.
#include "controls/name_search.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

NameSearch Names(std::initializer_list<const wchar_t*> names) {
    NameSearch search;
    for (const wchar_t* name : names)
        search.Add(name);
    return search;
}

TEST(NameSearch, FirstNameWithTheBeginningIsFoundFromTheTop) {
    const NameSearch names = Names({L"CA", L"ABC", L"ABD", L"AB"});
    EXPECT_EQ(names.Find(L"A"), 1);
    EXPECT_EQ(names.Find(L"ABD"), 2);
    EXPECT_EQ(names.Find(L"CA"), 0);
}

TEST(NameSearch, TextInsideANameOrLongerThanItIsNotFound) {
    const NameSearch names = Names({L"CA", L"ABC"});
    EXPECT_EQ(names.Find(L"B"), -1);
    EXPECT_EQ(names.Find(L"CAB"), -1);
    // Not over the end of one name into the next.
    EXPECT_EQ(names.Find(L"CAA"), -1);
    EXPECT_EQ(names.Find(L"ABCD"), -1);
}

TEST(NameSearch, EmptyBeginningFindsTheFirstName) {
    EXPECT_EQ(Names({L"", L"A"}).Find(L""), 0);
    EXPECT_EQ(Names({L"B", L"A"}).Find(L""), 0);
}

TEST(NameSearch, NothingIsFoundAmongNoNames) {
    NameSearch names;
    EXPECT_EQ(names.Find(L""), -1);
    names.Add(L"A");
    names.Clear();
    EXPECT_EQ(names.Find(L"A"), -1);
    names.Add(L"B");
    EXPECT_EQ(names.Find(L"B"), 0);
}

TEST(NameSearch, EmptyNamesKeepTheirPlaces) {
    const NameSearch names = Names({L"", L"", L"A", L"", L"B"});
    EXPECT_EQ(names.Find(L"A"), 2);
    EXPECT_EQ(names.Find(L"B"), 4);
}

} // namespace
