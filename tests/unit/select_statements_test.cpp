// SPDX-License-Identifier: MIT
// The look-up statements of the selection boxes, text for text.
#include "controls/picker/text/select_statements.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr wchar_t kByName[] = L"Select Ma,Ten From DanhMuc Where Ten";
constexpr wchar_t kByCode[] = L"Select Ma,Ten From DanhMuc Where Ma";

TEST(SelectStatements, NameIsSearchedByItsBeginning) {
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ten  Like 'ab%'",
              NamesBeginningStatement(kByName, L"ab", DatabaseKind::Jet));
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ten  Like N'ấm%'",
              NamesBeginningStatement(kByName, L"ấm", DatabaseKind::SqlServer));
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ten  Like '%'",
              NamesBeginningStatement(kByName, L"", DatabaseKind::Jet));
}

TEST(SelectStatements, CodeIsComparedWhole) {
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ma = 'A1'",
              CodeStatement(kByCode, L"A1", DatabaseKind::Jet));
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ma = N'Đ1'",
              CodeStatement(kByCode, L"Đ1", DatabaseKind::SqlServer));
    EXPECT_EQ(L"Select Ma,Ten From DanhMuc Where Ma = ''",
              CodeStatement(kByCode, L"", DatabaseKind::Jet));
}

TEST(SelectStatements, QuotesAreDoubled) {
    EXPECT_EQ(L"T  Like 'O''B\"\"%'", NamesBeginningStatement(L"T", L"O'B\"", DatabaseKind::Jet));
    EXPECT_EQ(L"T = N'O''B\"\"'", CodeStatement(L"T", L"O'B\"", DatabaseKind::SqlServer));
}

} // namespace
