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
    EXPECT_EQ(Ordered(FieldListStatement(L"KhachHang"), kCatalogueOrder),
              L"Select [Name],[Desc] From LstFld Where [InTable]='KhachHang' Order By [code]");
    EXPECT_EQ(Ordered(FieldInfoStatement(L"KhachHang"), kCatalogueOrder),
              L"Select * From LstFld Where [InTable]='KhachHang' Order By [code]");
}

TEST(Catalogue, TableNameIsPutInAsGiven) {
    EXPECT_EQ(FieldListStatement(L"a'b"),
              L"Select [Name],[Desc] From LstFld Where [InTable]='a'b'");
    EXPECT_EQ(FieldInfoStatement(L""), L"Select * From LstFld Where [InTable]=''");
}

TEST(Catalogue, OperatorsOfAType) {
    EXPECT_EQ(OperatorListStatement(10),
              L"Select Name,Des from Operator Where Type=10  Order By Code");
    EXPECT_EQ(OperatorListStatement(-1),
              L"Select Name,Des from Operator Where Type=-1  Order By Code");
}

TEST(LookUp, TableNameBecomesASearchOverItsNames) {
    EXPECT_EQ(LookUpStatement(L"TinhThanh", L"Hà", kServer),
              L"Select * From TinhThanh Where Name   Like N'Hà%'");
    EXPECT_EQ(LookUpStatement(L"TinhThanh", L"", kJet),
              L"Select * From TinhThanh Where Name   Like '%'");
}

TEST(LookUp, SelectGetsThePattern) {
    EXPECT_EQ(LookUpStatement(L"Select A,B From T Where B", L"x", kJet),
              L"Select A,B From T Where B  Like 'x%'");
    EXPECT_EQ(LookUpStatement(L"sElEcT A,B From T Where B", L"x", kServer),
              L"sElEcT A,B From T Where B  Like N'x%'");
}

TEST(LookUp, QuotesOfTheValueAreDoubled) {
    EXPECT_EQ(LookUpStatement(L"T", L"O'B\"", kJet),
              L"Select * From T Where Name   Like 'O''B\"\"%'");
}
