// SPDX-License-Identifier: MIT
// What the ADO for Wine prepares of statements with parameters, and of their values.
#include <gtest/gtest.h>

#include "ado/text/decimal_text.h"
#include "ado/text/parameter_markers.h"

namespace {

using namespace vndesk::ado;

TEST(AdoParameterMarkers, CommentsGo) {
    EXPECT_EQ(L"Select   ?  ", BareMarkers(L"Select /* ' ? */ ? -- it's ?"));
    EXPECT_EQ(L"Select ?  \n, ?", BareMarkers(L"Select ? -- ?\n, ?"));
    EXPECT_EQ(L"a b", BareMarkers(L"a/**/b"));
    EXPECT_EQ(L"a  ", BareMarkers(L"a /* ? never closed"));
}

TEST(AdoParameterMarkers, QuotesAndMarksInNames) {
    EXPECT_EQ(L"Select  \"a?b\" , \"it's\"  From t", BareMarkers(L"Select [a?b],[it's] From t"));
    EXPECT_EQ(L" \"b?\" ", BareMarkers(L"`b?`"));
    EXPECT_EQ(L" \"a\"\"]b\" ", BareMarkers(L"[a\"]]b]"));
    EXPECT_EQ(L" \"a`?\" ", BareMarkers(L"`a``?`"));
    EXPECT_EQ(L" \"a{b\" ", BareMarkers(L"[a{b]"));
}

TEST(AdoParameterMarkers, EverythingElseStays) {
    for (const wchar_t* statement :
         {L"", L"Select [Code], `x`, \"a?\" From [User] Where [Name]=? And b Like '%?''--%'",
          L"Insert Into t Values(?, ?, N'/* ? */')", L"a - b -?", L"'never closed ? -- ?"})
        EXPECT_EQ(statement, BareMarkers(statement));
}

TEST(AdoDecimals, AsEnginesReadThem) {
    EXPECT_EQ("0", DecimalText({0, 0, 0, false}));
    EXPECT_EQ("0.00", DecimalText({0, 0, 2, false}));
    EXPECT_EQ("0.05", DecimalText({0, 5, 2, false}));
    EXPECT_EQ("-12.50", DecimalText({0, 1250, 2, true}));
    EXPECT_EQ("10", DecimalText({0, 10, 0, false}));
    EXPECT_EQ("4294967296", DecimalText({0, 4294967296u, 0, false}));
    EXPECT_EQ("18446744073709551616", DecimalText({1, 0, 0, false}));
    EXPECT_EQ("-79228162514264337593543950335", DecimalText({~0u, ~0ull, 0, true}));
    EXPECT_EQ("7.9228162514264337593543950335", DecimalText({~0u, ~0ull, 28, false}));
}

} // namespace
