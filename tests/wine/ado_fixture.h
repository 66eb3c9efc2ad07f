// SPDX-License-Identifier: MIT
// What the tests of the ADO for Wine share: the bridge beside the tests registered in the prefix, a
// database of each engine, and short ways to call ADO by its vtables.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <comdef.h>

#include <msado15_backcompat.h>
#include <wrl/client.h>

#include <functional>
#include <memory>
#include <string>

#include "support/check_hr.h"
#include "support/temp_dir.h"

namespace vndesk::test {

using Microsoft::WRL::ComPtr;

constexpr HRESULT kNoCurrentRecord = static_cast<HRESULT>(0x800A0BCDL);
constexpr HRESULT kItemNotFound = static_cast<HRESULT>(0x800A0CC1L);
constexpr HRESULT kObjectNotSet = static_cast<HRESULT>(0x800A0D5CL);
constexpr HRESULT kObjectClosed = static_cast<HRESULT>(0x800A0E78L);
constexpr HRESULT kObjectOpen = static_cast<HRESULT>(0x800A0E79L);
constexpr HRESULT kProviderNotFound = static_cast<HRESULT>(0x800A0E7AL);
constexpr HRESULT kInvalidConnection = static_cast<HRESULT>(0x800A0E7DL);
constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x800A0BB9L);
constexpr HRESULT kSyntaxError = static_cast<HRESULT>(0x80040E14L);
constexpr HRESULT kNoTable = static_cast<HRESULT>(0x80040E37L);
constexpr HRESULT kIntegrityViolation = static_cast<HRESULT>(0x80040E2FL);

// The DLL under test: adobridge.dll in the folder above the test program.
class Bridge {
public:
    static const std::wstring& Path();
    static HRESULT Call(const char* exported); // one without arguments
    static HRESULT ClassObject(REFCLSID clsid, IClassFactory** factory);
};

ComPtr<_Connection> NewConnection();
ComPtr<_Recordset> NewRecordset();
_variant_t Missing();

// The description that the last failed call left behind, which is thereby taken.
std::wstring ErrorText();

// Fails unless the call gives the code with a description that contains `part`.
void ExpectError(HRESULT wanted, const std::wstring& part, HRESULT actual);

// Short calls; all but those returning HRESULT fail the test by an exception.
ComPtr<_Recordset> Execute(_Connection* connection, const std::wstring& statement);
long Affected(_Connection* connection, const std::wstring& statement);
HRESULT TryExecute(_Connection* connection, const std::wstring& statement);
HRESULT TryOpen(_Recordset* recordset, const _variant_t& source,
                const _variant_t& connection = Missing(), long options = -1);
ComPtr<_Recordset> OpenRecordset(_Connection* connection, const std::wstring& source);
ComPtr<Field> FieldAt(_Recordset* recordset, const _variant_t& index);
_variant_t ValueAt(_Recordset* recordset, const _variant_t& index);
std::wstring TextAt(_Recordset* recordset, const _variant_t& index);
bool IsEof(_Recordset* recordset);
bool IsBof(_Recordset* recordset);
long Count(_Recordset* recordset);
long State(_Recordset* recordset);
long State(_Connection* connection);
// First field of the first row.
_variant_t Scalar(_Connection* connection, const std::wstring& statement);

enum class Engine { Embedded, Server };

// A database of the test's own and an open connection to it. Every test ends with no object left.
class AdoTest : public testing::Test {
protected:
    void OpenDatabase(Engine engine);
    void TearDown() override;

    _Connection* Db() const { return connection_.Get(); }
    // An open connection of its own to the same database.
    ComPtr<_Connection> Connect() const;
    const std::wstring& ConnectionString() const { return connectionString_; }
    std::wstring DatabaseFile() const { return folder_->File(L"host.db"); }

    std::unique_ptr<TempDir> folder_; // embedded only

private:
    std::wstring connectionString_;
    std::wstring schema_; // server only
    bool cleanBefore_ = false;
    ComPtr<_Connection> connection_;
};

// For what only the embedded database shows.
class EmbeddedTest : public AdoTest {
protected:
    void SetUp() override { OpenDatabase(Engine::Embedded); }
};

// The same test on both engines; the server's is skipped where VNDESK_PG names none.
class EachEngineTest : public AdoTest, public testing::WithParamInterface<Engine> {
protected:
    void SetUp() override { OpenDatabase(GetParam()); }
    bool OnServer() const { return GetParam() == Engine::Server; }
};

inline std::string EngineName(const testing::TestParamInfo<Engine>& info) {
    return info.param == Engine::Server ? "PostgreSQL" : "SQLite";
}

} // namespace vndesk::test

#define INSTANTIATE_EACH_ENGINE(Fixture)                                                           \
    INSTANTIATE_TEST_SUITE_P(Engines, Fixture, testing::Values(Engine::Embedded, Engine::Server),  \
                             EngineName)
