// SPDX-License-Identifier: MIT
// The bridge as a whole: registration, many rows, the statement trace, and that nothing is left
// over.
#include "wine/ado_commands.h"

#include <cstdio>

#include "support/bound_columns.h"
#include "support/leak_probe.h"
#include "support/new_object.h"
#include "support/odbc_session.h"
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
constexpr const wchar_t* kCommand = L"{00000507-0000-0010-8000-00AA006D2EA4}";
constexpr const wchar_t* kParameter = L"{0000050B-0000-0010-8000-00AA006D2EA4}";

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

TEST(AdoModule, CommandsAndParametersTooAreTakenOverAndGivenBack) {
    for (const wchar_t* clsid : {kCommand, kParameter})
        EXPECT_EQ(Bridge::Path(), ClassServer(clsid));
    ASSERT_SUCCEEDED(Bridge::Call("DllUnregisterServer"));
    EXPECT_NE(std::wstring::npos, ClassServer(kCommand).find(L"msado15.dll"))
        << ToUtf8(ClassServer(kCommand));
    EXPECT_NE(Bridge::Path(), ClassServer(kParameter)) << "of which older Wine versions have none";
    ASSERT_SUCCEEDED(Bridge::Call("DllRegisterServer"));
    for (const wchar_t* clsid : {kCommand, kParameter})
        EXPECT_EQ(Bridge::Path(), ClassServer(clsid));
}

template <class... Interfaces> void ExpectOneObject(IUnknown* object) {
    ComPtr<IUnknown> identity;
    ASSERT_SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&identity)));
    const auto expectSame = [&](REFIID iid) {
        ComPtr<IUnknown> asked, back;
        ASSERT_SUCCEEDED(
            object->QueryInterface(iid, reinterpret_cast<void**>(asked.GetAddressOf())));
        ASSERT_SUCCEEDED(asked->QueryInterface(IID_PPV_ARGS(&back)));
        EXPECT_EQ(identity.Get(), back.Get());
    };
    (expectSame(__uuidof(Interfaces)), ...);
    ComPtr<IPersist> none;
    EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(IID_PPV_ARGS(&none)));
    object->AddRef();
    const ULONG left = object->Release();
    EXPECT_EQ(2u, left) << "identity and the test";
}

TEST(AdoModule, CommandsAnswerToAllTheirInterfaces) {
    const auto command = NewObject<_Command>(L"ADODB.Command");
    ExpectOneObject<_Command, Command25, Command15, _ADO, IDispatch, ISupportErrorInfo>(
        command.Get());
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    ExpectOneObject<_Parameter, _ADO, IDispatch, ISupportErrorInfo>(parameter.Get());
    ExpectOneObject<Parameters, _DynaCollection, _Collection, IDispatch>(
        ParametersOf(command.Get()).Get());
    ComPtr<Properties> properties;
    ASSERT_SUCCEEDED(NewConnection()->get_Properties(&properties));
    ExpectOneObject<Properties, _Collection, IDispatch>(properties.Get());
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

// The same for commands, whose parameters newer Wine versions remember as they do columns.
TEST_P(AdoEndurance, NothingIsLeftOverOfCommands) {
    Execute(Db(), L"Create Table t(a integer, b varchar(20))");
    const auto round = [&] {
        const auto connection = Connect();
        const std::vector<Given> values = {{adInteger, 1l}, {adVarWChar, L"một"}};
        connection->BeginTrans(nullptr);
        Written(connection.Get(), L"Insert Into t Values(?,?)", values);
        TryWrite(connection.Get(), L"Insert Into nosuch Values(?,?)", values);
        TryWrite(connection.Get(), L"Insert Into t Values(?)", values);
        const auto command = NewCommand(connection.Get(), L"Select b From t Where a=? And b=?");
        TryRun(command.Get(), ArrayOf({1l, L"một"}));
        TryRun(command.Get(), ArrayOf({1l, BytesOf("x")}));
        const auto parameter = NewParameter(adVarBinary, BytesOf("bytes"), 20);
        TryAppend(command.Get(), parameter.Get());
        parameter->put_Value(_variant_t(L"x"));
        NewRecordset()->Open(_variant_t(static_cast<IDispatch*>(command.Get())), Missing(),
                             adOpenStatic, adLockReadOnly, -1);
        ComPtr<Properties> properties;
        ComPtr<Property> property;
        connection->get_Properties(&properties);
        properties->get_Item(_variant_t(L"DBMS Version"), &property);
        ErrorText();
        connection->RollbackTrans();
    };
    constexpr int kRounds = 50;
    OdbcSession platform(L"Driver=SQLite3;Database=:memory:");
    for (int i = 0; i < 5; ++i) {
        round();
        platform.BindParameters(2);
    }
    const HeapUse before = HeapInUse();
    for (int i = 0; i < kRounds; ++i)
        for (int statements = 0; statements < 5; ++statements)
            platform.BindParameters(2);
    const HeapUse between = HeapInUse();
    for (int i = 0; i < kRounds; ++i)
        round();
    const HeapUse after = HeapInUse();
    const auto grown = [](size_t from, size_t to) { return static_cast<long>(to - from); };
    const long ownBlocks = grown(before.blocks, between.blocks);
    const long blocks = grown(between.blocks, after.blocks);
    const long ownBytes = grown(before.bytes, between.bytes);
    const long bytes = grown(between.bytes, after.bytes);
    TellFigures(kRounds, " rounds, heap ", blocks, " blocks, ", bytes, " bytes (platform ",
                ownBlocks, ", ", ownBytes, ")");
    EXPECT_LE(blocks, ownBlocks + kRounds / 2) << "less than one block in two rounds";
    EXPECT_LE(bytes, ownBytes + 16 * 1024);
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
