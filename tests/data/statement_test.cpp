// SPDX-License-Identifier: MIT
// The statement text that the library builds, run on real databases and read back past it.
#include "data/data_fixture.h"

#include "data/text/statements.h"
#include "find/text/format_value.h"
#include "support/check_hr.h"

namespace vndesk::test {
namespace {

class StatementTest : public DataTest {
protected:
    // A setting stored through a literal of the library, read back by plain ODBC.
    std::wstring Stored(const std::wstring& literal) {
        EXPECT_SUCCEEDED(Execute(L"Delete From Options Where KeyName='Thu'"));
        EXPECT_SUCCEEDED(Execute(
            L"Insert Into Options([Section],KeyName,KeyValue) Values('S','Thu'," + literal + L")"));
        return Sample().ScalarText(L"SELECT KeyValue FROM Options WHERE KeyName = 'Thu'");
    }
    std::wstring Count(const std::wstring& condition) {
        return Value(L"Select Count(*) From KhachHang Where " + condition);
    }
    std::wstring CountPlain(const std::wstring& condition) {
        return Sample().ScalarText(L"SELECT COUNT(*) FROM KhachHang WHERE " + condition);
    }
};
ON_BOTH_ENGINES(StatementTest);

TEST_P(StatementTest, TextLiteralsAreStoredAsTheyAre) {
    for (const wchar_t* text :
         {L"O'Brien", L"''", L"'; Delete From Options; --", L"Người sử dụng", L"N'abc'", L"[User]",
          L"#1/2/2005#", L"a\\b", L"50%_", L"?", L"-- không", L"/* không */", L""})
        EXPECT_EQ(text, Stored(Literal(text, L"S", Kind()))) << ToUtf8(text);
    EXPECT_EQ(L"8", Value(L"Select Count(*) From Options Where [Section]<>'S'"));
}

TEST_P(StatementTest, DoubleQuotesAreStoredTwice) {
    EXPECT_EQ(L"12\"\" x O'Brien", Stored(Literal(L"12\" x O'Brien", L"", Kind())));
}

TEST_P(StatementTest, TextLiteralsFindWhatTheyStored) {
    Stored(Literal(L"O'Brien", L"S", Kind()));
    for (const wchar_t* text : {L"O'Brien", L"o'BRIEN"})
        EXPECT_EQ(L"Thu", Value(L"Select KeyName From Options Where KeyValue=" +
                                Literal(text, L"S", Kind())))
            << ToUtf8(text);
}

TEST_P(StatementTest, PatternLiteralsFindTheirRows) {
    EXPECT_EQ(CountPlain(L"Name LIKE 'Công ty%'"),
              Count(L"[Name] Like " + Literal(L"Công ty", L"LR", Kind())));
    EXPECT_NE(L"0", Count(L"[Name] Like " + Literal(L"Công ty", L"LR", Kind())));
    for (const wchar_t* kind : {L"LL", L"LA"}) {
        EXPECT_EQ(CountPlain(L"Name LIKE '%Lan%'"),
                  Count(L"[Name] Like " + Literal(L"Lan", kind, Kind())));
        EXPECT_NE(L"0", Count(L"[Name] Like " + Literal(L"Lan", kind, Kind())));
    }
    EXPECT_EQ(L"1", Count(L"[Name] Like " + Literal(L"O'Brien", L"LA", Kind())));
}

TEST_P(StatementTest, NumberLiteralsFindTheirRows) {
    EXPECT_EQ(L"1", Count(L"CongNo=" + Literal(L"125500000", L"N", Kind())));
    EXPECT_NE(L"0", Count(L"CongNo>" + Literal(L"0.5", L"N", Kind())));
    EXPECT_EQ(CountPlain(L"CongNo = 0"), Count(L"CongNo=" + Literal(L"12abc", L"N", Kind())));
    EXPECT_EQ(L"1", Count(L"SoDonHang=" + FieldValue(L"42", kFieldNumber, Kind())));
}

TEST_P(StatementTest, DateLiteralsFindTheirRows) {
    const wchar_t* date = Kind() == DatabaseKind::Jet ? L"01/15/2004" : L"2004-01-15";
    EXPECT_EQ(L"KH001",
              Value(L"Select MaKH From KhachHang Where NgayLap=" + Literal(date, L"D", Kind())));
    EXPECT_EQ(CountPlain(L"NgayLap > '2004-02-03'"),
              Count(L"NgayLap>" + FormatValue(L"3/2/2004", kFieldDate, L">", Kind())));
    EXPECT_EQ(L"KH001", Value(L"Select MaKH From KhachHang Where NgayLap=" +
                              FieldValue(L"01/15/2004", kFieldDate, Kind())));
}

TEST_P(StatementTest, SearchValuesFindTheirRows) {
    EXPECT_EQ(CountPlain(L"MaTinh IN ('HN','HP')"),
              Count(L"MaTinh In " + FormatValue(L"HN,HP", kFieldText, L"IN", Kind())));
    EXPECT_EQ(CountPlain(L"Name LIKE 'Công ty%'"),
              Count(L"[Name] Like " + FormatValue(L"Công ty", kFieldText, L"LIKE", Kind())));
    EXPECT_EQ(CountPlain(L"SoDonHang IN (42,17)"),
              Count(L"SoDonHang In " + FormatValue(L"42,17", 13, L"IN", Kind())));
}

TEST_P(StatementTest, QuoteWithoutEscapingFailsOnAnApostrophe) {
    EXPECT_EQ(L"3", Value(L"Select Code From [User] Where [Name]=" + SqlQuote(L"admin", Kind())));
    Recordset rows;
    long error = 0;
    const PlainBox box = WhileClosingBox([&] {
        error = OpenRecordset(
            Db(), rows, L"Select Code From [User] Where [Name]=" + SqlQuote(L"O'Brien", Kind()));
    });
    EXPECT_NE(0, error);
    EXPECT_NE(L"", box.text);
}

// --- patched statements ---

TEST_P(StatementTest, AddedInsertColumnIsStoredWithOneTrailingBlank) {
    const std::wstring statement =
        AddInsertColumn(L"Insert Into Options([Section],KeyName,KeyValue) Values('S','K','v')",
                        L"Description", L"O'Brien", Kind());
    EXPECT_SUCCEEDED(Execute(statement)) << ToUtf8(statement);
    EXPECT_EQ(L"O'Brien ",
              Sample().ScalarText(L"SELECT Description FROM Options WHERE KeyName = 'K'"));
    EXPECT_EQ(L"v", Sample().ScalarText(L"SELECT KeyValue FROM Options WHERE KeyName = 'K'"));
}

TEST_P(StatementTest, AddedUpdateAssignmentIsStoredWithOneTrailingBlank) {
    const std::wstring statement = AddUpdateAssignment(
        L"Update Groups Set [Name]='Kho hàng' Where Code=5", L"[Des]", L"Bộ phận \"kho\"", Kind());
    EXPECT_SUCCEEDED(Execute(statement)) << ToUtf8(statement);
    EXPECT_EQ(L"Kho hàng", Sample().ScalarText(L"SELECT Name FROM Groups WHERE Code = 5"));
    EXPECT_EQ(L"Bộ phận \"\"kho\"\" ",
              Sample().ScalarText(L"SELECT Des FROM Groups WHERE Code = 5"));
}

TEST_P(StatementTest, LastValueStatementRunsAsWritten) {
    EXPECT_EQ(L"Select  [Code]  from [Groups] Order by [Code]",
              LastValueStatement(L"Groups", L"Code"));
    EXPECT_EQ(L"1", Value(LastValueStatement(L"Groups", L"Code")));
}

// --- what the statements rely on in the tables ---

TEST_P(StatementTest, DeletingGroupsKeepsTheBuiltInOnes) {
    EXPECT_SUCCEEDED(
        Execute(L"Delete From Groups Where Code In (1,2,8,5) and (Code Not In (1,8))"));
    const auto left = Sample().Query(L"SELECT Code FROM Groups ORDER BY Code");
    ASSERT_EQ(3u, left.size());
    EXPECT_EQ(L"1", left[0][0]);
    EXPECT_EQ(L"3", left[1][0]);
    EXPECT_EQ(L"8", left[2][0]);
    EXPECT_SUCCEEDED(Execute(L"Delete From Groups Where Code In (8) and (Code Not In (1,8))"));
    EXPECT_EQ(L"3", Sample().ScalarText(L"SELECT COUNT(*) FROM Groups"));
}

TEST_P(StatementTest, RightsUpdateFailsAsAWholeWithoutAColumnForEachBar) {
    Execute(L"Insert Into Menu([Desc]) Values('Trợ giúp')"); // a fourth bar, no fourth column
    EXPECT_FAILED(Execute(L"Update Groups Set P1=1,P2=2,P3=3,P4=4 Where Code=2"));
    const auto rights = Sample().Query(L"SELECT P1, P2, P3 FROM Groups WHERE Code = 2").at(0);
    EXPECT_EQ((OdbcSession::Row{L"5", L"48", L"31"}), rights);
    EXPECT_SUCCEEDED(Execute(L"Update Groups Set P1=1,P2=2,P3=3 Where Code=2"));
    EXPECT_EQ(L"2", Sample().ScalarText(L"SELECT P2 FROM Groups WHERE Code = 2"));
}

TEST_P(StatementTest, OptionsThatDifferOnlyInDescriptionAreOneSetting) {
    for (const wchar_t* description : {L"'một'", L"'hai'"})
        EXPECT_SUCCEEDED(Execute(std::wstring(L"Insert Into Options([Section],KeyName,KeyValue,") +
                                 L"Description) Values('S','K','v'," + description + L")"));
    EXPECT_SUCCEEDED(
        Execute(AddUpdateAssignment(L"Update Options Set KeyValue='moi'  Where [Section]='S' And "
                                    L"KeyName='K'",
                                    L"Description", L"chung", Kind())));
    const auto rows =
        Sample().Query(L"SELECT KeyValue, Description FROM Options WHERE KeyName = 'K'");
    EXPECT_EQ((std::vector<OdbcSession::Row>(2, {L"moi", L"chung "})), rows);
}

} // namespace
} // namespace vndesk::test
