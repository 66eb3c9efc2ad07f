// SPDX-License-Identifier: MIT
// The bridge as a whole: registration, many rows, the statement trace, and that nothing is left
// over.
#include "wine/ado_fixture.h"

#include <cstdio>

#include "support/bound_columns.h"
#include "support/leak_probe.h"
#include "support/reliability.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

std::wstring ClassServer(const wchar_t* clsid) {
    wchar_t value[MAX_PATH] = L"";
    DWORD size = sizeof value;
    RegGetValueW(HKEY_CLASSES_ROOT,
                 (std::wstring(L"CLSID\\") + clsid + L"\\InprocServer32").c_str(), nullptr,
                 RRF_RT_REG_SZ, nullptr, value, &size);
    return value;
}

constexpr const wchar_t* kConnection = L"{00000514-0000-0010-8000-00AA006D2EA4}";
constexpr const wchar_t* kRecordset = L"{00000535-0000-0010-8000-00AA006D2EA4}";

TEST(AdoModule, RegistrationTakesOverAndGivesBack) {
    EXPECT_EQ(Bridge::Path(), ClassServer(kConnection));
    EXPECT_EQ(Bridge::Path(), ClassServer(kRecordset));
    ASSERT_SUCCEEDED(Bridge::Call("DllUnregisterServer"));
    const std::wstring wines = ClassServer(kConnection);
    EXPECT_NE(std::wstring::npos, wines.find(L"msado15.dll")) << ToUtf8(wines);
    EXPECT_NE(std::wstring::npos, ClassServer(kRecordset).find(L"msado15.dll"));
    CLSID clsid;
    EXPECT_SUCCEEDED(CLSIDFromProgID(L"ADODB.Connection", &clsid));
    ASSERT_SUCCEEDED(Bridge::Call("DllRegisterServer"));
    EXPECT_EQ(Bridge::Path(), ClassServer(kConnection));
    EXPECT_EQ(Bridge::Path(), ClassServer(kRecordset));
}

class AdoManyRows : public EachEngineTest {};
INSTANTIATE_EACH_ENGINE(AdoManyRows);

TEST_P(AdoManyRows, HundredThousand) {
    Execute(Db(), L"Create Table big(id integer, name varchar(40), amount double precision)");
    if (OnServer())
        Execute(Db(), L"Insert Into big Select i, 'Nguyễn Thị Hương ' || i, i / 4.0 From "
                      L"generate_series(1,100000) i");
    else
        Execute(Db(),
                L"With Recursive s(i) As (Select 1 Union All Select i+1 From s Where i<100000) "
                L"Insert Into big Select i, 'Nguyễn Thị Hương ' || i, i / 4.0 From s");
    const auto start = GetTickCount64();
    const auto rs = OpenRecordset(Db(), L"Select * From big Order By id");
    const auto opened = GetTickCount64() - start;
    ASSERT_EQ(100000, Count(rs.Get()));
    const ComPtr<Field> id = FieldAt(rs.Get(), L"id"), name = FieldAt(rs.Get(), L"name"),
                        amount = FieldAt(rs.Get(), L"amount");
    const auto walk = GetTickCount64();
    for (long i = 1; i <= 100000; ++i) {
        _variant_t idValue, nameValue, amountValue;
        ASSERT_SUCCEEDED(id->get_Value(&idValue));
        ASSERT_SUCCEEDED(name->get_Value(&nameValue));
        ASSERT_SUCCEEDED(amount->get_Value(&amountValue));
        ASSERT_EQ(VT_I4, idValue.vt);
        ASSERT_EQ(i, idValue.lVal);
        ASSERT_EQ(L"Nguyễn Thị Hương " + std::to_wstring(i), std::wstring(nameValue.bstrVal));
        ASSERT_EQ(i / 4.0, amountValue.dblVal);
        ASSERT_SUCCEEDED(rs->MoveNext());
    }
    EXPECT_TRUE(IsEof(rs.Get()));
    std::printf("100,000 rows: opened in %llu ms, read in %llu ms\n", opened,
                GetTickCount64() - walk);
    EXPECT_LT(opened, 5000u) << "far above what it takes: rows are fetched one by one, or worse";
}

class AdoEndurance : public EachEngineTest {};
INSTANTIATE_EACH_ENGINE(AdoEndurance);

TEST_P(AdoEndurance, NothingIsLeftOver) {
    Execute(Db(), L"Create Table t(a integer, b varchar(20))");
    Execute(Db(), L"Insert Into t Values(1,'một'),(2,'hai')");
    const auto round = [&] {
        const auto connection = Connect();
        const auto rs = OpenRecordset(connection.Get(), L"t");
        while (!IsEof(rs.Get())) {
            ValueAt(rs.Get(), L"a");
            TextAt(rs.Get(), L"b");
            rs->MoveNext();
        }
        _variant_t rows;
        rs->GetRows(-1, _variant_t(1l), Missing(), &rows);
        TryExecute(connection.Get(), L"Select * From nosuch");
        ErrorText();
        connection->BeginTrans(nullptr);
        Execute(connection.Get(), L"Update t Set b='ba' Where a=1");
        connection->RollbackTrans();
    };
    constexpr int kRounds = 50;
    const auto growth = [](int warmUp, const auto& work) {
        for (int i = 0; i < warmUp; ++i)
            work();
        const HeapUse before = HeapInUse();
        for (int i = 0; i < kRounds; ++i)
            work();
        const HeapUse after = HeapInUse();
        return std::pair(static_cast<long>(after.blocks - before.blocks),
                         static_cast<long>(after.bytes - before.bytes));
    };
    const auto [blocks, bytes] = growth(5, round);
    const BareBindings bindings([&] {
        const BoundColumns bound;
        round();
        return bound.OfStatements();
    }());
    const auto [platformBlocks, platformBytes] = growth(5, [&] { bindings.Make(); });
    TellFigures(kRounds, " rounds, heap ", blocks, " blocks, ", bytes, " bytes (platform ",
                platformBlocks, ", ", platformBytes, ")");
    EXPECT_LE(blocks, platformBlocks + kRounds / 2) << "less than one block in two rounds";
    EXPECT_LE(bytes, platformBytes + 16 * 1024);
}

class AdoTrace : public EmbeddedTest {
protected:
    void TearDown() override {
        SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", nullptr);
        EmbeddedTest::TearDown();
    }
};

TEST_F(AdoTrace, StatementsAsTheHostGaveThem) {
    const std::wstring path = folder_->File(L"trace.txt");
    SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", path.c_str());
    Execute(Db(), L"Select N'Người',\n#1/2/2020#");
    TryExecute(Db(), L"Bảng");
    OpenRecordset(Db(), L"Select 1");
    EXPECT_EQ(L"Select N'Người', #1/2/2020#\nBảng\nSelect 1\n", ReadUtf8File(path));
}

} // namespace
