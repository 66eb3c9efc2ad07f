// SPDX-License-Identifier: MIT
// Column values as text and numbers.
#include <comutil.h>
#include <gtest/gtest.h>
#include <limits>

#include "data/connect/values.h"
#include "data/data_fixture.h"
#include "support/late_bound.h"

namespace vndesk::test {
namespace {

_variant_t Null() {
    _variant_t value;
    value.vt = VT_NULL;
    return value;
}

_variant_t Currency(long long tenThousandths) {
    _variant_t value;
    value.vt = VT_CY;
    value.cyVal.int64 = tenThousandths;
    return value;
}

std::wstring Text(const _variant_t& value) {
    return NullToText(value);
}
long Integer(const _variant_t& value) {
    return NullToInteger(value);
}
double Double(const _variant_t& value) {
    return NullToDouble(value);
}

TEST(ValuesTest, NullAndEmptyAreEmptyTextAndZero) {
    for (const _variant_t& value : {Null(), _variant_t()}) {
        EXPECT_EQ(L"", Text(value));
        EXPECT_EQ(0, Integer(value));
        EXPECT_EQ(0, Double(value));
    }
}

TEST(ValuesTest, TextIsKeptWhole) {
    EXPECT_EQ(L" Đồng ý ", Text(L" Đồng ý "));
    const _variant_t zero = _bstr_t(SysAllocStringLen(L"a\0b", 3), false);
    EXPECT_EQ(std::wstring(L"a\0b", 3), Text(zero));
}

TEST(ValuesTest, NumbersAreWrittenWithAPoint) {
    EXPECT_EQ(L"12", Text(12L));
    EXPECT_EQ(L"-1234567.5", Text(-1234567.5));
    EXPECT_EQ(L"1133116", Text(1133116.0));
    EXPECT_EQ(L"2.5", Text(Currency(25000)));
}

TEST(ValuesTest, WhatIsNoNumberIsZero) {
    for (const wchar_t* text : {L"", L"abc", L"12abc", L"không"}) {
        EXPECT_EQ(0, Integer(text)) << ToUtf8(text);
        EXPECT_EQ(0, Double(text)) << ToUtf8(text);
    }
    EXPECT_EQ(0, Integer(1e10)) << "too large for the result";
    EXPECT_EQ(1e10, Double(1e10));
    const _variant_t object(LateBound::Create(L"Scripting.Dictionary").Dispatch());
    EXPECT_EQ(L"", Text(object));
    EXPECT_EQ(0, Integer(object));
}

TEST(ValuesTest, NumberTextIsANumber) {
    EXPECT_EQ(12, Integer(L"12"));
    EXPECT_EQ(-12, Integer(L" -12 "));
    EXPECT_EQ(2.5, Double(L"2.5"));
    EXPECT_EQ(12, Integer(12.0));
    EXPECT_EQ(1133116.0, Double(1133116L));
    EXPECT_EQ(2.5, Double(Currency(25000)));
    EXPECT_EQ(std::numeric_limits<long>::max(), Integer(2147483647.0));
}

class ColumnValuesTest : public DataTest {};
ON_BOTH_ENGINES(ColumnValuesTest);

TEST_P(ColumnValuesTest, ComeFromBothDatabasesAlike) {
    Recordset rows;
    ASSERT_EQ(0, OpenRecordset(Db(), rows, L"Select * From [User] Where Code=1"));
    EXPECT_EQ(L"Nguyễn Văn Hưng", Text(rows.Value(L"Name")));
    EXPECT_EQ(2, Integer(rows.Value(L"IdGroup")));
    EXPECT_EQ(1133116.0, Double(rows.Value(L"Password")));
    EXPECT_EQ(L"1133116", Text(rows.Value(L"Password")));
    ASSERT_EQ(0,
              OpenRecordset(Db(), rows, L"Select KeyValue From Options Where KeyName='NguoiLap'"));
    EXPECT_EQ(VT_NULL, rows.Value(0L).vt);
    EXPECT_EQ(L"", Text(rows.Value(0L)));
}

} // namespace
} // namespace vndesk::test
