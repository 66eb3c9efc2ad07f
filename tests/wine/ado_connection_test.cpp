// SPDX-License-Identifier: MIT
// Opening and closing connections, executing, transactions, errors.
#include "wine/ado_fixture.h"

#include "support/env.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

HRESULT TryConnect(_Connection* connection, const std::wstring& text, const wchar_t* user = L"",
                   const wchar_t* password = L"") {
    return connection->Open(_bstr_t(text.c_str()), _bstr_t(user), _bstr_t(password), -1);
}

struct AdoError {
    long number = 0, native = 0;
    std::wstring description, source, state;
};

std::vector<AdoError> ErrorsOf(_Connection* connection) {
    std::vector<AdoError> list;
    ComPtr<Errors> errors;
    LONG count = 0;
    EXPECT_SUCCEEDED(connection->get_Errors(&errors));
    EXPECT_SUCCEEDED(errors->get_Count(&count));
    for (LONG i = 0; i < count; ++i) {
        ComPtr<Error> error;
        _bstr_t description, source, state;
        AdoError one;
        EXPECT_SUCCEEDED(errors->get_Item(_variant_t(i), &error));
        EXPECT_SUCCEEDED(error->get_Number(&one.number));
        EXPECT_SUCCEEDED(error->get_NativeError(&one.native));
        EXPECT_SUCCEEDED(error->get_Description(description.GetAddress()));
        EXPECT_SUCCEEDED(error->get_Source(source.GetAddress()));
        EXPECT_SUCCEEDED(error->get_SQLState(state.GetAddress()));
        one.description = description;
        one.source = source;
        one.state = state;
        list.push_back(one);
    }
    return list;
}

class AdoConnection : public EachEngineTest {};
INSTANTIATE_EACH_ENGINE(AdoConnection);

TEST_P(AdoConnection, OpensAndCloses) {
    const auto connection = NewConnection();
    EXPECT_EQ(adStateClosed, State(connection.Get()));
    ASSERT_SUCCEEDED(TryConnect(connection.Get(), ConnectionString()));
    EXPECT_EQ(adStateOpen, State(connection.Get()));
    ExpectError(kObjectOpen, L"not allowed when the object is open",
                TryConnect(connection.Get(), ConnectionString()));
    ExpectError(kObjectOpen, L"open", connection->put_ConnectionString(_bstr_t(L"x")));
    ExpectError(kObjectOpen, L"open", connection->put_Provider(_bstr_t(L"MSDASQL")));
    ASSERT_SUCCEEDED(connection->Close());
    EXPECT_EQ(adStateClosed, State(connection.Get()));
    ExpectError(kObjectClosed, L"not allowed when the object is closed", connection->Close());
    ASSERT_SUCCEEDED(TryConnect(connection.Get(), L"")) << "with the string of before";
    EXPECT_EQ(adStateOpen, State(connection.Get()));
}

TEST_P(AdoConnection, KeepsItsString) {
    const auto connection = NewConnection();
    ASSERT_SUCCEEDED(connection->put_ConnectionString(_bstr_t(ConnectionString().c_str())));
    ASSERT_SUCCEEDED(TryConnect(connection.Get(), L""));
    _bstr_t text;
    ASSERT_SUCCEEDED(connection->get_ConnectionString(text.GetAddress()));
    EXPECT_EQ(ConnectionString(), std::wstring(text));
}

TEST_P(AdoConnection, ClosedRefusesWork) {
    const auto connection = NewConnection();
    ComPtr<_Recordset> rs;
    LONG level = -1;
    ExpectError(kObjectClosed, L"closed",
                connection->Execute(_bstr_t(L"Select 1"), nullptr, -1, &rs));
    EXPECT_FALSE(rs);
    ExpectError(kObjectClosed, L"closed", connection->BeginTrans(&level));
    ExpectError(kObjectClosed, L"closed", connection->CommitTrans());
    ExpectError(kObjectClosed, L"closed", connection->RollbackTrans());
    EXPECT_TRUE(ErrorsOf(connection.Get()).empty());
}

TEST_P(AdoConnection, RecordsAffected) {
    Execute(Db(), L"Create Table t(a integer)");
    EXPECT_EQ(1, Affected(Db(), L"Insert Into t Values(1)"));
    EXPECT_EQ(2, Affected(Db(), L"Insert Into t Values(2),(3)"));
    EXPECT_EQ(2, Affected(Db(), L"Update t Set a=a+1 Where a>1"));
    EXPECT_EQ(0, Affected(Db(), L"Delete From t Where a=77"));
    EXPECT_EQ(3, Affected(Db(), L"Delete From t"));
    EXPECT_EQ(-1, Affected(Db(), L"Select * From t"));
}

TEST_P(AdoConnection, ExecuteReturnsRows) {
    Execute(Db(), L"Create Table t(a integer)");
    EXPECT_EQ(adStateClosed, State(Execute(Db(), L"Insert Into t Values(5)").Get()));
    const auto rs = Execute(Db(), L"t");
    EXPECT_EQ(adStateOpen, State(rs.Get()));
    EXPECT_EQ(_variant_t(5l), ValueAt(rs.Get(), L"a"));
    ComPtr<_Recordset> none;
    ASSERT_SUCCEEDED(
        Db()->Execute(_bstr_t(L"Select * From t"), nullptr, adExecuteNoRecords, &none));
    EXPECT_FALSE(none);
    ComPtr<_Recordset> table;
    ASSERT_SUCCEEDED(Db()->Execute(_bstr_t(L"t"), nullptr, adCmdTable, &table));
    EXPECT_EQ(1, Count(table.Get()));
}

TEST_P(AdoConnection, Transactions) {
    Execute(Db(), L"Create Table t(a integer)");
    LONG level = 0;
    ASSERT_SUCCEEDED(Db()->BeginTrans(&level));
    EXPECT_EQ(1, level);
    Execute(Db(), L"Insert Into t Values(1)");
    ASSERT_SUCCEEDED(Db()->RollbackTrans());
    EXPECT_EQ(_variant_t(0l), Scalar(Db(), L"Select Count(*) From t"));
    ASSERT_SUCCEEDED(Db()->BeginTrans(nullptr));
    Execute(Db(), L"Insert Into t Values(1)");
    ASSERT_SUCCEEDED(Db()->CommitTrans());
    EXPECT_EQ(_variant_t(1l), Scalar(Connect().Get(), L"Select Count(*) From t"))
        << "for others too";
    Execute(Db(), L"Insert Into t Values(2)");
    EXPECT_EQ(_variant_t(2l), Scalar(Connect().Get(), L"Select Count(*) From t"))
        << "each statement commits again";
}

TEST_P(AdoConnection, NestedTransactions) {
    Execute(Db(), L"Create Table t(a integer)");
    LONG level = 0;
    Db()->BeginTrans(&level);
    Execute(Db(), L"Insert Into t Values(1)");
    ASSERT_SUCCEEDED(Db()->BeginTrans(&level));
    EXPECT_EQ(2, level);
    Execute(Db(), L"Insert Into t Values(2)");
    ASSERT_SUCCEEDED(Db()->RollbackTrans());
    EXPECT_EQ(_variant_t(1l), Scalar(Db(), L"Select Count(*) From t"));
    ASSERT_SUCCEEDED(Db()->BeginTrans(&level));
    EXPECT_EQ(2, level);
    Execute(Db(), L"Insert Into t Values(3)");
    ASSERT_SUCCEEDED(Db()->CommitTrans());
    ASSERT_SUCCEEDED(Db()->CommitTrans());
    EXPECT_EQ(_variant_t(2l), Scalar(Connect().Get(), L"Select Count(*) From t"));
    constexpr auto kNone = static_cast<HRESULT>(0x8004D00EL);
    ExpectError(kNone, L"No transaction is active", Db()->CommitTrans());
    ExpectError(kNone, L"No transaction is active", Db()->RollbackTrans());
}

TEST_P(AdoConnection, ClosingRollsBack) {
    Execute(Db(), L"Create Table t(a integer)");
    const auto connection = Connect();
    connection->BeginTrans(nullptr);
    Execute(connection.Get(), L"Insert Into t Values(1)");
    ASSERT_SUCCEEDED(connection->Close());
    EXPECT_EQ(_variant_t(0l), Scalar(Db(), L"Select Count(*) From t"));
}

TEST_P(AdoConnection, DriverErrorsWithTheirText) {
    const wchar_t* engine = OnServer() ? L"PostgreSQL" : L"SQLite";
    ExpectError(kNoTable, L"không_có", TryExecute(Db(), L"Select * From không_có"));
    auto errors = ErrorsOf(Db());
    ASSERT_EQ(1u, errors.size());
    EXPECT_EQ(kNoTable, errors[0].number);
    EXPECT_NE(std::wstring::npos, errors[0].description.find(L"không_có"))
        << ToUtf8(errors[0].description);
    EXPECT_EQ(engine, errors[0].source);
    EXPECT_EQ(OnServer() ? L"42P01" : L"HY000", errors[0].state);
    EXPECT_EQ(1, errors[0].native);

    ExpectError(kSyntaxError, L"syntax error", TryExecute(Db(), L"Selct 1"));
    EXPECT_EQ(1u, ErrorsOf(Db()).size()) << "new errors replace the old ones";
    Execute(Db(), L"Create Table t(a integer primary key)");
    ExpectError(kSyntaxError, L"nocolumn", TryExecute(Db(), L"Select nocolumn From t"));
    Execute(Db(), L"Insert Into t Values(1)");
    ExpectError(kIntegrityViolation, L"", TryExecute(Db(), L"Insert Into t Values(1)"));
    EXPECT_EQ(_variant_t(1l), Scalar(Db(), L"Select Count(*) From t"))
        << "the next statement works";

    ComPtr<Errors> list;
    ComPtr<Error> error;
    LONG count = -1;
    ASSERT_SUCCEEDED(Db()->get_Errors(&list));
    ExpectError(kItemNotFound, L"", list->get_Item(_variant_t(9l), &error));
    ASSERT_SUCCEEDED(list->Clear());
    ASSERT_SUCCEEDED(list->get_Count(&count));
    EXPECT_EQ(0, count);
}

TEST_P(AdoConnection, RecordsetErrorsReachTheConnection) {
    const auto rs = NewRecordset();
    rs->putref_ActiveConnection(Db());
    ExpectError(kNoTable, L"nosuch", TryOpen(rs.Get(), L"nosuch"));
    EXPECT_EQ(adStateClosed, State(rs.Get()));
    ASSERT_EQ(1u, ErrorsOf(Db()).size());
    EXPECT_SUCCEEDED(TryOpen(rs.Get(), L"Select 1")) << "usable after a failure";
}

TEST_P(AdoConnection, ApostrophesInNamesAreTheEnginesSyntaxError) {
    Execute(Db(), L"Create Table [User](Code integer, Name varchar(30), [Password] integer)");
    ExpectError(
        kSyntaxError, L"Brien",
        TryExecute(Db(), L"Select * From [User] WHERE ([Name]=N'O'Brien') And ([Password]=0)"));
    ExpectError(kSyntaxError, L"", TryExecute(Db(), L"Select * From [User] Where [Name]='x"));
    ExpectError(kSyntaxError, L"", TryExecute(Db(), L"Select [Name From x"));
    EXPECT_EQ(0, Count(Execute(Db(), L"User").Get()));
}

TEST_P(AdoConnection, StatementsOfTheHostsRunAsTheyStand) {
    Execute(
        Db(),
        L"Create Table [user](Code integer, Name varchar(30), Dec varchar(30), IdGroup integer, "
        L"Password integer)");
    Execute(Db(), L"Create Table Operator(Name varchar(30), Des varchar(30), Type integer)");
    Execute(Db(), L"Create Table SubMenu(Code integer)");
    Execute(Db(), L"Create Table [Options]([Section] varchar(30), KeyName varchar(30), KeyValue "
                  L"varchar(30))");
    Execute(Db(), L"Create Table Groups(Code integer, Name varchar(30))");
    EXPECT_EQ(
        1, Affected(Db(),
                    L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values(N'Hòa','x',1,5)"));
    EXPECT_EQ(
        1,
        Affected(Db(), L"UPDATE [User] Set [Name]=N'Hoa',[Dec]='y',IdGroup=2 Where [Name]=N'Hòa'"));
    EXPECT_EQ(
        1, Affected(Db(), L"Insert Into Options([Section],KeyName,KeyValue) Values('a','b','c')"));
    EXPECT_EQ(
        1, Affected(Db(), L"Update Options Set KeyValue='d'  Where [Section]='a' And KeyName='b'"));
    for (const wchar_t* statement :
         {L"Select Code,Name,Dec from [user] Order by Code",
          L"Select Name,Des from Operator Where Type=3", L"Select * From SubMenu",
          L"Select * From [Options]", L"Groups", L"User", L"Options",
          L"Select  [Code]  from [Groups] Order by [Code]",
          L"Select * From [user] Where Name  Like N'H%'",
          L"Select * From [user] Where (Code  =  1)and(Name  LIKE  N'H%')"})
        EXPECT_SUCCEEDED(TryExecute(Db(), statement)) << ToUtf8(statement) << ToUtf8(ErrorText());
    EXPECT_EQ(0, Affected(Db(), L"Delete From Groups Where Code In (2) and (Code Not In (1,8))"));
    EXPECT_EQ(1, Affected(Db(), L"Delete from [user] Where [Name]=N'Hoa'"));
}

TEST_P(AdoConnection, DatesCompare) {
    Execute(Db(), L"Create Table t(d date)");
    Execute(Db(), L"Insert Into t Values(#1/31/2020#)");
    Execute(Db(), L"Insert Into t Values(#2/1/2020#)");
    EXPECT_EQ(_variant_t(1l), Scalar(Db(), L"Select Count(*) From t Where d>=#02/01/2020#"));
    EXPECT_EQ(_variant_t(1l), Scalar(Db(), L"Select Count(*) From t Where d=#1/31/2020#"));
}

TEST_P(AdoConnection, UnknownProviders) {
    auto connection = NewConnection();
    _bstr_t provider;
    ASSERT_SUCCEEDED(connection->get_Provider(provider.GetAddress()));
    EXPECT_STREQ(L"MSDASQL", provider);
    ASSERT_SUCCEEDED(connection->put_Provider(_bstr_t(L"Nobody.Knows.1")));
    ExpectError(kProviderNotFound, L"Provider cannot be found",
                TryConnect(connection.Get(), L"Data Source=x"));
    EXPECT_EQ(adStateClosed, State(connection.Get()));
    ExpectError(kProviderNotFound, L"Provider cannot be found",
                TryConnect(NewConnection().Get(), L"Provider=SQLOLEDB;Data Source=x"));
    ASSERT_SUCCEEDED(TryConnect(NewConnection().Get(), ConnectionString()));
}

TEST_P(AdoConnection, StringsThatAreNone) {
    ExpectError(static_cast<HRESULT>(0x80040E73L), L"initialization string",
                TryConnect(NewConnection().Get(), L"rubbish"));
    const auto connection = NewConnection();
    EXPECT_FAILED(TryConnect(connection.Get(), L"Driver={No such driver};Server=x"));
    EXPECT_NE(L"", ErrorText());
    EXPECT_FALSE(ErrorsOf(connection.Get()).empty());
    EXPECT_FAILED(TryConnect(NewConnection().Get(), L"DSN=no_such_source"));
    EXPECT_FAILED(TryConnect(NewConnection().Get(), L""));
}

// The embedded database, as Jet.
class AdoJet : public EmbeddedTest {};

TEST_F(AdoJet, ProviderFromTheProperty) {
    const auto connection = NewConnection();
    ASSERT_SUCCEEDED(connection->put_Provider(_bstr_t(L"Microsoft.Jet.OLEDB.4.0;")));
    _bstr_t provider;
    connection->get_Provider(provider.GetAddress());
    EXPECT_STREQ(L"Microsoft.Jet.OLEDB.4.0", provider);
    ASSERT_SUCCEEDED(TryConnect(connection.Get(),
                                L"Data Source=" + DatabaseFile() + L";Jet OLEDB:Engine Type=5"));
    EXPECT_EQ(_variant_t(1l), Scalar(connection.Get(), L"Select 1"));
}

TEST_F(AdoJet, ProviderAlsoInTheString) {
    const auto connection = NewConnection();
    ASSERT_SUCCEEDED(connection->put_Provider(_bstr_t(L"Microsoft.Jet.OLEDB.4.0;")));
    EXPECT_SUCCEEDED(TryConnect(connection.Get(), ConnectionString(), L"Admin", L"secret"))
        << "users of Jet do not matter";
}

TEST_F(AdoJet, AMissingFileIsNotCreated) {
    const std::wstring path = folder_->File(L"thiếu file.mdb");
    const auto connection = NewConnection();
    ExpectError(
        E_FAIL, L"Could not find file '" + path + L"'.",
        TryConnect(connection.Get(), L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(path.c_str()));
    const auto errors = ErrorsOf(connection.Get());
    ASSERT_EQ(1u, errors.size());
    EXPECT_EQ(L"Could not find file '" + path + L"'.", errors[0].description);
    EXPECT_EQ(adStateClosed, State(connection.Get()));
    ExpectError(E_FAIL, L"Could not find file",
                TryConnect(NewConnection().Get(),
                           L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder_->Path()));
    ExpectError(E_FAIL, L"Could not find file",
                TryConnect(NewConnection().Get(),
                           L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=Q:\\no\\x.mdb"));
    ASSERT_SUCCEEDED(TryConnect(connection.Get(), ConnectionString())) << "usable after a failure";
    EXPECT_TRUE(ErrorsOf(connection.Get()).empty());
}

TEST_F(AdoJet, WhatIsNoDatabaseIsRefused) {
    const std::wstring path = folder_->File(L"text.mdb");
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, std::string(5000, 'x').data(), 5000, &written, nullptr);
    CloseHandle(file);
    ExpectError(
        E_FAIL, L"Unrecognized database format '" + path + L"'.",
        TryConnect(NewConnection().Get(), L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path));
}

TEST_F(AdoJet, RelativePathsStartAtTheCurrentFolder) {
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    SetCurrentDirectoryW(folder_->Path().c_str());
    EXPECT_SUCCEEDED(TryConnect(NewConnection().Get(),
                                L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=.\\host.db"));
    SetCurrentDirectoryW(before);
}

TEST_F(AdoJet, VietnameseFileNames) {
    const std::wstring path = folder_->File(L"dữ liệu.db");
    Execute(Db(), L"Create Table t(a integer)");
    Db()->Close();
    if (!CopyFileW(DatabaseFile().c_str(), path.c_str(), TRUE))
        GTEST_SKIP() << "Wine runs in a locale whose files cannot have such names: NOT TESTED";
    const auto connection = NewConnection();
    ASSERT_SUCCEEDED(
        TryConnect(connection.Get(), L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path));
    EXPECT_EQ(0, Count(Execute(connection.Get(), L"t").Get()));
}

TEST_F(AdoJet, TheSameFileThroughItsDriver) {
    Execute(Db(), L"Create Table t(a varchar(10))");
    Execute(Db(), L"Insert Into t Values('Đây')");
    const auto connection = NewConnection();
    ASSERT_SUCCEEDED(TryConnect(connection.Get(), L"Driver={SQLite3};Database=" + DatabaseFile()))
        << ToUtf8(ErrorText());
    EXPECT_EQ(_variant_t(L"Đây"), Scalar(connection.Get(), L"Select a From t"));
    const auto again = NewConnection();
    ASSERT_SUCCEEDED(
        TryConnect(again.Get(), L"Provider=MSDASQL;Extended Properties=\"Driver=SQLite3;Database=" +
                                    DatabaseFile() + L"\""));
    EXPECT_EQ(_variant_t(L"Đây"), Scalar(again.Get(), L"Select a From t"));
}

// The server's own failures to connect.
class AdoServer : public AdoTest {
protected:
    void SetUp() override { OpenDatabase(Engine::Server); }
};

TEST_F(AdoServer, FailuresToConnectSayWhy) {
    const auto connection = NewConnection();
    EXPECT_FAILED(TryConnect(connection.Get(), ConnectionString() + L";Database=không_có"));
    const auto errors = ErrorsOf(connection.Get());
    ASSERT_FALSE(errors.empty());
    EXPECT_NE(std::wstring::npos, errors[0].description.find(L"không_có"))
        << ToUtf8(errors[0].description);
    EXPECT_EQ(L"08001", errors[0].state);
}

TEST_F(AdoServer, UserFromTheArguments) {
    const auto connection = NewConnection();
    EXPECT_FAILED(TryConnect(connection.Get(), ConnectionString(), L"no_such_user", L"x"));
    EXPECT_NE(std::wstring::npos, ErrorText().find(L"no_such_user"));
}

} // namespace
