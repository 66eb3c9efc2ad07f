// SPDX-License-Identifier: MIT
// The statement lexer of the ADO for Wine.
#include <gtest/gtest.h>

#include <string>

#include "text/sql_lexer.h"

namespace {

using namespace vndesk;

// "W" word, "_" space, "T" text, "N" national text, "Q" quoted, "B" bracketed, "D" date, the
// character itself for a symbol, "!" unclosed.
std::wstring Kinds(std::wstring_view statement) {
    std::wstring kinds, joined;
    for (const auto& [kind, text] : ReadTokens(statement)) {
        joined += text;
        if (kind == TokenKind::Symbol)
            kinds += text;
        else
            kinds += L"_WTNQBD?!"[static_cast<int>(kind)];
    }
    EXPECT_EQ(statement, joined) << "nothing may be lost";
    return kinds;
}

TEST(AdoLexer, CutsAnOrdinaryStatement) {
    EXPECT_EQ(L"W_W,W_W_B_W_B=T", Kinds(L"Select Code,Name from [user] Where [Name]='x'"));
    EXPECT_EQ(L"W_W(B,W)_W(N)", Kinds(L"Insert Options([Section],KeyName) Values(N'a')"));
    EXPECT_EQ(L"", Kinds(L""));
    EXPECT_EQ(L"_", Kinds(L" \t\r\n"));
}

TEST(AdoLexer, DoubledQuotesStayInside) {
    EXPECT_EQ(L"T", Kinds(L"'O''Brien'"));
    EXPECT_EQ(L"T", Kinds(L"''''"));
    EXPECT_EQ(L"T", Kinds(L"''"));
    EXPECT_EQ(L"Q", Kinds(L"\"a\"\"b\""));
    EXPECT_EQ(L"B", Kinds(L"[a]]b]"));
}

TEST(AdoLexer, BracketsAndHashesInsideTextAreText) {
    EXPECT_EQ(L"T", Kinds(L"'[x] #1/2/2020# N''y'' -- no'"));
    EXPECT_EQ(L"B", Kinds(L"[it's]"));
    EXPECT_EQ(L"Q", Kinds(L"\"it's\""));
}

TEST(AdoLexer, NationalTextNeedsItsOwnN) {
    EXPECT_EQ(L"N", Kinds(L"N'x'"));
    EXPECT_EQ(L"N", Kinds(L"n'x'"));
    EXPECT_EQ(L"WT", Kinds(L"IN'x'"));
    EXPECT_EQ(L"W_T", Kinds(L"N 'x'"));
    EXPECT_EQ(L"(W_W_N)W(W_=_N)", Kinds(L"(A  LIKE  N'x%')and(B = N'y')"));
}

TEST(AdoLexer, Dates) {
    EXPECT_EQ(L"D", Kinds(L"#12/31/2020#"));
    EXPECT_EQ(L"D", Kinds(L"#1/2/2020 10:11:12 PM#"));
    EXPECT_EQ(L"#W_W_#", Kinds(L"#temp or #")) << "letters make no date";
    EXPECT_EQ(L"##", Kinds(L"##"));
    EXPECT_EQ(L"W_#_W", Kinds(L"a # b"));
}

TEST(AdoLexer, Comments) {
    EXPECT_EQ(L"W__W", Kinds(L"a-- it's [not\nb"));
    EXPECT_EQ(L"W_W", Kinds(L"a/* ' [ */b"));
    EXPECT_EQ(L"W_", Kinds(L"a/* open"));
    EXPECT_EQ(L"W-W", Kinds(L"a-b"));
}

TEST(AdoLexer, AnUnclosedQuoteTakesTheRest) {
    EXPECT_EQ(L"NW!", Kinds(L"N'O'Brien') And [x]=1"));
    EXPECT_EQ(L"!", Kinds(L"'"));
    EXPECT_EQ(L"!", Kinds(L"N'"));
    EXPECT_EQ(L"!", Kinds(L"[a"));
    EXPECT_EQ(L"!", Kinds(L"\""));
    EXPECT_EQ(L"!", Kinds(L"'a''"));
}

TEST(AdoLexer, VietnameseNamesAreWords) {
    EXPECT_EQ(L"W_W", Kinds(L"Người dùng"));
    EXPECT_EQ(L"W", Kinds(L"Đơn_vị1"));
}

} // namespace
