// SPDX-License-Identifier: MIT
// The statements behind named settings, character by character.
#include "data/text/option_statements.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
constexpr OptionName kName = {L"CongTy", L"Ten"};

TEST(OptionStatements, Read) {
    EXPECT_EQ(L"Select * From [Options] Where [Section]='CongTy' And KeyName='Ten'",
              ReadOptionStatement(kName, kJet));
    EXPECT_EQ(L"Select * From [Options] Where [Section]=N'CongTy' And KeyName=N'Ten'",
              ReadOptionStatement(kName, kServer));
}

TEST(OptionStatements, Find) {
    EXPECT_EQ(L"Select * From Options Where [Section]='CongTy' And KeyName='Ten'",
              FindOptionStatement(kName, kJet));
}

TEST(OptionStatements, Insert) {
    EXPECT_EQ(L"Insert Into Options([Section],KeyName,KeyValue) Values('CongTy','Ten','40')",
              InsertOptionStatement(kName, L"40", L"", kJet));
    EXPECT_EQ(L"Insert Into Options([Section],KeyName,KeyValue,Description) "
              L"Values(N'CongTy',N'Ten',N'',N'Ghi chú ')",
              InsertOptionStatement(kName, L"", L"Ghi chú", kServer));
}

TEST(OptionStatements, Update) {
    EXPECT_EQ(L"Update Options Set KeyValue='40'  Where [Section]='CongTy' And KeyName='Ten'",
              UpdateOptionStatement(kName, L"40", L"", kJet));
    EXPECT_EQ(L"Update Options Set Description=N'Ghi chú ',KeyValue=N'40'  Where "
              L"[Section]=N'CongTy' And KeyName=N'Ten'",
              UpdateOptionStatement(kName, L"40", L"Ghi chú", kServer));
}

TEST(OptionStatements, EveryTextIsEscaped) {
    const OptionName name = {L"a'b", L"c'd"};
    EXPECT_EQ(L"Update Options Set Description='g''h ',KeyValue='e''f'  Where [Section]='a''b' And "
              L"KeyName='c''d'",
              UpdateOptionStatement(name, L"e'f", L"g'h", kJet));
    EXPECT_EQ(L"Insert Into Options([Section],KeyName,KeyValue,Description) "
              L"Values('a''b','c''d','e''f)','g''h ')",
              InsertOptionStatement(name, L"e'f)", L"g'h", kJet));
}

} // namespace
