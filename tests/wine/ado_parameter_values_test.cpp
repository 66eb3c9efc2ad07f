// SPDX-License-Identifier: MIT
// Values that are bound: of every type, against columns of every type, found as literals find them.
#include "wine/ado_commands.h"

#include <cmath>
#include <limits>

#include "support/env.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

class AdoBound : public EachEngineTest {
protected:
    std::wstring BlobType() const { return OnServer() ? L"bytea" : L"blob"; }
    static _variant_t Date(const wchar_t* text) {
        DATE date = 0;
        EXPECT_SUCCEEDED(VarDateFromStr(const_cast<wchar_t*>(text), 0x409, 0, &date));
        return _variant_t(date, VT_DATE);
    }
    static _variant_t Amount(const wchar_t* text, VARTYPE type) {
        const _variant_t given(text);
        _variant_t amount;
        EXPECT_SUCCEEDED(
            VariantChangeTypeEx(&amount, const_cast<_variant_t*>(&given), 0x409, 0, type));
        return amount;
    }
    void CreateTable() {
        if (OnServer()) {
            Execute(Db(), L"Create Extension If Not Exists citext With Schema public");
            Execute(Db(),
                    L"Select set_config('search_path', current_schema() || ', public', false)");
        }
        Execute(Db(), L"Create Table v(i integer, s smallint, b bigint, d double precision, "
                      L"n numeric(20,4), t varchar(200), m text, dt date, ts timestamp, tm time, "
                      L"ok boolean, raw " +
                          BlobType() + L", name " +
                          (OnServer() ? L"public.citext)" : L"text collate nocase)"));
    }
    // What the engine holds, as text.
    std::wstring Held(const wchar_t* column) const {
        return TextAt(Execute(Db(), std::wstring(L"Select Cast(") + column +
                                        L" As varchar(200)) From v Where Not " + column +
                                        L" Is Null")
                          .Get(),
                      0l);
    }
    long Found(const std::wstring& condition, const Given& given) const {
        return Asked(Db(), L"Select Count(*) From v Where " + condition, {given});
    }
    void Store(const wchar_t* column, const Given& given) const {
        Execute(Db(), L"Delete From v");
        EXPECT_EQ(
            1, Written(Db(), std::wstring(L"Insert Into v(") + column + L") Values(?)", {given}));
    }
};
INSTANTIATE_EACH_ENGINE(AdoBound);

TEST_P(AdoBound, EveryTypeIsStoredAndFound) {
    CreateTable();
    struct Case {
        const wchar_t* column;
        Given given;
        const wchar_t* held;
    };
    const Case cases[] = {
        {L"i", {adInteger, -2147483647l - 1}, L"-2147483648"},
        {L"i", {adTinyInt, 5l}, L"5"},
        {L"i", {adUnsignedTinyInt, 255l}, L"255"},
        {L"i", {adUnsignedSmallInt, 65535l}, L"65535"},
        {L"i", {adVariant, 77l}, L"77"},
        {L"i", {adDouble, 12.0}, L"12"},
        {L"i", {adBoolean, true}, L"1"},
        {L"s", {adSmallInt, L"-32768"}, L"-32768"},
        {L"b", {adBigInt, 5000000000.0}, L"5000000000"},
        {L"b", {adUnsignedInt, 4294967295.0}, L"4294967295"},
        {L"b", {adUnsignedBigInt, 7l}, L"7"},
        {L"b", {adInteger, 7l}, L"7"},
        {L"b", {adBigInt, _variant_t(9007199254740993ll)}, L"9007199254740993"},
        {L"b",
         {adBigInt, _variant_t(std::numeric_limits<long long>::min())},
         L"-9223372036854775808"},
        {L"d", {adInteger, 7l}, nullptr},
        {L"d", {adDouble, 0.1 + 0.2}, nullptr},
        {L"d", {adSingle, 0.5}, L"0.5"},
        {L"d", {adNumeric, Amount(L"-1.5", VT_DECIMAL)}, L"-1.5"},
        {L"d", {adDouble, -1e300}, nullptr},
        {L"n", {adCurrency, Amount(L"-0.0625", VT_CY)}, L"-0.0625"},
        {L"n", {adDecimal, Amount(L"12.5", VT_DECIMAL)}, nullptr},
        {L"t", {adVarWChar, L"Nghiêng Ngả Ậ ữ Ỹ đ Đ"}, L"Nghiêng Ngả Ậ ữ Ỹ đ Đ"},
        {L"t", {adVarChar, L"Người"}, L"Người"},
        {L"t", {adBSTR, L"O'Brien's \"x\" ? {d} \\ [y]"}, L"O'Brien's \"x\" ? {d} \\ [y]"},
        {L"t", {adWChar, L"a\\'; Drop Table v; --"}, L"a\\'; Drop Table v; --"},
        {L"t", {adChar, L" x "}, L" x "},
        {L"t", {adVarWChar, L""}, L""},
        {L"t", {adVarWChar, L"\U0001F600 x"}, L"\U0001F600 x"},
        {L"t", {adVarWChar, 12l, 5}, L"12"},
        {L"m", {adLongVarWChar, L"dòng\r\nmới"}, L"dòng\r\nmới"},
        {L"m", {adLongVarChar, L"x"}, L"x"},
        {L"name", {adVarWChar, L"Đặng"}, L"Đặng"},
        {L"dt", {adDate, Date(L"12/31/2020")}, L"2020-12-31"},
        {L"dt", {adDBDate, Date(L"12/31/2020 3:04 PM")}, L"2020-12-31"},
        {L"dt", {adDate, L"2020-02-29"}, L"2020-02-29"},
        {L"dt", {adDate, Date(L"1/1/0100")}, L"0100-01-01"},
        {L"ts", {adDate, Date(L"1/2/2021 3:04:05 PM")}, L"2021-01-02 15:04:05"},
        {L"ts", {adDBTimeStamp, Date(L"1/2/2021")}, L"2021-01-02 00:00:00"},
        {L"ts", {adDate, L"2021-01-02 15:04:05.75"}, L"2021-01-02 15:04:05"},
        {L"tm", {adDBTime, Date(L"1/2/2021 3:04:05 PM")}, L"15:04:05"},
        {L"tm", {adDate, _variant_t(0.4375, VT_DATE)}, L"10:30:00"},
    };
    for (const auto& [column, given, held] : cases) {
        SCOPED_TRACE(testing::Message() << ToUtf8(column) << " as " << given.type << " = "
                                        << (held ? ToUtf8(held) : "..."));
        Store(column, given);
        if (held) {
            EXPECT_EQ(held, Held(column));
        }
        EXPECT_EQ(1, Found(std::wstring(column) + L"=?", given));
        EXPECT_EQ(1, Found(L"?=" + std::wstring(column), given));
        EXPECT_EQ(0, Found(std::wstring(column) + L"<>?", given));
        EXPECT_EQ(1, Found(std::wstring(column) + L" In (?)", given));
    }
}

TEST_P(AdoBound, NumbersAreNotRounded) {
    CreateTable();
    for (const double number : {0.1 + 0.2, 1.0 / 3, 5e-324, 1.7976931348623157e308, 12345678.9}) {
        Store(L"d", {adDouble, number});
        EXPECT_EQ(1, Found(L"d=?", {adDouble, number})) << number;
        EXPECT_EQ(0, Found(L"d=?", {adDouble, std::nextafter(number, 0.0)})) << number;
    }
    Store(L"i", {adInteger, 5l});
    EXPECT_EQ(1, Found(L"i<?", {adBigInt, 5000000000.0})) << "larger than the column's type";
    EXPECT_EQ(1, Found(L"i<?", {adDouble, 5.5}));
    EXPECT_EQ(0, Found(L"i=?", {adDouble, 5.5}));
    EXPECT_EQ(1, Found(L"i+?=8", {adInteger, 3l}));
    EXPECT_EQ(1, Found(L"i-?=8", {adInteger, -3l})) << "a minus before a minus is no comment";
    if (!OnServer())
        return; // SQLite has no such numbers
    _variant_t digits;
    V_DECIMAL(&digits).Lo64 = 12345678901234567891u;
    V_DECIMAL(&digits).scale = 4;
    V_VT(&digits) = VT_DECIMAL;
    Store(L"n", {adNumeric, digits});
    EXPECT_EQ(L"1234567890123456.7891", Held(L"n"));
    EXPECT_EQ(1, Found(L"n=?", {adNumeric, digits}));
    _variant_t least;
    V_CY(&least).int64 = -9223372036854775807;
    V_VT(&least) = VT_CY;
    Store(L"n", {adCurrency, least});
    EXPECT_EQ(L"-922337203685477.5807", Held(L"n"));
}

TEST_P(AdoBound, Truth) {
    CreateTable();
    for (const bool truth : {true, false}) {
        Store(L"ok", {adBoolean, truth});
        EXPECT_EQ(_variant_t(truth), Scalar(Db(), L"Select ok From v"));
        EXPECT_EQ(1, Found(L"ok=?", {adBoolean, truth}));
        EXPECT_EQ(0, Found(L"ok=?", {adBoolean, !truth}));
        EXPECT_EQ(1, Found(truth ? L"ok And ok=?" : L"Not ok And ok=?", {adBoolean, truth}))
            << "as the engine's own";
    }
}

TEST_P(AdoBound, Bytes) {
    CreateTable();
    std::string bytes("\x00\xFF'\\A\x80", 6);
    for (const auto type : {adVarBinary, adBinary, adLongVarBinary, adVariant}) {
        Store(L"raw", {type, BytesOf(bytes)});
        const _variant_t read = Scalar(Db(), L"Select raw From v");
        ASSERT_EQ(VT_ARRAY | VT_UI1, read.vt);
        ASSERT_EQ(bytes.size(), V_ARRAY(&read)->rgsabound[0].cElements);
        EXPECT_EQ(0, memcmp(V_ARRAY(&read)->pvData, bytes.data(), bytes.size()));
        EXPECT_EQ(1, Found(L"raw=?", {type, BytesOf(bytes)}));
    }
    Store(L"raw", {adVarBinary, BytesOf("")});
    EXPECT_EQ(1, Found(L"raw=?", {adVarBinary, BytesOf("")}));
}

TEST_P(AdoBound, NullOfEveryType) {
    CreateTable();
    const std::pair<const wchar_t*, DataTypeEnum> columns[] = {
        {L"i", adInteger},      {L"s", adSmallInt}, {L"b", adBigInt},
        {L"d", adDouble},       {L"n", adNumeric},  {L"t", adVarWChar},
        {L"m", adLongVarWChar}, {L"dt", adDate},    {L"ts", adDBTimeStamp},
        {L"tm", adDBTime},      {L"ok", adBoolean}, {L"raw", adLongVarBinary},
        {L"name", adVarChar},   {L"n", adCurrency}, {L"dt", adDBDate},
        {L"name", adVariant}};
    for (const auto& [column, type] : columns)
        for (const _variant_t& none : {NullValue(), _variant_t(), Missing()}) {
            SCOPED_TRACE(testing::Message() << ToUtf8(column) << " as " << type);
            Store(column, {type, none});
            EXPECT_EQ(VT_NULL, Scalar(Db(), std::wstring(L"Select ") + column + L" From v").vt);
            EXPECT_EQ(0, Found(std::wstring(column) + L"=?", {type, none}));
            EXPECT_EQ(
                1, Written(Db(), std::wstring(L"Update v Set ") + column + L"=?", {{type, none}}));
        }
}

TEST_P(AdoBound, TextIsFoundAsLiteralsFindIt) {
    CreateTable();
    Store(L"name", {adVarWChar, L"Nguyễn Admin"});
    for (const wchar_t* condition :
         {L"name=", L"[Name]=", L"name Like ", L"Lower(name)=", L"Coalesce(name,'x')="})
        for (const wchar_t* text :
             {L"nguyễn ADMIN", L"Nguyễn Admin", L"nguyễn admin", L"NGUYỄN x"}) {
            const _variant_t literal = Scalar(Db(), std::wstring(L"Select Count(*) From v Where ") +
                                                        condition + L"'" + text + L"'");
            const _variant_t national =
                Scalar(Db(), std::wstring(L"Select Count(*) From v Where ") + condition + L"N'" +
                                 text + L"'");
            EXPECT_EQ(literal, national);
            EXPECT_EQ(static_cast<long>(literal),
                      Found(std::wstring(condition) + L"?", {adVarWChar, text}))
                << ToUtf8(condition) << ToUtf8(text);
        }
    EXPECT_EQ(1, Found(L"name=?", {adVarWChar, L"nguyễn ADMIN"})) << "letter case does not count";
    EXPECT_EQ(1, Found(L"name Like ?", {adVarWChar, L"%aDMin"}));
    EXPECT_EQ(1, Written(Db(), L"Update v Set name=? Where name=?",
                         {{adVarWChar, L"x"}, {adVarWChar, L"nguyễn ADMIN"}}));
}

TEST_P(AdoBound, LongTexts) {
    CreateTable();
    for (const size_t length : {size_t(4000), size_t(4001), size_t(100000)}) {
        std::wstring text(length, L'ế');
        text.back() = L'\'';
        for (const auto type : {adLongVarWChar, adVarWChar, adBSTR}) {
            Store(L"m", {type, TextValue(text)});
            EXPECT_EQ(text, TextAt(Execute(Db(), L"Select m From v").Get(), 0l)) << length;
            EXPECT_EQ(1, Found(L"m=?", {type, TextValue(text)}));
        }
    }
}

TEST_P(AdoBound, NothingIsCutSilently) {
    CreateTable();
    ExpectError(kWrongType, L"wrong type", [] {
        const auto parameter = NewParameter(adVarWChar, L"x", 5);
        return parameter->put_Value(_variant_t(L"sáu chữ"));
    }());
    const auto parameter = NewParameter(adVarWChar, L"đủ dài", 10);
    const auto command = NewCommand(Db(), L"Insert Into v(t) Values(?)");
    ASSERT_SUCCEEDED(TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Size(3));
    ExpectError(kWrongType, L"wrong type", TryRun(command.Get()));
    ASSERT_SUCCEEDED(parameter->put_Size(6));
    EXPECT_EQ(1, Changed(command.Get()));
    ASSERT_SUCCEEDED(parameter->put_Size(-1));
    EXPECT_EQ(1, Changed(command.Get())) << "no limit";
    ExpectError(kWrongType, L"wrong type",
                parameter->put_Value(TextValue(std::wstring(L"a\0b", 3))));
    ExpectError(kWrongType, L"wrong type",
                TryRun(command.Get(), TextValue(std::wstring(L"\0", 1))));
    EXPECT_EQ(_variant_t(2l), Scalar(Db(), L"Select Count(*) From v"));
    ExpectError(kWrongType, L"wrong type", [] {
        return NewParameter(adVarBinary, BytesOf("ab"), 2)->put_Value(BytesOf("abc"));
    }());
}

TEST_P(AdoBound, HalfCharactersBecomeReplacements) {
    CreateTable();
    Store(L"t", {adVarWChar, TextValue(L"a\xD83D'b\xDE00")});
    EXPECT_EQ(L"a\xFFFD'b\xFFFD", Held(L"t"));
}

TEST_P(AdoBound, WhatIsNotOfTheTypeIsRefused) {
    const double inf = std::numeric_limits<double>::infinity();
    const Given wrong[] = {{adInteger, L"x"},
                           {adInteger, 5000000000.0},
                           {adSmallInt, 40000l},
                           {adTinyInt, 200l},
                           {adUnsignedTinyInt, -1l},
                           {adUnsignedBigInt, -1l},
                           {adBigInt, 1e30},
                           {adDouble, L"x"},
                           {adDouble, inf},
                           {adDouble, std::nan("")},
                           {adSingle, 1e300},
                           {adCurrency, 1e30},
                           {adNumeric, L"không"},
                           {adBoolean, L"x"},
                           {adDate, L"x"},
                           {adDate, L"2021-02-29"},
                           {adDate, 1e10},
                           {adDBTimeStamp, _variant_t(inf, VT_DATE)},
                           {adVarWChar, BytesOf("x")},
                           {adBSTR, BytesOf("xy")},
                           {adInteger, BytesOf("1")},
                           {adVarBinary, L"x"},
                           {adVarBinary, ArrayOf({1l})},
                           {adVariant, ArrayOf({1l})},
                           {adInteger, _variant_t(E_FAIL, VT_ERROR)}};
    for (const auto& [type, value, size] : wrong) {
        SCOPED_TRACE(testing::Message() << type << " from " << value.vt);
        const auto parameter = NewParameter(type, Missing());
        ExpectError(kWrongType, L"wrong type", parameter->put_Value(value));
        const auto command = NewCommand(Db(), L"Select ?");
        ASSERT_SUCCEEDED(TryAppend(command.Get(), parameter.Get()));
        ExpectError(kWrongType, L"wrong type", TryRun(command.Get(), ArrayOf({value})));
    }
}

TEST_P(AdoBound, DatesCompareWithTheEnginesOwn) {
    CreateTable();
    const _variant_t long_ago = Date(L"1/31/2020 5:06:07 AM");
    Store(L"ts", {adDBTimeStamp, long_ago});
    EXPECT_EQ(1, Found(L"ts<CURRENT_TIMESTAMP And ts=?", {adDBTimeStamp, long_ago}));
    EXPECT_EQ(1, Found(L"ts<?", {adDate, Date(L"1/31/2020 5:06:08 AM")}));
    EXPECT_EQ(1, Found(L"ts>?", {adDate, Date(L"1/31/2020")}));
    EXPECT_EQ(0, Found(L"ts>?", {adDate, Date(L"2/1/2020")}));
    EXPECT_EQ(1, Found(L"ts=#1/31/2020 5:06:07 AM# And ts=?", {adDate, long_ago}));
    EXPECT_EQ(1, Found(L"CURRENT_TIMESTAMP>?", {adDate, long_ago}));
    Store(L"dt", {adDate, Date(L"1/31/2020")});
    EXPECT_EQ(1, Found(L"dt=#1/31/2020# And dt>=?", {adDate, Date(L"1/31/2020")}));
    EXPECT_EQ(1, Found(L"dt<?", {adDBDate, Date(L"2/1/2020")}));
}

// The driver's settings must not change what is found.
TEST(AdoBoundOnServer, WhateverTheDriversSettings) {
    const std::wstring server = PostgresConnection();
    if (server.empty())
        GTEST_SKIP() << "VNDESK_PG names no PostgreSQL server: NOT TESTED";
    for (const wchar_t* setting :
         {L"UseServerSidePrepare=0", L"UseServerSidePrepare=1", L"UseDeclareFetch=1", L"Parse=1",
          L"BoolsAsChar=0", L"Protocol=7.4-0"}) {
        SCOPED_TRACE(ToUtf8(setting));
        const auto connection = NewConnection();
        ASSERT_SUCCEEDED(
            connection->Open(_bstr_t((server + L";" + setting).c_str()), _bstr_t(), _bstr_t(), -1));
        Execute(connection.Get(), L"Create Extension If Not Exists citext With Schema public");
        Execute(connection.Get(), L"Create Temporary Table s(name public.citext, i integer)");
        EXPECT_EQ(1, Written(connection.Get(), L"Insert Into s Values(?,?)",
                             {{adVarWChar, L"O'Brien \\"}, {adInteger, -5l}}));
        EXPECT_EQ(_variant_t(1l), Asked(connection.Get(), L"Select Count(*) From s Where name=?",
                                        {{adVarWChar, L"o'BRIEN \\"}}));
        Execute(connection.Get(), L"Set standard_conforming_strings=off");
        EXPECT_EQ(_variant_t(1l), Asked(connection.Get(), L"Select Count(*) From s Where name=?",
                                        {{adVarWChar, L"o'BRIEN \\"}}));
        EXPECT_EQ(_variant_t(0l), Asked(connection.Get(), L"Select Count(*) From s Where name=?",
                                        {{adVarWChar, L"\\' Or 1=1 --"}}));
    }
}

} // namespace
