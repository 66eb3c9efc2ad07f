// SPDX-License-Identifier: MIT
// The ADO for Wine as VBScript and JScript use it: late bound, with default members.
#include "wine/ado_commands.h"

#include "support/late_bound.h"
#include "support/script_host.h"

namespace {

using namespace vndesk::test;

// Wine's script engines never release the class object that CreateObject asks for. They get this
// one, which counts nothing, so that objects of the bridge that are really left over can be told.
class LastingFactory : public IClassFactory {
public:
    explicit LastingFactory(const wchar_t* progId) {
        CLSIDFromProgID(progId, &clsid_);
        CoRegisterClassObject(clsid_, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
    }
    ~LastingFactory() { CoRevokeClassObject(cookie_); }
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        ComPtr<IClassFactory> real;
        const HRESULT found = Bridge::ClassObject(clsid_, &real);
        return FAILED(found) ? found : real->CreateInstance(outer, iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    CLSID clsid_ = {};
    DWORD cookie_ = 0;
};

class AdoScript : public EachEngineTest {
    LastingFactory connections_{L"ADODB.Connection"};
    LastingFactory recordsets_{L"ADODB.Recordset"};
    LastingFactory commands_{L"ADODB.Command"};
    LastingFactory parameters_{L"ADODB.Parameter"};

protected:
    std::wstring Opening() const {
        return L"Dim cn, rs, n\n"
               L"Set cn = CreateObject(\"ADODB.Connection\")\n"
               L"cn.Open \"" +
               ConnectionString() + L"\"\n";
    }
    void SetUp() override {
        EachEngineTest::SetUp();
        if (!Db())
            return;
        // Temporary tables: each connection has its own, so scripts need no clean-up.
        create_ = L"cn.Execute \"Create Temporary Table [t](code integer, name varchar(30))\"\n"
                  L"cn.Execute \"Insert Into t Values(1,N'Người'),(2,N'dùng'),(3,null)\", n\n";
    }
    std::wstring create_;
};

INSTANTIATE_EACH_ENGINE(AdoScript);

TEST_P(AdoScript, ReadsAndWrites) {
    ScriptRunner script;
    script.RunOk(Opening() + create_ +
                 L"Echo n & \" \" & TypeName(n)\n"
                 L"Set rs = CreateObject(\"ADODB.Recordset\")\n"
                 L"Set rs.ActiveConnection = cn\n"
                 L"sql = \"Select * From t Order By code\"\n"
                 L"rs.Open sql\n"
                 L"Echo rs.RecordCount & rs.Fields.Count & rs.State & cn.State\n"
                 L"Do Until rs.EOF\n"
                 L"  Echo rs(\"code\") & rs(\"NAME\").Value & rs.Fields(1) & "
                 L"rs.Fields(\"code\").Value & \"|\" & IsNull(rs(1).Value)\n"
                 L"  rs.MoveNext\n"
                 L"Loop\n"
                 L"rs.MoveFirst\n"
                 L"x = rs(\"name\")\n"
                 L"Echo x & rs.Fields.Item(\"name\").Name & rs(0).Type\n"
                 L"rs.Close\n");
    const std::vector<std::wstring> expected = {
        L"3 Long", L"3211", L"1NgườiNgười1|False", L"2dùngdùng2|False", L"33|True", L"Ngườiname3"};
    EXPECT_EQ(expected, script.Lines());
}

TEST_P(AdoScript, ForEachAndGetRows) {
    ScriptRunner script;
    script.RunOk(Opening() + create_ +
                 L"Set rs = cn.Execute(\"Select * From t Order By code\")\n"
                 L"For Each f In rs.Fields\n"
                 L"  names = names & f.Name & \";\"\n"
                 L"Next\n"
                 L"Echo names\n"
                 L"a = rs.GetRows()\n"
                 L"Echo UBound(a,1) & UBound(a,2) & a(1,0) & a(0,2)\n"
                 L"Echo rs.EOF\n");
    EXPECT_EQ((std::vector<std::wstring>{L"code;name;", L"12Người3", L"True"}), script.Lines());
}

TEST_P(AdoScript, ErrorsHaveNumbersAndText) {
    ScriptRunner script;
    script.RunOk(Opening() + create_ +
                 L"On Error Resume Next\n"
                 L"cn.Execute \"Select * From nosuch\"\n"
                 L"Echo Hex(Err.Number) & (InStr(Err.Description, \"nosuch\") > 0) & "
                 L"cn.Errors.Count & cn.Errors(0).SQLState\n"
                 L"Echo CStr(cn.Errors(0).Description = cn.Errors(0))\n"
                 L"For Each e In cn.Errors\n"
                 L"  Echo Hex(e.Number)\n"
                 L"Next\n"
                 L"Err.Clear\n"
                 L"Set rs = cn.Execute(\"t\")\n"
                 L"x = rs(\"none\")\n"
                 L"Echo CStr(Err.Number And 65535) & Err.Description\n"
                 L"Err.Clear\n"
                 L"x = rs.Fields(\"none\").Value\n"
                 L"Echo Err.Number And 65535\n"
                 L"Err.Clear\n"
                 L"rs.AddNew\n"
                 L"Echo Hex(Err.Number)\n");
    ASSERT_EQ(6u, script.Lines().size());
    EXPECT_EQ(OnServer() ? L"80040E37True142P01" : L"80040E37True1HY000", script.Lines()[0]);
    EXPECT_EQ(L"True", script.Lines()[1]);
    EXPECT_EQ(L"80040E37", script.Lines()[2]);
    EXPECT_EQ(L"3265Item cannot be found in the collection corresponding to the requested name or "
              L"ordinal.",
              script.Lines()[3]);
    EXPECT_EQ(L"3265", script.Lines()[4]);
    EXPECT_EQ(L"80004001", script.Lines()[5]);
}

TEST_P(AdoScript, ConnectionAsTextAndOptionalArguments) {
    ScriptRunner script;
    script.RunOk(L"Set rs = CreateObject(\"ADODB.Recordset\")\n"
                 L"text = \"" +
                 ConnectionString() +
                 L"\"\n"
                 L"rs.Open \"Select 7 As n\", text, 3, 1\n"
                 L"Echo rs(\"n\") & rs.CursorType & rs.LockType\n"
                 L"rs.Close\n"
                 L"rs.ActiveConnection = text\n"
                 L"rs.Open \"Select 8\"\n"
                 L"Echo rs(0)\n"
                 L"Echo rs.ActiveConnection.State\n");
    EXPECT_EQ((std::vector<std::wstring>{L"731", L"8", L"1"}), script.Lines());
}

TEST_P(AdoScript, JScript) {
    ScriptRunner script(L"JScript");
    script.RunOk(L"var cn = new ActiveXObject('ADODB.Connection');"
                 L"cn.Open(\"" +
                 [&] {
                     std::wstring text = ConnectionString();
                     for (size_t i = text.find(L'\\'); i != std::wstring::npos;
                          i = text.find(L'\\', i + 2))
                         text.insert(i, 1, L'\\');
                     return text;
                 }() +
                 L"\");"
                 L"var rs = cn.Execute(\"Select 5 As a, 'Người' As b\");"
                 L"Echo(rs.Fields('a').Value + rs.Fields.Item(1).Value + rs.RecordCount);"
                 L"rs.MoveNext();"
                 L"try { rs.MoveNext(); } catch (e) { Echo((e.number & 0xFFFF) + "
                 L"e.description.substr(0, 20)); }");
    EXPECT_EQ((std::vector<std::wstring>{L"5Người1", L"3021Either BOF or EOF is"}), script.Lines());
}

TEST_P(AdoScript, TransactionsLateBound) {
    ScriptRunner script;
    script.RunOk(Opening() + create_ +
                 L"Echo cn.BeginTrans\n"
                 L"cn.Execute \"Delete From t\", n\n"
                 L"Echo n\n"
                 L"n = \"a text before\"\n"
                 L"cn.Execute \"Insert Into t Values(4,'x')\", n\n"
                 L"Echo n & TypeName(n)\n"
                 L"cn.RollbackTrans\n"
                 L"Echo cn.Execute(\"Select Count(*) From t\")(0)\n");
    EXPECT_EQ((std::vector<std::wstring>{L"1", L"3", L"1Long", L"3"}), script.Lines());
}

TEST_P(AdoScript, NamesAndNumbersByHand) {
    const LateBound connection = LateBound::Create(L"ADODB.Connection");
    connection.Call(L"Open", {ConnectionString().c_str()});
    _variant_t affected;
    connection.Call(L"Execute", {L"Create Temporary Table x(a integer)", ByRef(affected)});
    connection.Call(L"Execute", {L"Insert Into x Values(1),(2)", ByRef(affected)});
    EXPECT_EQ(_variant_t(2l), affected);
    const LateBound rows(connection.Call(L"Execute", {L"x"}));
    const _variant_t count = rows.Get(L"RecordCount");
    EXPECT_EQ(VT_I4, count.vt) << "scripts know no 64-bit numbers";
    EXPECT_EQ(2, static_cast<long>(count));
    EXPECT_EQ(_variant_t(1l), rows.Get(L"State"));
    rows.Call(L"MoveLast");
    const LateBound field(rows.Get(L"Fields", {L"A"}));
    EXPECT_EQ(_variant_t(2l), field.Get(L"Value"));
    const LateResult failed = rows.TryCall(L"NoSuchMember");
    EXPECT_HR(DISP_E_UNKNOWNNAME, failed.hr);
}

TEST_P(AdoScript, CommandsWithParameters) {
    ScriptRunner script;
    script.RunOk(Opening() + create_ +
                 L"Set cmd = CreateObject(\"ADODB.Command\")\n"
                 L"Set cmd.ActiveConnection = cn\n"
                 L"cmd.CommandText = \"Insert Into [t](code,name) Values(?,?)\"\n"
                 L"cmd.CommandType = 1\n"
                 L"cmd.Parameters.Append cmd.CreateParameter(\"Mã\", 3, 1, , 4)\n"
                 L"Set p = CreateObject(\"ADODB.Parameter\")\n"
                 L"p.Name = \"Tên\"\n"
                 L"p.Type = 202\n"
                 L"p.Size = 30\n"
                 L"text = \"O'Brien\"\n"
                 L"p.Value = text\n"
                 L"cmd.Parameters.Append p\n"
                 L"n = \"a text before\"\n"
                 L"cmd.Execute n\n"
                 L"Echo n & TypeName(n)\n"
                 L"cmd(\"tên\") = \"Người\"\n"
                 L"cmd.Parameters(0) = 5\n"
                 L"cmd.Execute , , 129\n"
                 L"cmd.Execute n, Array(6, \"Sáu\")\n"
                 L"values = Array(7, Null)\n"
                 L"cmd.Execute n, values\n"
                 L"For Each one In cmd.Parameters\n"
                 L"  names = names & one.Name & one.Type & one.Size & one.Value & \";\"\n"
                 L"Next\n"
                 L"Echo names & cmd.Parameters.Count & cmd.State\n"
                 L"Set rs = cn.Execute(\"Select * From t Where code>3 Order By code\")\n"
                 L"Do Until rs.EOF\n"
                 L"  Echo rs(0) & rs(1)\n"
                 L"  rs.MoveNext\n"
                 L"Loop\n");
    EXPECT_EQ((std::vector<std::wstring>{L"1Long", L"Mã305;Tên20230Người;20", L"4O'Brien",
                                         L"5Người", L"6Sáu", L"7"}),
              script.Lines());
}

TEST_P(AdoScript, CommandsReadRows) {
    ScriptRunner script;
    script.RunOk(Opening() + create_ +
                 L"Set cmd = CreateObject(\"ADODB.Command\")\n"
                 L"Set cmd.ActiveConnection = cn\n"
                 L"cmd.CommandText = \"Select name From t Where code=?\"\n"
                 L"Set one = cmd.Execute(, 2)\n"
                 L"x = one(0)\n"
                 L"Echo x\n"
                 L"Set one = cmd.Execute(n, Array(1))\n"
                 L"Echo one.RecordCount & n\n"
                 L"cmd.Parameters.Append cmd.CreateParameter(, 3)\n"
                 L"cmd.Parameters(0).Value = cn.Execute(\"Select 1\")(0)\n"
                 L"Set rs = CreateObject(\"ADODB.Recordset\")\n"
                 L"rs.Open cmd\n"
                 L"Echo rs(0) & rs.State & (rs.Source = cmd.CommandText)\n"
                 L"rs.Close\n"
                 L"Set rs.Source = cmd\n"
                 L"cmd.Parameters.Delete 0\n"
                 L"On Error Resume Next\n"
                 L"rs.Open\n"
                 L"Echo Hex(Err.Number) & rs.State\n"
                 L"Err.Clear\n"
                 L"cmd.Parameters.Append cmd.CreateParameter(\"x\", 200)\n"
                 L"Echo Err.Number And 65535\n"
                 L"Err.Clear\n"
                 L"Set p = cmd.CreateParameter(\"x\", 3, 1, 0, \"chữ\")\n"
                 L"Echo Err.Number And 65535\n"
                 L"Err.Clear\n"
                 L"cmd.Parameters.Refresh\n"
                 L"Echo Hex(Err.Number)\n");
    EXPECT_EQ((std::vector<std::wstring>{L"dùng", L"1-1", L"Người1True", L"800040050", L"3708",
                                         L"3421", L"80004001"}),
              script.Lines());
}

TEST_P(AdoScript, PropertiesOfTheConnection) {
    ScriptRunner script;
    script.RunOk(Opening() +
                 L"For Each p In cn.Properties\n"
                 L"  Echo p.Name & p.Type & p.Attributes & (Len(p.Value) > 0)\n"
                 L"Next\n"
                 L"Echo cn.Properties(\"dbms NAME\") & cn.Properties.Count\n"
                 L"Echo CStr(cn.Properties(1).Value = cn.Properties(\"DBMS Version\").Value)\n"
                 L"On Error Resume Next\n"
                 L"x = cn.Properties(\"Password\")\n"
                 L"Echo Err.Number And 65535\n"
                 L"Err.Clear\n"
                 L"cn.Properties(0).Value = \"x\"\n"
                 L"Echo Hex(Err.Number)\n");
    EXPECT_EQ((std::vector<std::wstring>{
                  L"DBMS Name8512True", L"DBMS Version8512True", L"Provider Name8512True",
                  OnServer() ? L"PostgreSQL3" : L"SQLite3", L"True", L"3265", L"80004001"}),
              script.Lines());
}

TEST_P(AdoScript, CommandsByHand) {
    const LateBound command = LateBound::Create(L"ADODB.Command");
    command.PutObject(L"ActiveConnection", _variant_t(static_cast<IDispatch*>(Db())));
    command.Put(L"CommandText", L"Select ?");
    const LateBound parameter(command.Call(L"CreateParameter", {L"a", L"3", 1l, 0l, L"7"}));
    EXPECT_EQ(_variant_t(L"7"), parameter.Get(L"Value"));
    EXPECT_EQ(VT_I4, parameter.Get(L"Size").vt) << "scripts know no 64-bit numbers";
    const LateBound parameters(command.Get(L"Parameters"));
    parameters.Call(L"Append", {_variant_t(parameter.Dispatch())});
    _variant_t affected(L"before");
    const LateBound rows(command.Call(L"Execute", {ByRef(affected)}));
    EXPECT_EQ(_variant_t(-1l), affected);
    long typed = 77;
    command.Call(L"Execute", {ByRef(typed)});
    EXPECT_EQ(-1, typed);
    _variant_t both(7l);
    command.Call(L"Execute", {ByRef(both), ByRef(both)});
    EXPECT_EQ(_variant_t(-1l), both);
    const LateBound field(rows.Get(L"Fields", {0l}));
    EXPECT_EQ(_variant_t(7l), field.Get(L"Value"));
    EXPECT_SUCCEEDED(command.TryCall(L"Execute", {Missing(), Missing(), 129l}).hr);
    EXPECT_SUCCEEDED(command.TryCall(L"Execute", {Missing(), 2l}).hr);
    EXPECT_SUCCEEDED(command.TryCall(L"Execute", {Missing(), ArrayOf({2l})}).hr);
    const LateResult wrong = command.TryCall(L"Execute", {Missing(), L"không"});
    EXPECT_HR(DISP_E_EXCEPTION, wrong.hr);
    EXPECT_HR(static_cast<HRESULT>(0x800A0D5DL), wrong.exceptionCode);
    EXPECT_EQ(L"ADODB.Command", wrong.exceptionSource);
    EXPECT_FALSE(wrong.exceptionText.empty());
}

} // namespace
