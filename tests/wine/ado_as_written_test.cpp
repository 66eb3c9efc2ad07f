// SPDX-License-Identifier: MIT
// With VNDESK_ADO_AS_WRITTEN statements reach the driver as the program wrote them.
#include "wine/ado_fixture.h"

namespace {

using namespace vndesk::test;

class AsWritten : public EachEngineTest {
protected:
    void SetUp() override {
        EachEngineTest::SetUp();
        if (IsSkipped())
            return;
        Execute(Db(), L"create table t (a integer)");
        Execute(Db(), L"insert into t values (7)");
    }
    void TearDown() override {
        SetEnvironmentVariableW(L"VNDESK_ADO_AS_WRITTEN", nullptr);
        EachEngineTest::TearDown();
    }
    // A connection that is opened with the variable.
    ComPtr<_Connection> ConnectWith(const wchar_t* value) {
        SetEnvironmentVariableW(L"VNDESK_ADO_AS_WRITTEN", value);
        return Connect();
    }
};
INSTANTIATE_EACH_ENGINE(AsWritten);

// Neither engine knows the prefix of SQL Server and dates of Jet as they are meant.
TEST_P(AsWritten, NothingIsRewritten) {
    const ComPtr<_Connection> connection = ConnectWith(L"1");
    EXPECT_EQ(7L, static_cast<long>(Scalar(connection.Get(), L"select a from t")));
    EXPECT_FAILED(TryExecute(connection.Get(), L"select #12/31/2020#"));
    EXPECT_FAILED(TryExecute(connection.Get(), L"t"));
    // SQLite reads brackets.
    EXPECT_EQ(OnServer(), FAILED(TryExecute(connection.Get(), L"select [a] from [t]")));
    EXPECT_EQ(7L, static_cast<long>(Scalar(connection.Get(), L"select \"a\" from \"t\"")));
}

TEST_P(AsWritten, TablesAreStillOpenedByTheirName) {
    const ComPtr<_Connection> connection = ConnectWith(L"1");
    const ComPtr<_Recordset> rows = NewRecordset();
    const _variant_t active(static_cast<IDispatch*>(connection.Get()));
    EXPECT_SUCCEEDED(TryOpen(rows.Get(), L"t", active, adCmdTable));
    EXPECT_EQ(7L, static_cast<long>(ValueAt(rows.Get(), 0L)));
}

TEST_P(AsWritten, AnyOtherValueRewrites) {
    for (const wchar_t* value : {L"0", L"", L"10"}) {
        const ComPtr<_Connection> connection = ConnectWith(value);
        EXPECT_EQ(7L, static_cast<long>(Scalar(connection.Get(), L"select [a] from [t]")));
        EXPECT_SUCCEEDED(TryExecute(connection.Get(), L"select #12/31/2020#"));
    }
}

TEST_P(AsWritten, CountsFromTheNextConnection) {
    ConnectWith(L"1");
    EXPECT_SUCCEEDED(TryExecute(Db(), L"select #12/31/2020#"));
}

} // namespace
