// SPDX-License-Identifier: MIT
#include "wine/ado_fixture.h"

#include "support/env.h"
#include "support/text.h"

namespace vndesk::test {

namespace {

HMODULE bridge;

class BridgeEnvironment : public testing::Environment {
public:
    void SetUp() override {
        bridge = LoadLibraryW(Bridge::Path().c_str());
        ASSERT_TRUE(bridge) << "no " << ToUtf8(Bridge::Path());
        ASSERT_SUCCEEDED(Bridge::Call("DllRegisterServer"));
    }
};

const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new BridgeEnvironment);

void Check(HRESULT hr, const char* what) {
    if (FAILED(hr))
        Fail(FromUtf8(std::string(what) + " failed: " + HrText(hr) + " ") + ErrorText());
}

template <class Interface> ComPtr<Interface> Create(const wchar_t* progId) {
    CLSID clsid;
    ComPtr<Interface> object;
    Check(CLSIDFromProgID(progId, &clsid), "CLSIDFromProgID");
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)),
          "CoCreateInstance");
    return object;
}

std::wstring UniqueName() {
    static int number = 0;
    return L"ado_test_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++number);
}

} // namespace

const std::wstring& Bridge::Path() {
    static const std::wstring path = [] {
        wchar_t self[MAX_PATH] = L"";
        GetModuleFileNameW(nullptr, self, MAX_PATH);
        std::wstring folder = self;
        for (int up = 0; up < 2; ++up)
            folder.erase(folder.rfind(L'\\'));
        return folder + L"\\adobridge.dll";
    }();
    return path;
}

HRESULT Bridge::Call(const char* exported) {
    const auto call = reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(bridge, exported));
    return call ? call() : E_NOINTERFACE;
}

HRESULT Bridge::ClassObject(REFCLSID clsid, IClassFactory** factory) {
    const auto get =
        reinterpret_cast<LPFNGETCLASSOBJECT>(GetProcAddress(bridge, "DllGetClassObject"));
    return get ? get(clsid, IID_IClassFactory, reinterpret_cast<void**>(factory)) : E_NOINTERFACE;
}

ComPtr<_Connection> NewConnection() {
    return Create<_Connection>(L"ADODB.Connection");
}
ComPtr<_Recordset> NewRecordset() {
    return Create<_Recordset>(L"ADODB.Recordset");
}
_variant_t Missing() {
    return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR);
}

std::wstring ErrorText() {
    ComPtr<IErrorInfo> info;
    BSTR text = nullptr;
    if (GetErrorInfo(0, &info) == S_OK)
        info->GetDescription(&text);
    const std::wstring copy(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return copy;
}

void ExpectError(HRESULT wanted, const std::wstring& part, HRESULT actual) {
    const std::wstring text = ErrorText();
    EXPECT_HR(wanted, actual);
    EXPECT_NE(std::wstring::npos, text.find(part))
        << "description: " << ToUtf8(text) << "\nwanted in it: " << ToUtf8(part);
    EXPECT_FALSE(text.empty());
}

ComPtr<_Recordset> Execute(_Connection* connection, const std::wstring& statement) {
    ComPtr<_Recordset> recordset;
    Check(connection->Execute(_bstr_t(statement.c_str()), nullptr, -1, &recordset),
          ToUtf8(statement).c_str());
    return recordset;
}

long Affected(_Connection* connection, const std::wstring& statement) {
    _variant_t affected;
    Check(connection->Execute(_bstr_t(statement.c_str()), &affected, adExecuteNoRecords, nullptr),
          ToUtf8(statement).c_str());
    return affected;
}

HRESULT TryExecute(_Connection* connection, const std::wstring& statement) {
    ComPtr<_Recordset> recordset;
    return connection->Execute(_bstr_t(statement.c_str()), nullptr, -1, &recordset);
}

HRESULT TryOpen(_Recordset* recordset, const _variant_t& source, const _variant_t& connection,
                long options) {
    return recordset->Open(source, connection, adOpenUnspecified, adLockUnspecified, options);
}

ComPtr<_Recordset> OpenRecordset(_Connection* connection, const std::wstring& source) {
    const ComPtr<_Recordset> recordset = NewRecordset();
    Check(recordset->putref_ActiveConnection(connection), "ActiveConnection");
    Check(TryOpen(recordset.Get(), source.c_str()), ToUtf8(source).c_str());
    return recordset;
}

ComPtr<Field> FieldAt(_Recordset* recordset, const _variant_t& index) {
    ComPtr<Fields> fields;
    ComPtr<Field> field;
    Check(recordset->get_Fields(&fields), "Fields");
    Check(fields->get_Item(index, &field), "Fields.Item");
    return field;
}

_variant_t ValueAt(_Recordset* recordset, const _variant_t& index) {
    _variant_t value;
    Check(FieldAt(recordset, index)->get_Value(&value), "Field.Value");
    return value;
}

std::wstring TextAt(_Recordset* recordset, const _variant_t& index) {
    const _variant_t value = ValueAt(recordset, index);
    if (value.vt != VT_BSTR)
        Fail(L"the value is no text but of type " + std::to_wstring(value.vt));
    return std::wstring(value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal));
}

bool IsEof(_Recordset* recordset) {
    VARIANT_BOOL eof = 0x55;
    Check(recordset->get_EOF(&eof), "EOF");
    return eof == VARIANT_TRUE;
}

bool IsBof(_Recordset* recordset) {
    VARIANT_BOOL bof = 0x55;
    Check(recordset->get_BOF(&bof), "BOF");
    return bof == VARIANT_TRUE;
}

long Count(_Recordset* recordset) {
    ADO_LONGPTR count = -77;
    Check(recordset->get_RecordCount(&count), "RecordCount");
    return static_cast<long>(count);
}

long State(_Recordset* recordset) {
    LONG state = -77;
    Check(recordset->get_State(&state), "State");
    return state;
}

long State(_Connection* connection) {
    LONG state = -77;
    Check(connection->get_State(&state), "State");
    return state;
}

_variant_t Scalar(_Connection* connection, const std::wstring& statement) {
    return ValueAt(Execute(connection, statement).Get(), 0l);
}

void AdoTest::OpenDatabase(Engine engine) {
    cleanBefore_ = Bridge::Call("DllCanUnloadNow") == S_OK;
    if (engine == Engine::Embedded) {
        folder_ = std::make_unique<TempDir>();
        // An empty file is an empty database.
        CloseHandle(
            CreateFileW(DatabaseFile().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        connectionString_ = L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + DatabaseFile() +
                            L";Jet OLEDB:Engine Type=5";
    } else {
        connectionString_ = PostgresConnection();
        if (connectionString_.empty())
            GTEST_SKIP() << "VNDESK_PG names no PostgreSQL server: NOT TESTED";
        schema_ = UniqueName();
    }
    connection_ = Connect();
    if (!schema_.empty()) {
        Execute(Db(), L"CREATE SCHEMA " + schema_);
        Execute(Db(), L"SET search_path TO " + schema_);
    }
}

void AdoTest::TearDown() {
    if (connection_ && !schema_.empty())
        Execute(Connect().Get(), L"DROP SCHEMA " + schema_ + L" CASCADE");
    connection_.Reset();
    folder_.reset();
    SetErrorInfo(0, nullptr);
    if (!cleanBefore_) // one culprit does not accuse all that come after it
        return;
    EXPECT_HR(S_OK, Bridge::Call("DllCanUnloadNow")) << "objects of the bridge are left";
}

ComPtr<_Connection> AdoTest::Connect() const {
    const ComPtr<_Connection> connection = NewConnection();
    Check(connection->Open(_bstr_t(connectionString_.c_str()), _bstr_t(L""), _bstr_t(L""), -1),
          "Open");
    if (connection_ && !schema_.empty())
        Execute(connection.Get(), L"SET search_path TO " + schema_);
    return connection;
}

} // namespace vndesk::test
