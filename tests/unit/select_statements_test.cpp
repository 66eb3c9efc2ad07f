// SPDX-License-Identifier: MIT
// The look-up statements of the selection boxes, text for text.
#include "controls/picker/text/select_statements.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr wchar_t kByName[] = L"Select Ma,Ten From DanhMuc Where Ten";
constexpr wchar_t kByCode[] = L"Select Ma,Ten From DanhMuc Where Ma";

TEST(SelectStatements, NameIsSearchedByItsBeginning) {
    EXPECT_EQ(NamesBeginningStatement(kByName, L"ab", DatabaseKind::Jet),
              L"Select Ma,Ten From DanhMuc Where Ten  Like 'ab%'");
    EXPECT_EQ(NamesBeginningStatement(kByName, L"ấm", DatabaseKind::SqlServer),
              L"Select Ma,Ten From DanhMuc Where Ten  Like N'ấm%'");
    EXPECT_EQ(NamesBeginningStatement(kByName, L"", DatabaseKind::Jet),
              L"Select Ma,Ten From DanhMuc Where Ten  Like '%'");
}

TEST(SelectStatements, CodeIsComparedWhole) {
    EXPECT_EQ(CodeStatement(kByCode, L"A1", DatabaseKind::Jet),
              L"Select Ma,Ten From DanhMuc Where Ma = 'A1'");
    EXPECT_EQ(CodeStatement(kByCode, L"Đ1", DatabaseKind::SqlServer),
              L"Select Ma,Ten From DanhMuc Where Ma = N'Đ1'");
    EXPECT_EQ(CodeStatement(kByCode, L"", DatabaseKind::Jet),
              L"Select Ma,Ten From DanhMuc Where Ma = ''");
}

TEST(SelectStatements, QuotesAreDoubled) {
    EXPECT_EQ(NamesBeginningStatement(L"T", L"O'B\"", DatabaseKind::Jet), L"T  Like 'O''B\"\"%'");
    EXPECT_EQ(CodeStatement(L"T", L"O'B\"", DatabaseKind::SqlServer), L"T = N'O''B\"\"'");
}

} // namespace
