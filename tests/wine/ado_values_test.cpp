// SPDX-License-Identifier: MIT
// Values of every type, both ways, on both engines.
#include "wine/ado_fixture.h"

#include <cmath>

namespace {

using namespace vndesk::test;

class AdoValues : public EachEngineTest {
protected:
    DataTypeEnum TypeAt(_Recordset* recordset, const _variant_t& index) {
        DataTypeEnum type = adEmpty;
        EXPECT_SUCCEEDED(FieldAt(recordset, index)->get_Type(&type));
        return type;
    }
    long SizeAt(_Recordset* recordset, const _variant_t& index) {
        ADO_LONGPTR size = -77;
        EXPECT_SUCCEEDED(FieldAt(recordset, index)->get_DefinedSize(&size));
        return static_cast<long>(size);
    }
    std::wstring BlobType() const { return OnServer() ? L"bytea" : L"blob"; }
    std::wstring Blob(const std::wstring& hex) const {
        return OnServer() ? L"'\\x" + hex + L"'" : L"x'" + hex + L"'";
    }
    double Date(const wchar_t* text) const {
        DATE date = 0;
        EXPECT_SUCCEEDED(VarDateFromStr(const_cast<wchar_t*>(text), 0x409, 0, &date));
        return date;
    }
};

INSTANTIATE_EACH_ENGINE(AdoValues);

TEST_P(AdoValues, EveryTypeAndItsNull) {
    Execute(Db(),
            L"Create Table v(i integer, s smallint, b bigint, d double precision, n numeric(10,2), "
            L"t varchar(20), m text, dt date, ts timestamp, ok boolean, raw " +
                BlobType() + L")");
    Execute(Db(), L"Insert Into v Values(-2147483648, 7, 5000000000, 0.1, 12.25, N'Người', N'dài', "
                  L"#12/31/2020#, #1/2/2021 3:04:05 PM#, true, " +
                      Blob(L"00ff41") + L")");
    Execute(Db(), L"Insert Into v(i) Values(null)");
    const auto rs = OpenRecordset(Db(), L"Select * From v");

    EXPECT_EQ(_variant_t(-2147483647l - 1), ValueAt(rs.Get(), L"i"));
    EXPECT_EQ(_variant_t(7l), ValueAt(rs.Get(), L"s"));
    EXPECT_EQ(_variant_t(5000000000.0), ValueAt(rs.Get(), L"b"));
    EXPECT_EQ(_variant_t(0.1), ValueAt(rs.Get(), L"d"));
    EXPECT_EQ(_variant_t(12.25), ValueAt(rs.Get(), L"n"));
    EXPECT_EQ(L"Người", TextAt(rs.Get(), L"t"));
    EXPECT_EQ(L"dài", TextAt(rs.Get(), L"m"));
    EXPECT_EQ(_variant_t(Date(L"12/31/2020"), VT_DATE), ValueAt(rs.Get(), L"dt"));
    const _variant_t stamp = ValueAt(rs.Get(), L"ts");
    EXPECT_EQ(VT_DATE, stamp.vt);
    EXPECT_NEAR(Date(L"1/2/2021 3:04:05 PM"), stamp.date, 1e-9);
    EXPECT_EQ(_variant_t(true), ValueAt(rs.Get(), L"ok"));
    const _variant_t raw = ValueAt(rs.Get(), L"raw");
    ASSERT_EQ(VT_ARRAY | VT_UI1, raw.vt);
    ASSERT_EQ(3u, raw.parray->rgsabound[0].cElements);
    EXPECT_EQ(0, memcmp(raw.parray->pvData, "\x00\xff\x41", 3));

    EXPECT_EQ(adInteger, TypeAt(rs.Get(), L"i"));
    EXPECT_EQ(adInteger, TypeAt(rs.Get(), L"s"));
    EXPECT_EQ(adBigInt, TypeAt(rs.Get(), L"b"));
    EXPECT_EQ(adDouble, TypeAt(rs.Get(), L"d"));
    EXPECT_EQ(adDouble, TypeAt(rs.Get(), L"n"));
    EXPECT_EQ(adVarWChar, TypeAt(rs.Get(), L"t"));
    EXPECT_EQ(adLongVarWChar, TypeAt(rs.Get(), L"m"));
    EXPECT_EQ(adDate, TypeAt(rs.Get(), L"dt"));
    EXPECT_EQ(adDate, TypeAt(rs.Get(), L"ts"));
    EXPECT_EQ(adBoolean, TypeAt(rs.Get(), L"ok"));
    EXPECT_EQ(adLongVarBinary, TypeAt(rs.Get(), L"raw"));
    EXPECT_EQ(4, SizeAt(rs.Get(), L"i"));
    EXPECT_EQ(8, SizeAt(rs.Get(), L"d"));
    EXPECT_EQ(20, SizeAt(rs.Get(), L"t"));
    EXPECT_EQ(8, SizeAt(rs.Get(), L"dt"));
    EXPECT_EQ(2, SizeAt(rs.Get(), L"ok"));

    ASSERT_SUCCEEDED(rs->MoveNext());
    for (long i = 0; i < 11; ++i)
        EXPECT_EQ(VT_NULL, ValueAt(rs.Get(), i).vt) << i;
}

TEST_P(AdoValues, ComputedColumns) {
    const auto rs =
        OpenRecordset(Db(), L"Select 1+1 As a, 'x' As b, 1.5 As c, null As d, Count(*) As e");
    EXPECT_EQ(_variant_t(2l), ValueAt(rs.Get(), L"a"));
    EXPECT_EQ(L"x", TextAt(rs.Get(), L"b"));
    EXPECT_EQ(_variant_t(1.5), ValueAt(rs.Get(), L"c"));
    EXPECT_EQ(VT_NULL, ValueAt(rs.Get(), L"d").vt);
    EXPECT_EQ(_variant_t(1l), ValueAt(rs.Get(), L"e"));
}

TEST_P(AdoValues, VietnameseTextBothWays) {
    const std::wstring text = L"Nghiêng Ngả Ậ ữ Ỹ đ Đ \x201Cquotes\x201D \U0001F600";
    Execute(Db(), L"Create Table [Bảng](Ten varchar(100))");
    Execute(Db(), L"Insert Into [Bảng](Ten) Values(N'" + text + L"')");
    const auto rs = OpenRecordset(
        Db(), L"Select Ten, Ten As [tên đầy đủ] From [Bảng] Where Ten=N'" + text + L"'");
    ASSERT_EQ(1, Count(rs.Get()));
    EXPECT_EQ(text, TextAt(rs.Get(), L"ten"));
    EXPECT_EQ(text, TextAt(rs.Get(), L"Tên đầy đủ")) << "names of fields in any case";
    BSTR name = nullptr;
    ASSERT_SUCCEEDED(FieldAt(rs.Get(), 1l)->get_Name(&name));
    EXPECT_STREQ(L"tên đầy đủ", name);
    SysFreeString(name);
}

TEST_P(AdoValues, QuotesInsideLiterals) {
    Execute(Db(), L"Create Table q(t varchar(50))");
    Execute(Db(), L"Insert Into q Values(N'O''Brien \"x\" [y] #1/2/2020# N''z'' -- no')");
    EXPECT_EQ(L"O'Brien \"x\" [y] #1/2/2020# N'z' -- no", TextAt(Execute(Db(), L"q").Get(), 0l));
    EXPECT_EQ(_variant_t(1l), Scalar(Db(), L"Select Count(*) From q Where t Like N'O''B%'"));
}

TEST_P(AdoValues, TimesAndFractions) {
    Execute(Db(), L"Create Table x(t time, ts timestamp)");
    Execute(Db(), L"Insert Into x Values('10:30:00', '2020-02-29 18:00:00.75')");
    const auto rs = OpenRecordset(Db(), L"x");
    EXPECT_EQ(_variant_t(0.4375, VT_DATE), ValueAt(rs.Get(), L"t"));
    EXPECT_EQ(adDBTime, TypeAt(rs.Get(), L"t"));
    EXPECT_EQ(_variant_t(43890.75, VT_DATE), ValueAt(rs.Get(), L"ts"));
}

TEST_P(AdoValues, EmptyTextIsNoNull) {
    const auto rs = OpenRecordset(Db(), L"Select '' As a");
    EXPECT_EQ(L"", TextAt(rs.Get(), 0l));
}

TEST_P(AdoValues, LongTextBetweenShortRows) {
    std::wstring longText;
    for (int i = 0; i < 20000; ++i)
        longText += L"chữ ";
    Execute(Db(), L"Create Table m(i integer, t text)");
    Execute(Db(), L"Begin");
    for (int i = 0; i < 250; ++i)
        Execute(Db(), L"Insert Into m Values(" + std::to_wstring(i) + L",'ngắn')");
    Execute(Db(), L"Update m Set t='" + longText + L"' Where i=130");
    Execute(Db(), L"Commit");
    const auto rs = OpenRecordset(Db(), L"Select * From m Order By i");
    ASSERT_EQ(250, Count(rs.Get()));
    for (long i = 0; i < 250; ++i, rs->MoveNext()) {
        ASSERT_EQ(_variant_t(i), ValueAt(rs.Get(), 0l));
        ASSERT_EQ(i == 130 ? longText : L"ngắn", TextAt(rs.Get(), 1l)) << i;
    }
}

TEST_P(AdoValues, LongBytes) {
    Execute(Db(), L"Create Table b(raw " + BlobType() + L")");
    std::wstring hex;
    for (int i = 0; i < 50000; ++i)
        hex += L"0123456789"[i % 10], hex += L"ab"[i % 2];
    Execute(Db(), L"Insert Into b Values(" + Blob(hex) + L")");
    const auto rs = OpenRecordset(Db(), L"Select raw From b");
    const _variant_t raw = ValueAt(rs.Get(), 0l);
    ASSERT_EQ(VT_ARRAY | VT_UI1, raw.vt);
    ASSERT_EQ(50000u, raw.parray->rgsabound[0].cElements);
    const auto* bytes = static_cast<const BYTE*>(raw.parray->pvData);
    for (int i = 0; i < 50000; ++i)
        ASSERT_EQ(i % 10 * 16 + (i % 2 ? 11 : 10), bytes[i]) << i;
}

TEST_P(AdoValues, EdgesOfNumbers) {
    const auto rs =
        OpenRecordset(Db(), L"Select 2147483647 As a, 2147483648 As b, -2147483649 As c");
    EXPECT_EQ(_variant_t(2147483647l), ValueAt(rs.Get(), 0l));
    EXPECT_EQ(_variant_t(2147483648.0), ValueAt(rs.Get(), 1l));
    EXPECT_EQ(_variant_t(-2147483649.0), ValueAt(rs.Get(), 2l));
}

// SQLite keeps what it is given, whatever the column was declared as.
class AdoLooseValues : public EmbeddedTest {};

TEST_F(AdoLooseValues, WhatDoesNotFitItsColumnStaysReadable) {
    Execute(Db(), L"Create Table t(i integer, d double, dt date, ok boolean)");
    Execute(Db(), L"Insert Into t Values('abc', 'x1', 'soon', 'perhaps')");
    Execute(Db(), L"Insert Into t Values(1.5, 2, '2020-02-29 18:00', 2)");
    const auto rs = OpenRecordset(Db(), L"t");
    EXPECT_EQ(L"abc", TextAt(rs.Get(), L"i"));
    EXPECT_EQ(L"x1", TextAt(rs.Get(), L"d"));
    EXPECT_EQ(L"soon", TextAt(rs.Get(), L"dt"));
    EXPECT_EQ(L"perhaps", TextAt(rs.Get(), L"ok"));
    ASSERT_SUCCEEDED(rs->MoveNext());
    EXPECT_EQ(_variant_t(1.5), ValueAt(rs.Get(), L"i"));
    EXPECT_EQ(_variant_t(2.0), ValueAt(rs.Get(), L"d"));
    EXPECT_EQ(_variant_t(43890.75, VT_DATE), ValueAt(rs.Get(), L"dt"));
    EXPECT_EQ(_variant_t(true), ValueAt(rs.Get(), L"ok"));
}

TEST_F(AdoLooseValues, TypesOfJetByName) {
    Execute(Db(),
            L"Create Table t(a currency, b yesno, c long, d byte, e memo, f datetime, g counter)");
    Execute(Db(), L"Insert Into t Values(12.5, 1, 70000, 255, 'm', '2020-01-02', 3)");
    const auto rs = OpenRecordset(Db(), L"t");
    EXPECT_EQ(_variant_t(12.5), ValueAt(rs.Get(), L"a"));
    EXPECT_EQ(_variant_t(true), ValueAt(rs.Get(), L"b"));
    EXPECT_EQ(_variant_t(70000l), ValueAt(rs.Get(), L"c"));
    EXPECT_EQ(_variant_t(255l), ValueAt(rs.Get(), L"d"));
    EXPECT_EQ(L"m", TextAt(rs.Get(), L"e"));
    EXPECT_EQ(_variant_t(43832.0, VT_DATE), ValueAt(rs.Get(), L"f"));
    EXPECT_EQ(_variant_t(3l), ValueAt(rs.Get(), L"g"));
}

} // namespace
