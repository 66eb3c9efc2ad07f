// SPDX-License-Identifier: MIT
// Opening, walking and closing record sets.
#include "wine/ado_fixture.h"

namespace {

using namespace vndesk::test;

class AdoRecordset : public EachEngineTest {
protected:
    void SetUp() override {
        EachEngineTest::SetUp();
        if (IsSkipped() || !Db())
            return;
        Execute(Db(), L"Create Table people(code integer, name varchar(30))");
        Execute(Db(), L"Insert Into people Values(1,'An')");
        Execute(Db(), L"Insert Into people Values(2,'Bình')");
        Execute(Db(), L"Insert Into people Values(3,'Chi')");
    }
    ComPtr<_Recordset> People(const std::wstring& condition = L"1=1") {
        return OpenRecordset(Db(), L"Select * From people Where " + condition + L" Order By code");
    }
};

INSTANTIATE_EACH_ENGINE(AdoRecordset);

TEST_P(AdoRecordset, WalksBothWays) {
    const auto rs = People();
    EXPECT_EQ(3, Count(rs.Get()));
    EXPECT_FALSE(IsBof(rs.Get()));
    EXPECT_FALSE(IsEof(rs.Get()));
    EXPECT_EQ(L"An", TextAt(rs.Get(), L"name"));
    ASSERT_SUCCEEDED(rs->MoveNext());
    EXPECT_EQ(L"Bình", TextAt(rs.Get(), L"name"));
    ASSERT_SUCCEEDED(rs->MoveLast());
    EXPECT_EQ(L"Chi", TextAt(rs.Get(), L"name"));
    ASSERT_SUCCEEDED(rs->MoveNext());
    EXPECT_TRUE(IsEof(rs.Get()));
    EXPECT_FALSE(IsBof(rs.Get()));
    ASSERT_SUCCEEDED(rs->MovePrevious());
    EXPECT_EQ(L"Chi", TextAt(rs.Get(), L"name"));
    ASSERT_SUCCEEDED(rs->MoveFirst());
    EXPECT_EQ(L"An", TextAt(rs.Get(), L"name"));
    ASSERT_SUCCEEDED(rs->MovePrevious());
    EXPECT_TRUE(IsBof(rs.Get()));
    EXPECT_FALSE(IsEof(rs.Get()));
    ASSERT_SUCCEEDED(rs->MoveNext());
    EXPECT_EQ(L"An", TextAt(rs.Get(), L"name"));
}

TEST_P(AdoRecordset, NoCurrentRow) {
    const auto rs = People();
    rs->MoveLast();
    rs->MoveNext();
    ExpectError(kNoCurrentRecord, L"Either BOF or EOF is True", rs->MoveNext());
    _variant_t value;
    ExpectError(kNoCurrentRecord, L"Either BOF or EOF is True",
                FieldAt(rs.Get(), 0l)->get_Value(&value));
    rs->MoveFirst();
    rs->MovePrevious();
    ExpectError(kNoCurrentRecord, L"current record", rs->MovePrevious());
    ExpectError(kNoCurrentRecord, L"current record", FieldAt(rs.Get(), 0l)->get_Value(&value));
}

TEST_P(AdoRecordset, EmptyResult) {
    const auto rs = People(L"code=77");
    EXPECT_EQ(adStateOpen, State(rs.Get()));
    EXPECT_EQ(0, Count(rs.Get()));
    EXPECT_TRUE(IsBof(rs.Get()));
    EXPECT_TRUE(IsEof(rs.Get()));
    ExpectError(kNoCurrentRecord, L"", rs->MoveFirst());
    ExpectError(kNoCurrentRecord, L"", rs->MoveLast());
    ExpectError(kNoCurrentRecord, L"", rs->MoveNext());
    ExpectError(kNoCurrentRecord, L"", rs->MovePrevious());
    ComPtr<Fields> fields;
    LONG count = 0;
    ASSERT_SUCCEEDED(rs->get_Fields(&fields));
    ASSERT_SUCCEEDED(fields->get_Count(&count));
    EXPECT_EQ(2, count) << "columns are known without rows";
}

TEST_P(AdoRecordset, FieldsByNumberAndByNameInAnyCase) {
    const auto rs = People();
    EXPECT_EQ(L"An", TextAt(rs.Get(), 1l));
    EXPECT_EQ(L"An", TextAt(rs.Get(), L"NAME"));
    EXPECT_EQ(L"An", TextAt(rs.Get(), _variant_t(static_cast<short>(1))));
    ComPtr<Fields> fields;
    ComPtr<Field> field;
    ASSERT_SUCCEEDED(rs->get_Fields(&fields));
    for (const _variant_t& index :
         {_variant_t(2l), _variant_t(-1l), _variant_t(L"none"), _variant_t(L"")})
        ExpectError(kItemNotFound, L"Item cannot be found in the collection",
                    fields->get_Item(index, &field));
    _variant_t empty;
    EXPECT_EQ(E_POINTER, fields->get_Item(_variant_t(0l), nullptr));
}

TEST_P(AdoRecordset, AFieldFollowsTheRow) {
    const auto rs = People();
    const ComPtr<Field> name = FieldAt(rs.Get(), L"name");
    _variant_t value;
    rs->MoveLast();
    ASSERT_SUCCEEDED(name->get_Value(value.GetAddress()));
    EXPECT_EQ(_variant_t(L"Chi"), value);
    ASSERT_SUCCEEDED(rs->Close());
    ExpectError(kObjectNotSet, L"Object is no longer valid", name->get_Value(value.GetAddress()));
    ASSERT_SUCCEEDED(TryOpen(rs.Get(), L"Select 'other' As name"));
    ExpectError(kObjectNotSet, L"Object is no longer valid", name->get_Value(value.GetAddress()));
}

TEST_P(AdoRecordset, ClosedRefusesWhatNeedsRows) {
    const auto rs = People();
    ASSERT_SUCCEEDED(rs->Close());
    EXPECT_EQ(adStateClosed, State(rs.Get()));
    VARIANT_BOOL truth;
    ADO_LONGPTR count;
    _variant_t rows;
    ExpectError(kObjectClosed, L"not allowed when the object is closed", rs->get_EOF(&truth));
    ExpectError(kObjectClosed, L"closed", rs->get_BOF(&truth));
    ExpectError(kObjectClosed, L"closed", rs->get_RecordCount(&count));
    ExpectError(kObjectClosed, L"closed", rs->MoveFirst());
    ExpectError(kObjectClosed, L"closed", rs->MoveLast());
    ExpectError(kObjectClosed, L"closed", rs->MoveNext());
    ExpectError(kObjectClosed, L"closed", rs->MovePrevious());
    ExpectError(kObjectClosed, L"closed", rs->GetRows(-1, Missing(), Missing(), &rows));
    ExpectError(kObjectClosed, L"closed", rs->Close());
    ComPtr<Fields> fields;
    ComPtr<Field> field;
    LONG fieldCount = -1;
    ASSERT_SUCCEEDED(rs->get_Fields(&fields));
    ASSERT_SUCCEEDED(fields->get_Count(&fieldCount));
    EXPECT_EQ(0, fieldCount);
    ExpectError(kItemNotFound, L"", fields->get_Item(_variant_t(0l), &field));
}

TEST_P(AdoRecordset, OpenRefusesASecondOpen) {
    const auto rs = People();
    ExpectError(kObjectOpen, L"not allowed when the object is open", TryOpen(rs.Get(), L"people"));
    ExpectError(kObjectOpen, L"open", rs->put_Source(_bstr_t(L"x")));
    ExpectError(kObjectOpen, L"open", rs->put_CursorType(adOpenStatic));
    ExpectError(kObjectOpen, L"open", rs->put_LockType(adLockOptimistic));
    ExpectError(kObjectOpen, L"open", rs->putref_ActiveConnection(Db()));
    ASSERT_SUCCEEDED(rs->Close());
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"people"));
}

TEST_P(AdoRecordset, ConnectionInEveryForm) {
    auto rs = NewRecordset();
    ASSERT_SUCCEEDED(rs->put_ActiveConnection(_variant_t(static_cast<IDispatch*>(Db()))));
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"people"));

    rs = NewRecordset();
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"people", _variant_t(static_cast<IDispatch*>(Db()))));
    EXPECT_EQ(3, Count(rs.Get()));

    rs = NewRecordset();
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"people", _variant_t(static_cast<IUnknown*>(Db()))));

    // A text opens a connection of its own.
    rs = NewRecordset();
    ASSERT_SUCCEEDED(rs->put_ActiveConnection(_variant_t(ConnectionString().c_str())));
    _variant_t connection;
    ASSERT_SUCCEEDED(rs->get_ActiveConnection(&connection));
    ASSERT_EQ(VT_DISPATCH, connection.vt);
    EXPECT_TRUE(connection.pdispVal);
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"Select 1"));
    rs = NewRecordset();
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"Select 1", _variant_t(ConnectionString().c_str())));
    EXPECT_EQ(_variant_t(1l), ValueAt(rs.Get(), 0l));
}

TEST_P(AdoRecordset, WithoutAUsableConnection) {
    const auto rs = NewRecordset();
    ExpectError(kInvalidConnection, L"either closed or invalid", TryOpen(rs.Get(), L"people"));
    const auto closed = NewConnection();
    EXPECT_SUCCEEDED(rs->putref_ActiveConnection(closed.Get()));
    ExpectError(kInvalidConnection, L"either closed or invalid", TryOpen(rs.Get(), L"people"));
    ExpectError(kInvalidArgument, L"wrong type", rs->put_ActiveConnection(_variant_t(5l)));
    ExpectError(kInvalidArgument, L"wrong type", rs->putref_ActiveConnection(rs.Get()));
    _variant_t connection;
    ASSERT_SUCCEEDED(NewRecordset()->get_ActiveConnection(&connection));
    EXPECT_EQ(VT_DISPATCH, connection.vt);
    EXPECT_FALSE(connection.pdispVal);
}

TEST_P(AdoRecordset, SourceIsKept) {
    const auto rs = NewRecordset();
    ASSERT_SUCCEEDED(rs->putref_ActiveConnection(Db()));
    ExpectError(static_cast<HRESULT>(0x80040E0CL), L"Command text", TryOpen(rs.Get(), Missing()));
    ASSERT_SUCCEEDED(rs->put_Source(_bstr_t(L"people")));
    ASSERT_SUCCEEDED(TryOpen(rs.Get(), Missing()));
    EXPECT_EQ(3, Count(rs.Get()));
    _variant_t source;
    ASSERT_SUCCEEDED(rs->get_Source(&source));
    EXPECT_EQ(_variant_t(L"people"), source);
    rs->Close();
    ExpectError(kInvalidArgument, L"", TryOpen(rs.Get(), 5l));
    ExpectError(E_NOTIMPL, L"Command objects", TryOpen(rs.Get(), static_cast<IDispatch*>(Db())));
}

TEST_P(AdoRecordset, CursorAndLockAreWhatWasAskedFor) {
    const auto rs = NewRecordset();
    CursorTypeEnum cursor = adOpenUnspecified;
    LockTypeEnum lock = adLockUnspecified;
    rs->get_CursorType(&cursor);
    rs->get_LockType(&lock);
    EXPECT_EQ(adOpenForwardOnly, cursor);
    EXPECT_EQ(adLockReadOnly, lock);
    ASSERT_SUCCEEDED(rs->put_CursorType(adOpenKeyset));
    ASSERT_SUCCEEDED(rs->put_LockType(adLockPessimistic));
    rs->putref_ActiveConnection(Db());
    ASSERT_SUCCEEDED(TryOpen(rs.Get(), L"people"));
    rs->get_CursorType(&cursor);
    rs->get_LockType(&lock);
    EXPECT_EQ(adOpenKeyset, cursor);
    EXPECT_EQ(adLockPessimistic, lock);
    rs->Close();
    ASSERT_SUCCEEDED(
        rs->Open(_variant_t(L"people"), Missing(), adOpenStatic, adLockOptimistic, adCmdTable));
    rs->get_CursorType(&cursor);
    rs->get_LockType(&lock);
    EXPECT_EQ(adOpenStatic, cursor);
    EXPECT_EQ(adLockOptimistic, lock);
}

TEST_P(AdoRecordset, AStatementWithoutRowsLeavesItClosed) {
    const auto rs = NewRecordset();
    rs->putref_ActiveConnection(Db());
    ASSERT_SUCCEEDED(TryOpen(rs.Get(), L"Insert Into people Values(4,'Dung')"));
    EXPECT_EQ(adStateClosed, State(rs.Get()));
    EXPECT_EQ(4, Count(People().Get()));
}

TEST_P(AdoRecordset, IsASnapshot) {
    const auto rs = People();
    Execute(Db(), L"Delete From people");
    EXPECT_EQ(3, Count(rs.Get()));
    EXPECT_EQ(L"An", TextAt(rs.Get(), L"name"));
    EXPECT_EQ(0, Count(People().Get()));
}

TEST_P(AdoRecordset, GetRowsTakesABlock) {
    const auto rs = People();
    _variant_t rows;
    ASSERT_SUCCEEDED(rs->GetRows(2, Missing(), Missing(), &rows));
    ASSERT_EQ(VT_ARRAY | VT_VARIANT, rows.vt);
    ASSERT_EQ(2u, SafeArrayGetDim(rows.parray));
    LONG last = 0;
    SafeArrayGetUBound(rows.parray, 1, &last);
    EXPECT_EQ(1, last) << "fields";
    SafeArrayGetUBound(rows.parray, 2, &last);
    EXPECT_EQ(1, last) << "rows";
    const auto at = [&](LONG field, LONG row) {
        LONG index[] = {field, row};
        _variant_t value;
        EXPECT_SUCCEEDED(SafeArrayGetElement(rows.parray, index, &value));
        return value;
    };
    EXPECT_EQ(_variant_t(1l), at(0, 0));
    EXPECT_EQ(_variant_t(L"An"), at(1, 0));
    EXPECT_EQ(_variant_t(2l), at(0, 1));
    EXPECT_EQ(_variant_t(L"Bình"), at(1, 1));
    EXPECT_EQ(L"Chi", TextAt(rs.Get(), L"name")) << "stands behind the rows taken";

    rows.Clear();
    ASSERT_SUCCEEDED(rs->GetRows(-1, _variant_t(1l), _variant_t(L"NAME"), &rows));
    SafeArrayGetUBound(rows.parray, 1, &last);
    EXPECT_EQ(0, last);
    SafeArrayGetUBound(rows.parray, 2, &last);
    EXPECT_EQ(2, last);
    EXPECT_EQ(_variant_t(L"Chi"), at(0, 2));
    EXPECT_TRUE(IsEof(rs.Get()));

    rows.Clear();
    ExpectError(kNoCurrentRecord, L"", rs->GetRows(-1, Missing(), Missing(), &rows));
    ExpectError(kItemNotFound, L"", rs->GetRows(-1, _variant_t(1l), _variant_t(L"none"), &rows));
    EXPECT_EQ(VT_EMPTY, rows.vt);
    EXPECT_EQ(E_POINTER, rs->GetRows(-1, Missing(), Missing(), nullptr));
}

TEST_P(AdoRecordset, LivesOnWithoutTheHostsConnection) {
    auto connection = Connect();
    const auto rs = OpenRecordset(connection.Get(), L"people");
    connection.Reset();
    EXPECT_EQ(3, Count(rs.Get()));
    ASSERT_SUCCEEDED(rs->MoveLast());
    EXPECT_EQ(_variant_t(3l), ValueAt(rs.Get(), 0l));
}

TEST_P(AdoRecordset, ClosingTheConnectionClosesIt) {
    const auto connection = Connect();
    const auto rs = OpenRecordset(connection.Get(), L"people");
    ASSERT_SUCCEEDED(connection->Close());
    EXPECT_EQ(adStateClosed, State(rs.Get()));
    ExpectError(kObjectClosed, L"", rs->MoveFirst());
}

TEST_P(AdoRecordset, DisconnectedRowsOutliveTheConnection) {
    const auto connection = Connect();
    const auto rs = OpenRecordset(connection.Get(), L"people");
    ASSERT_SUCCEEDED(rs->putref_ActiveConnection(nullptr));
    ASSERT_SUCCEEDED(connection->Close());
    EXPECT_EQ(3, Count(rs.Get()));
    EXPECT_EQ(_variant_t(1l), ValueAt(rs.Get(), 0l));
}

TEST_P(AdoRecordset, WhatItDoesNotHaveSaysSo) {
    const auto rs = People();
    ExpectError(E_NOTIMPL, L"ADODB.Recordset.AddNew is not available",
                rs->AddNew(Missing(), Missing()));
    ExpectError(E_NOTIMPL, L"ADODB.Recordset.Filter", rs->put_Filter(_variant_t(L"x")));
    ExpectError(E_NOTIMPL, L"ADODB.Recordset.Delete", rs->Delete(adAffectCurrent));
    ExpectError(E_NOTIMPL, L"ADODB.Field.Value", FieldAt(rs.Get(), 0l)->put_Value(_variant_t(1l)));
    ExpectError(E_NOTIMPL, L"ADODB.Connection.OpenSchema",
                Db()->OpenSchema(adSchemaTables, Missing(), Missing(), nullptr));
    ExpectError(
        E_NOTIMPL, L"Stored procedures",
        TryOpen(NewRecordset().Get(), L"x", static_cast<IDispatch*>(Db()), adCmdStoredProc));
}

TEST_P(AdoRecordset, AnswersToAllItsInterfaces) {
    const auto rs = NewRecordset();
    for (const IID& iid : {__uuidof(IUnknown), __uuidof(IDispatch), __uuidof(_ADO),
                           __uuidof(Recordset15), __uuidof(Recordset20), __uuidof(Recordset21),
                           __uuidof(_Recordset), __uuidof(ISupportErrorInfo)}) {
        ComPtr<IUnknown> object;
        EXPECT_SUCCEEDED(rs->QueryInterface(iid, &object));
    }
    ComPtr<IUnknown> none;
    EXPECT_EQ(E_NOINTERFACE, rs->QueryInterface(__uuidof(_Connection), &none));
    for (const IID& iid : {__uuidof(_ADO), __uuidof(Connection15), __uuidof(_Connection)}) {
        ComPtr<IUnknown> object;
        EXPECT_SUCCEEDED(Db()->QueryInterface(iid, &object));
    }
    ComPtr<ISupportErrorInfo> support;
    ASSERT_SUCCEEDED(rs.As(&support));
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(__uuidof(_Recordset)));
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(__uuidof(Recordset15)));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(__uuidof(_Connection)));
}

TEST_P(AdoRecordset, NullPointers) {
    const auto rs = People();
    EXPECT_EQ(E_POINTER, rs->get_EOF(nullptr));
    EXPECT_EQ(E_POINTER, rs->get_RecordCount(nullptr));
    EXPECT_EQ(E_POINTER, rs->get_Fields(nullptr));
    EXPECT_EQ(E_POINTER, rs->get_State(nullptr));
    EXPECT_EQ(E_POINTER, rs->get_ActiveConnection(nullptr));
    EXPECT_EQ(E_POINTER, FieldAt(rs.Get(), 0l)->get_Value(nullptr));
    EXPECT_EQ(E_POINTER, Db()->get_Errors(nullptr));
    EXPECT_EQ(E_POINTER, Db()->get_State(nullptr));
    EXPECT_EQ(S_OK, Db()->Execute(_bstr_t(L"Select 1"), nullptr, -1, nullptr));
}

} // namespace
