// SPDX-License-Identifier: MIT
// The statements of the find dialog, text for text.
#include "find/text/catalogue.h"
#include "find/text/ordered.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {
constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;
} // namespace

TEST(Catalogue, FieldsOfATableInTheirOrder) {
    EXPECT_EQ(L"Select [Name],[Desc] From LstFld Where [InTable]='KhachHang' Order By [code]",
              Ordered(FieldListStatement(L"KhachHang"), kCatalogueOrder));
    EXPECT_EQ(L"Select * From LstFld Where [InTable]='KhachHang' Order By [code]",
              Ordered(FieldInfoStatement(L"KhachHang"), kCatalogueOrder));
}

TEST(Catalogue, TableNameIsPutInAsGiven) {
    EXPECT_EQ(L"Select [Name],[Desc] From LstFld Where [InTable]='a'b'",
              FieldListStatement(L"a'b"));
    EXPECT_EQ(L"Select * From LstFld Where [InTable]=''", FieldInfoStatement(L""));
}

TEST(Catalogue, OperatorsOfAType) {
    EXPECT_EQ(L"Select Name,Des from Operator Where Type=10  Order By Code",
              OperatorListStatement(10));
    EXPECT_EQ(L"Select Name,Des from Operator Where Type=-1  Order By Code",
              OperatorListStatement(-1));
}

TEST(LookUp, TableNameBecomesASearchOverItsNames) {
    EXPECT_EQ(L"Select * From TinhThanh Where Name   Like N'Hà%'",
              LookUpStatement(L"TinhThanh", L"Hà", kServer));
    EXPECT_EQ(L"Select * From TinhThanh Where Name   Like '%'",
              LookUpStatement(L"TinhThanh", L"", kJet));
}

TEST(LookUp, SelectGetsThePattern) {
    EXPECT_EQ(L"Select A,B From T Where B  Like 'x%'",
              LookUpStatement(L"Select A,B From T Where B", L"x", kJet));
    EXPECT_EQ(L"sElEcT A,B From T Where B  Like N'x%'",
              LookUpStatement(L"sElEcT A,B From T Where B", L"x", kServer));
}

TEST(LookUp, QuotesOfTheValueAreDoubled) {
    EXPECT_EQ(L"Select * From T Where Name   Like 'O''B\"\"%'",
              LookUpStatement(L"T", L"O'B\"", kJet));
}
