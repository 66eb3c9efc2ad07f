// SPDX-License-Identifier: MIT
// Commands: what they run, on which connection, with which parameters.
#include "wine/ado_commands.h"

#include "support/new_object.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

constexpr HRESULT kNoCommand = static_cast<HRESULT>(0x80040E0CL);
constexpr HRESULT kInCollection = static_cast<HRESULT>(0x800A0D27L);
constexpr HRESULT kCommandHasConnection = static_cast<HRESULT>(0x800A0E7BL);

class AdoCommand : public EachEngineTest {
protected:
    void SetUp() override {
        EachEngineTest::SetUp();
        if (!Db())
            return;
        Execute(Db(), L"Create Table t(a integer, b varchar(30))");
        Execute(Db(), L"Insert Into t Values(1,'một'),(2,'hai'),(3,null)");
    }
    long Rows() const { return Scalar(Db(), L"Select Count(*) From t"); }
    ComPtr<_Command> Insert() const {
        return NewCommand(Db(), L"Insert Into [t]([a],[b]) Values(?,?)",
                          {{adInteger, 7l}, {adVarWChar, L"bảy"}});
    }
};
INSTANTIATE_EACH_ENGINE(AdoCommand);

TEST_P(AdoCommand, RunsWithItsValues) {
    EXPECT_EQ(1, Changed(Insert().Get()));
    EXPECT_EQ(L"bảy", TextAt(Execute(Db(), L"Select b From t Where a=7").Get(), 0l));
    const auto command = NewCommand(Db(), L"Select b From [t] Where a In (?,?) Order By a",
                                    {{adInteger, 2l}, {adInteger, 7l}});
    const auto rows = RowsOf(command.Get());
    EXPECT_EQ(2, Count(rows.Get()));
    EXPECT_EQ(L"hai", TextAt(rows.Get(), L"b"));
    EXPECT_EQ(adStateOpen, State(rows.Get()));
    EXPECT_EQ(adStateClosed, State(RowsOf(Insert().Get()).Get())) << "no rows";
    ComPtr<_Recordset> none;
    ASSERT_SUCCEEDED(command->Execute(nullptr, nullptr, adExecuteNoRecords, &none));
    EXPECT_FALSE(none);
    _variant_t affected;
    ASSERT_SUCCEEDED(command->Execute(&affected, nullptr, -1, &none));
    EXPECT_EQ(_variant_t(-1l), affected);
}

TEST_P(AdoCommand, RunsAgainWithOtherValues) {
    const auto command = Insert();
    ComPtr<_Parameter> first;
    ASSERT_SUCCEEDED(ParametersOf(command.Get())->get_Item(_variant_t(0l), &first));
    for (long i = 10; i < 15; ++i) {
        ASSERT_SUCCEEDED(first->put_Value(_variant_t(i)));
        EXPECT_EQ(1, Changed(command.Get()));
    }
    EXPECT_EQ(_variant_t(60l), Scalar(Db(), L"Select Sum(a) From t Where b='bảy'"));
}

TEST_P(AdoCommand, TablesAndStatementsWithoutParameters) {
    const auto command = NewCommand(Db(), L"t");
    EXPECT_EQ(3, Count(RowsOf(command.Get()).Get())) << "a name alone opens that table";
    ASSERT_SUCCEEDED(command->put_CommandType(adCmdTable));
    EXPECT_EQ(3, Count(RowsOf(command.Get()).Get()));
    ASSERT_SUCCEEDED(command->put_CommandType(adCmdText));
    ASSERT_SUCCEEDED(command->put_CommandText(_bstr_t(L"Delete From t Where a=1")));
    EXPECT_EQ(1, Changed(command.Get()));
    ASSERT_SUCCEEDED(command->put_CommandText(_bstr_t(L"t")));
    ComPtr<_Recordset> rows;
    ASSERT_SUCCEEDED(command->Execute(nullptr, nullptr, adCmdTable, &rows));
    EXPECT_EQ(2, Count(rows.Get()));
}

TEST_P(AdoCommand, StoredProceduresAreRefused) {
    const auto command = NewCommand(Db(), L"t");
    ExpectError(E_NOTIMPL, L"Stored procedures", command->put_CommandType(adCmdStoredProc));
    ExpectError(E_NOTIMPL, L"Stored procedures", command->put_CommandType(adCmdFile));
    ExpectError(kInvalidArgument, L"", command->put_CommandType(static_cast<CommandTypeEnum>(77)));
    ComPtr<_Recordset> rows;
    ExpectError(E_NOTIMPL, L"Stored procedures",
                command->Execute(nullptr, nullptr, adCmdStoredProc, &rows));
    ExpectError(E_NOTIMPL, L"ADODB.Command.Cancel", command->Cancel());
    CommandTypeEnum type = adCmdFile;
    ASSERT_SUCCEEDED(command->get_CommandType(&type));
    EXPECT_EQ(adCmdUnknown, type);
}

TEST_P(AdoCommand, KeepsWhatItIsTold) {
    const auto command = NewObject<_Command>(L"ADODB.Command");
    LONG seconds = 0, state = -1;
    VARIANT_BOOL prepared = VARIANT_TRUE;
    _bstr_t text, name;
    command->get_CommandTimeout(&seconds);
    command->get_Prepared(&prepared);
    command->get_CommandText(text.GetAddress());
    command->get_State(&state);
    EXPECT_EQ(30, seconds);
    EXPECT_EQ(VARIANT_FALSE, prepared);
    EXPECT_STREQ(L"", text);
    EXPECT_EQ(adStateClosed, state);
    ASSERT_SUCCEEDED(command->put_CommandTimeout(0));
    ASSERT_SUCCEEDED(command->put_Prepared(VARIANT_TRUE));
    ASSERT_SUCCEEDED(command->put_CommandText(_bstr_t(L"Lệnh")));
    ASSERT_SUCCEEDED(command->put_Name(_bstr_t(L"Tên")));
    ExpectError(kInvalidArgument, L"", command->put_CommandTimeout(-1));
    command->get_CommandTimeout(&seconds);
    command->get_Prepared(&prepared);
    command->get_CommandText(text.GetAddress());
    command->get_Name(name.GetAddress());
    EXPECT_EQ(0, seconds);
    EXPECT_EQ(VARIANT_TRUE, prepared);
    EXPECT_STREQ(L"Lệnh", text);
    EXPECT_STREQ(L"Tên", name);
    EXPECT_EQ(E_POINTER, command->get_CommandText(nullptr));
}

TEST_P(AdoCommand, NeedsAnOpenConnection) {
    const auto command = NewObject<_Command>(L"ADODB.Command");
    command->put_CommandText(_bstr_t(L"Select 1"));
    ExpectError(kInvalidConnection, L"closed", TryRun(command.Get()));
    ComPtr<_Connection> connection;
    ASSERT_SUCCEEDED(command->get_ActiveConnection(&connection));
    EXPECT_FALSE(connection);
    ExpectError(kInvalidConnection, L"closed",
                command->putref_ActiveConnection(NewConnection().Get()));
    ExpectError(kInvalidArgument, L"", command->put_ActiveConnection(_variant_t(5l)));
    ExpectError(
        kInvalidArgument, L"",
        command->put_ActiveConnection(_variant_t(static_cast<IDispatch*>(NewRecordset().Get()))));
    ASSERT_SUCCEEDED(command->put_ActiveConnection(_variant_t(ConnectionString().c_str())));
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get()));
    ASSERT_SUCCEEDED(command->put_ActiveConnection(_variant_t(static_cast<IDispatch*>(Db()))));
    ASSERT_SUCCEEDED(command->get_ActiveConnection(&connection));
    EXPECT_EQ(Db(), connection.Get());
    command->put_CommandText(_bstr_t(L""));
    ExpectError(kNoCommand, L"Command text was not set", TryRun(command.Get()));
    ASSERT_SUCCEEDED(command->putref_ActiveConnection(nullptr));
    ExpectError(kInvalidConnection, L"closed", TryRun(command.Get()));
    const auto other = Connect();
    ASSERT_SUCCEEDED(command->putref_ActiveConnection(other.Get()));
    other->Close();
    ExpectError(kInvalidConnection, L"closed", TryRun(command.Get()));
}

TEST_P(AdoCommand, ValuesGivenWithExecuteWin) {
    const auto command = NewCommand(Db(), L"Select Count(*) From t Where a=? And b=?",
                                    {{adInteger, 1l}, {adVarWChar, L"hai", 10}});
    EXPECT_EQ(_variant_t(0l), ScalarOf(command.Get()));
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get(), ArrayOf({2l, L"hai"})));
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get(), ArrayOf({2l}))) << "the others stay";
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get(), 2l)) << "a single one needs no array";
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get(), ArrayOf({Missing(), L"một"})));
    EXPECT_EQ(_variant_t(0l), ScalarOf(command.Get())) << "for that run only";
    EXPECT_EQ(_variant_t(0l), ScalarOf(command.Get(), ArrayOf({})));
    ExpectError(kWrongType, L"wrong type", TryRun(command.Get(), ArrayOf({L"x", L"hai"})));
    ExpectError(kWrongType, L"wrong type",
                TryRun(command.Get(), ArrayOf({1l, L"longer than ten"})));
    const auto bare = NewCommand(Db(), L"Select Count(*) From t Where a=? And b=?");
    EXPECT_EQ(_variant_t(1l), ScalarOf(bare.Get(), ArrayOf({2l, L"hai"}))) << "of their own types";
    SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
    _variant_t square;
    V_ARRAY(&square) = SafeArrayCreate(VT_VARIANT, 2, bounds);
    V_VT(&square) = VT_ARRAY | VT_VARIANT;
    ExpectError(kInvalidArgument, L"", TryRun(bare.Get(), square));
}

TEST_P(AdoCommand, ValuesMustBeAsManyAsQuestionMarks) {
    const wchar_t* insert = L"Insert Into t(a,b) Values(?,?)";
    const auto one = NewCommand(Db(), insert, {{adInteger, 7l}});
    const auto three =
        NewCommand(Db(), insert, {{adInteger, 7l}, {adVarWChar, L"x"}, {adInteger, 8l}});
    const auto none = NewCommand(Db(), insert);
    const auto unwanted = NewCommand(Db(), L"Insert Into t(a) Values(8)", {{adInteger, 7l}});
    for (const auto& command : {one, three, none, unwanted}) {
        ExpectError(E_FAIL, L"arameter", TryRun(command.Get()));
        ComPtr<Errors> errors;
        LONG count = 0;
        Db()->get_Errors(&errors);
        errors->get_Count(&count);
        EXPECT_EQ(1, count);
        EXPECT_EQ(3, Rows());
    }
    EXPECT_EQ(1, Changed(Insert().Get()));
}

TEST_P(AdoCommand, QuestionMarksThatAreNone) {
    Execute(Db(), L"Create Table odd(\"a?\" varchar(10), \"it's\" varchar(10), plain varchar(10))");
    const wchar_t* text = L"Select '?''?', /* ? ' */ [a?], [it's], ? As c, plain -- it's ?\n"
                          L"From odd Where [plain]=? -- ?";
    EXPECT_EQ(1, Written(Db(), L"Insert Into [odd]([a?],[it's],[plain]) Values(?,?,?) -- ?",
                         {{adVarWChar, L"?"}, {adVarWChar, L"'"}, {adVarWChar, L"{d}"}}));
    const auto rows =
        RowsOf(NewCommand(Db(), text, {{adVarWChar, L"/*"}, {adVarWChar, L"{d}"}}).Get());
    ASSERT_EQ(1, Count(rows.Get()));
    EXPECT_EQ(L"?'?", TextAt(rows.Get(), 0l));
    EXPECT_EQ(L"?", TextAt(rows.Get(), L"a?"));
    EXPECT_EQ(L"'", TextAt(rows.Get(), L"it's"));
    EXPECT_EQ(L"/*", TextAt(rows.Get(), L"c"));
}

TEST_P(AdoCommand, TheDriversErrorsReachTheConnection) {
    ExpectError(kNoTable, L"nosuch",
                TryWrite(Db(), L"Insert Into nosuch Values(?)", {{adInteger, 1l}}));
    ExpectError(kSyntaxError, L"syntax error", TryWrite(Db(), L"Selct ?", {{adInteger, 1l}}));
    Execute(Db(), L"Create Table k(a integer primary key)");
    EXPECT_EQ(1, Written(Db(), L"Insert Into k Values(?)", {{adInteger, 1l}}));
    ExpectError(kIntegrityViolation, L"",
                TryWrite(Db(), L"Insert Into k Values(?)", {{adInteger, 1l}}));
    ComPtr<Errors> errors;
    LONG count = 0;
    Db()->get_Errors(&errors);
    errors->get_Count(&count);
    EXPECT_EQ(1, count);
    EXPECT_EQ(_variant_t(1l), Scalar(Db(), L"Select Count(*) From k"));
}

TEST_P(AdoCommand, InTransactions) {
    Execute(Db(), L"Create Table k(a integer primary key)");
    const auto insert = NewCommand(Db(), L"Insert Into k Values(?)", {{adInteger, 1l}});
    Db()->BeginTrans(nullptr);
    EXPECT_EQ(1, Changed(insert.Get()));
    ASSERT_SUCCEEDED(Db()->RollbackTrans());
    EXPECT_EQ(_variant_t(0l), Scalar(Db(), L"Select Count(*) From k"));

    Db()->BeginTrans(nullptr);
    EXPECT_EQ(1, Changed(insert.Get()));
    ExpectError(kIntegrityViolation, L"", TryRun(insert.Get()));
    ExpectError(kWrongType, L"", TryRun(insert.Get(), L"x"));
    EXPECT_EQ(1, Written(Db(), L"Insert Into k Values(?)", {{adInteger, 2l}}))
        << "a failure leaves the transaction as it was";
    EXPECT_EQ(_variant_t(2l), Asked(Db(), L"Select Count(*) From k Where a<?", {{adInteger, 9l}}));
    ASSERT_SUCCEEDED(Db()->CommitTrans());
    EXPECT_EQ(_variant_t(2l), Scalar(Connect().Get(), L"Select Count(*) From k"));

    const auto other = Connect();
    other->BeginTrans(nullptr);
    EXPECT_EQ(1, Written(other.Get(), L"Insert Into k Values(?)", {{adInteger, 3l}}));
    const auto left =
        RowsOf(NewCommand(other.Get(), L"Select * From k Where a<?", {{adInteger, 9l}}).Get());
    ASSERT_SUCCEEDED(other->Close());
    EXPECT_EQ(adStateClosed, State(left.Get()));
    EXPECT_EQ(_variant_t(2l), Scalar(Db(), L"Select Count(*) From k"));
}

TEST_P(AdoCommand, OpensRecordsets) {
    const auto command =
        NewCommand(Db(), L"Select b From t Where a>=? Order By a", {{adInteger, 2l}});
    const _variant_t source(static_cast<IDispatch*>(command.Get()));
    const auto rs = NewRecordset();
    ASSERT_SUCCEEDED(rs->Open(source, Missing(), adOpenStatic, adLockReadOnly, adCmdTable))
        << "the command's own kind counts";
    EXPECT_EQ(2, Count(rs.Get()));
    _variant_t text, connection;
    ASSERT_SUCCEEDED(rs->get_Source(&text));
    EXPECT_EQ(_variant_t(L"Select b From t Where a>=? Order By a"), text);
    ASSERT_SUCCEEDED(rs->get_ActiveConnection(&connection));
    EXPECT_EQ(static_cast<IDispatch*>(Db()), V_DISPATCH(&connection));
    ExpectError(kObjectOpen, L"open", rs->putref_Source(command.Get()));
    rs->Close();
    ExpectError(kCommandHasConnection, L"ActiveConnection",
                TryOpen(rs.Get(), source, static_cast<IDispatch*>(Db())));
    ComPtr<_Parameter> first;
    ParametersOf(command.Get())->get_Item(_variant_t(0l), &first);
    first->put_Value(_variant_t(3l));
    ASSERT_SUCCEEDED(TryOpen(rs.Get(), Missing())) << "it is still the source";
    EXPECT_EQ(1, Count(rs.Get()));
    rs->Close();
    ASSERT_SUCCEEDED(rs->put_Source(_bstr_t(L"Select 5")));
    ASSERT_SUCCEEDED(TryOpen(rs.Get(), Missing()));
    EXPECT_EQ(_variant_t(5l), ValueAt(rs.Get(), 0l));

    const auto set = NewRecordset();
    ASSERT_SUCCEEDED(set->putref_Source(command.Get()));
    ExpectError(kCommandHasConnection, L"", set->putref_ActiveConnection(Db()));
    ASSERT_SUCCEEDED(TryOpen(set.Get(), Missing()));
    EXPECT_EQ(1, Count(set.Get()));
    ASSERT_SUCCEEDED(set->putref_ActiveConnection(nullptr)) << "the rows live on";
    EXPECT_EQ(1, Count(set.Get()));
    ExpectError(E_NOTIMPL, L"ActiveCommand", [&] {
        ComPtr<IDispatch> active;
        return set->get_ActiveCommand(&active);
    }());
    ExpectError(kInvalidArgument, L"", NewRecordset()->putref_Source(nullptr));
    ExpectError(E_NOTIMPL, L"", NewRecordset()->putref_Source(rs.Get()));
    const auto idle = NewObject<_Command>(L"ADODB.Command");
    ExpectError(kInvalidConnection, L"",
                TryOpen(NewRecordset().Get(), static_cast<IDispatch*>(idle.Get())));
}

TEST_P(AdoCommand, TraceHasNoValues) {
    TempDir folder;
    const std::wstring path = folder.File(L"trace.txt");
    SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", path.c_str());
    Changed(Insert().Get());
    NewRecordset();
    SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", nullptr);
    EXPECT_EQ(L"Insert Into [t]([a],[b]) Values(?,?)\n", ReadUtf8File(path));
}

class AdoParameters : public EmbeddedTest {
protected:
    static long CountOf(Parameters* parameters) {
        LONG count = -77;
        EXPECT_SUCCEEDED(parameters->get_Count(&count));
        return count;
    }
    static std::wstring NameAt(Parameters* parameters, const _variant_t& index) {
        ComPtr<_Parameter> parameter;
        _bstr_t name;
        EXPECT_SUCCEEDED(parameters->get_Item(index, &parameter));
        if (parameter)
            parameter->get_Name(name.GetAddress());
        return name.length() ? std::wstring(name) : L"";
    }
};

TEST_F(AdoParameters, AreAppendedFoundAndDeleted) {
    const auto command = NewCommand(Db(), L"Select ?");
    const auto list = ParametersOf(command.Get());
    EXPECT_EQ(0, CountOf(list.Get()));
    const auto first = NewParameter(adInteger, 1l, 0, L"Mã");
    const auto second = NewParameter(adVarWChar, L"x", 0, L"Tên");
    ASSERT_SUCCEEDED(list->Append(first.Get()));
    ASSERT_SUCCEEDED(list->Append(second.Get()));
    EXPECT_EQ(2, CountOf(ParametersOf(command.Get()).Get())) << "one list";
    EXPECT_EQ(L"Tên", NameAt(list.Get(), 1l));
    EXPECT_EQ(L"Mã", NameAt(list.Get(), L"MÃ"));
    ComPtr<_Parameter> found;
    ASSERT_SUCCEEDED(list->get_Item(_variant_t(L"tên"), &found));
    EXPECT_EQ(second.Get(), found.Get()) << "the very object that was appended";
    for (const _variant_t& index : {_variant_t(2l), _variant_t(-1l), _variant_t(L"no")}) {
        ExpectError(kItemNotFound, L"cannot be found", list->get_Item(index, &found));
        EXPECT_FALSE(found);
        ExpectError(kItemNotFound, L"cannot be found", list->Delete(index));
    }
    ExpectError(kInCollection, L"already in collection", list->Append(first.Get()));
    const auto other = NewCommand(Db(), L"Select ?");
    ExpectError(kInCollection, L"already in collection", TryAppend(other.Get(), first.Get()));
    ExpectError(kInvalidArgument, L"", list->Append(nullptr));
    ExpectError(kInvalidArgument, L"", list->Append(Db()));
    ASSERT_SUCCEEDED(list->Delete(_variant_t(L"MÃ")));
    EXPECT_EQ(1, CountOf(list.Get()));
    EXPECT_SUCCEEDED(TryAppend(other.Get(), first.Get()));
    ExpectError(E_NOTIMPL, L"Refresh", list->Refresh());
}

TEST_F(AdoParameters, AreFreeWhenTheirCommandIsGone) {
    const auto parameter = NewParameter(adInteger, 1l);
    auto command = NewCommand(Db(), L"Select ?");
    const auto list = ParametersOf(command.Get());
    ASSERT_SUCCEEDED(list->Append(parameter.Get()));
    command.Reset();
    EXPECT_EQ(1, CountOf(list.Get())) << "who holds the list keeps it";
    const_cast<ComPtr<Parameters>&>(list).Reset();
    command = NewCommand(Db(), L"Select ?");
    EXPECT_SUCCEEDED(TryAppend(command.Get(), parameter.Get()));
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get()));
}

TEST_F(AdoParameters, MustBeDefined) {
    const auto command = NewCommand(Db(), L"Select ?");
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    ExpectError(kImproperlyDefined, L"improperly defined",
                TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Type(adVarWChar));
    ExpectError(kImproperlyDefined, L"improperly defined",
                TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Size(5));
    ASSERT_SUCCEEDED(TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Type(adEmpty));
    ExpectError(kImproperlyDefined, L"improperly defined", TryRun(command.Get()));
    for (const long type : {12345l, static_cast<long>(adIDispatch), -1l})
        ExpectError(kInvalidArgument, L"", parameter->put_Type(static_cast<DataTypeEnum>(type)));
    ASSERT_SUCCEEDED(parameter->put_Type(adVarWChar));
    ExpectError(kInvalidArgument, L"",
                parameter->put_Direction(static_cast<ParameterDirectionEnum>(9)));
    ASSERT_SUCCEEDED(parameter->put_Direction(adParamOutput));
    ExpectError(E_NOTIMPL, L"return values", TryRun(command.Get()));
    ExpectError(E_NOTIMPL, L"AppendChunk", parameter->AppendChunk(_variant_t(L"x")));
}

TEST_F(AdoParameters, KeepWhatTheyAreTold) {
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    ASSERT_SUCCEEDED(parameter->put_Name(_bstr_t(L"Tên")));
    ASSERT_SUCCEEDED(parameter->put_Type(adNumeric));
    ASSERT_SUCCEEDED(parameter->put_Size(9));
    ASSERT_SUCCEEDED(parameter->put_Precision(18));
    ASSERT_SUCCEEDED(parameter->put_NumericScale(4));
    ASSERT_SUCCEEDED(parameter->put_Attributes(64));
    ASSERT_SUCCEEDED(parameter->put_Value(_variant_t(L"12")));
    DataTypeEnum type = adEmpty;
    ParameterDirectionEnum direction = adParamUnknown;
    ADO_LONGPTR size = 0;
    unsigned char precision = 0, scale = 0;
    LONG attributes = 0;
    _variant_t value;
    parameter->get_Type(&type);
    parameter->get_Direction(&direction);
    parameter->get_Size(&size);
    parameter->get_Precision(&precision);
    parameter->get_NumericScale(&scale);
    parameter->get_Attributes(&attributes);
    parameter->get_Value(&value);
    EXPECT_EQ(adNumeric, type);
    EXPECT_EQ(adParamInput, direction);
    EXPECT_EQ(9, size);
    EXPECT_EQ(18, precision);
    EXPECT_EQ(4, scale);
    EXPECT_EQ(64, attributes);
    EXPECT_EQ(_variant_t(L"12"), value) << "as it was given";
}

TEST_F(AdoParameters, AreSafeFromBadVariants) {
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    VARIANT bad = {};
    const auto refuses = [&](VARTYPE type) {
        V_VT(&bad) = type;
        EXPECT_FAILED(parameter->put_Value(bad)) << type;
        ErrorText();
    };
    parameter->put_Type(adInteger);
    for (const VARTYPE type :
         {VARTYPE(VT_BYREF | VT_VARIANT), VARTYPE(VT_BYREF | VT_I4), VARTYPE(VT_BYREF | VT_BSTR),
          VARTYPE(VT_DISPATCH), VARTYPE(VT_UNKNOWN), VARTYPE(VT_ERROR), VARTYPE(VT_ARRAY | VT_UI1),
          VARTYPE(VT_ARRAY | VT_VARIANT), VARTYPE(VT_BSTR), VARTYPE(0x1234)})
        refuses(type);
    V_BYREF(&bad) = &bad; // in a circle
    refuses(VT_BYREF | VT_VARIANT);
    parameter->put_Type(adVarBinary);
    bad = {};
    refuses(VT_ARRAY | VT_UI1);
    refuses(VT_BSTR);
    refuses(VT_I4);
    _variant_t number(7l), reference, deeper;
    V_VT(&reference) = VT_BYREF | VT_I4;
    V_I4REF(&reference) = &V_I4(&number);
    VARIANT through = {};
    V_VT(&through) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&through) = &reference;
    parameter->put_Type(adInteger);
    ASSERT_SUCCEEDED(parameter->put_Value(through));
    V_I4(&number) = 8;
    ASSERT_SUCCEEDED(parameter->get_Value(&deeper));
    EXPECT_EQ(_variant_t(7l), deeper) << "its own copy";
}

TEST_F(AdoParameters, TakeTheDefaultValueOfObjects) {
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    parameter->put_Type(adInteger);
    const auto rows = Execute(Db(), L"Select 41+1 As n");
    const _variant_t field(static_cast<IDispatch*>(FieldAt(rows.Get(), L"n").Get()));
    ASSERT_SUCCEEDED(parameter->put_Value(field));
    _variant_t value;
    parameter->get_Value(&value);
    EXPECT_EQ(_variant_t(42l), value);
    const auto command = NewCommand(Db(), L"Select ?");
    EXPECT_EQ(_variant_t(42l), ScalarOf(command.Get(), ArrayOf({field})));
    ExpectError(kWrongType, L"",
                parameter->put_Value(_variant_t(static_cast<IDispatch*>(rows.Get()))));
}

} // namespace
