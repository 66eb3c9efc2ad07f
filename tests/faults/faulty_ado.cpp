// SPDX-License-Identifier: MIT
#include "faults/faulty_ado.h"

#include <atomic>

#include "ado/objects/recordset_refused.h"
#include "ado/objects/session_source.h"
#include "support/check_hr.h"

namespace vndesk::test {

namespace {

using ado::AdoObject;

std::vector<std::string> calls;
size_t failing = 0;
Fault kind = Fault::Once;
int writes = 0;
std::atomic<long> objects{0};

enum class Verdict { Pass, Fail, RunAndFail };

Verdict Next(const char* name) {
    calls.push_back(name);
    if (failing == 0 || calls.size() < failing ||
        (calls.size() > failing && kind != Fault::FromThenOn))
        return Verdict::Pass;
    return kind == Fault::Unconfirmed ? Verdict::RunAndFail : Verdict::Fail;
}

// A wrapper of one interface: counts itself, and lets its calls through or not.
template <class Derived, class Base, class Interface> class Faulty : public Base {
public:
    explicit Faulty(ComPtr<Interface> inner) : inner_(std::move(inner)) { ++objects; }
    ~Faulty() override { --objects; }

protected:
    template <class Call> HRESULT Pass(const char* name, Call call) {
        const Verdict verdict = Next(name);
        if (verdict != Verdict::Fail) {
            const HRESULT result = call();
            if (verdict == Verdict::Pass || FAILED(result))
                return result;
        }
        return this->Guard([&] { throw ComError(E_FAIL, L"This call fails on purpose."); });
    }

    // For calls whose result is an object with calls of its own.
    template <class Wrapper, class Part, class Call>
    HRESULT PassPart(const char* name, Part** part, Call call) {
        *part = nullptr;
        return Pass(name, [&] {
            ComPtr<Part> inner;
            const HRESULT result = call(&inner);
            if (inner)
                *part = MakeCom<Wrapper>(inner).Detach();
            return result;
        });
    }

    const ComPtr<Interface> inner_;
};

class FaultyField final
    : public Faulty<FaultyField, AdoObject<FaultyField, Field, InterfaceList<Field20, _ADO>>,
                    Field> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Field";
    using Faulty::Faulty;

    STDMETHODIMP get_Name(BSTR* name) override {
        return Pass("Field.Name", [&] { return inner_->get_Name(name); });
    }
    STDMETHODIMP get_Value(VARIANT* value) override {
        return Pass("Field.Value", [&] { return inner_->get_Value(value); });
    }

    ADO_REFUSED(get_Type, DataTypeEnum*)
    ADO_REFUSED(get_DefinedSize, ADO_LONGPTR*)
    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(get_ActualSize, ADO_LONGPTR*)
    ADO_REFUSED(get_Attributes, LONG*)
    ADO_REFUSED(put_Attributes, LONG)
    ADO_REFUSED(put_DefinedSize, ADO_LONGPTR)
    ADO_REFUSED(put_Type, DataTypeEnum)
    ADO_REFUSED(put_Value, VARIANT)
    ADO_REFUSED(get_Precision, unsigned char*)
    ADO_REFUSED(put_Precision, unsigned char)
    ADO_REFUSED(get_NumericScale, unsigned char*)
    ADO_REFUSED(put_NumericScale, unsigned char)
    ADO_REFUSED(AppendChunk, VARIANT)
    ADO_REFUSED(GetChunk, LONG, VARIANT*)
    ADO_REFUSED(get_OriginalValue, VARIANT*)
    ADO_REFUSED(get_UnderlyingValue, VARIANT*)
    ADO_REFUSED(get_DataFormat, IUnknown**)
    ADO_REFUSED(putref_DataFormat, IUnknown*)
    ADO_REFUSED(get_Status, LONG*)
};

class FaultyFields final
    : public Faulty<FaultyFields,
                    AdoObject<FaultyFields, Fields, InterfaceList<Fields20, Fields15, _Collection>>,
                    Fields> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Fields";
    using Faulty::Faulty;

    STDMETHODIMP get_Count(LONG* count) override {
        return Pass("Fields.Count", [&] { return inner_->get_Count(count); });
    }
    STDMETHODIMP get_Item(VARIANT index, Field** field) override {
        return PassPart<FaultyField>("Fields.Item", field,
                                     [&](Field** part) { return inner_->get_Item(index, part); });
    }

    ADO_REFUSED(_NewEnum, IUnknown**)
    ADO_REFUSED(Refresh)
    ADO_REFUSED(_Append, BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum)
    ADO_REFUSED(Delete, VARIANT)
    ADO_REFUSED(Append, BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum, VARIANT)
    ADO_REFUSED(Update)
    ADO_REFUSED(Resync, ResyncEnum)
    ADO_REFUSED(CancelUpdate)
};

class FaultyRecordset final
    : public Faulty<FaultyRecordset, ado::RecordsetRefused<FaultyRecordset>, _Recordset> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Recordset";
    using Faulty::Faulty;

    STDMETHODIMP putref_ActiveConnection(IDispatch* connection) override {
        return Pass("Recordset.ActiveConnection",
                    [&] { return inner_->putref_ActiveConnection(connection); });
    }
    STDMETHODIMP Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType,
                      LockTypeEnum lockType, LONG options) override {
        return Pass("Recordset.Open", [&] {
            return inner_->Open(source, connection, cursorType, lockType, options);
        });
    }
    STDMETHODIMP Close() override {
        return Pass("Recordset.Close", [&] { return inner_->Close(); });
    }
    STDMETHODIMP get_EOF(VARIANT_BOOL* eof) override {
        return Pass("Recordset.EOF", [&] { return inner_->get_EOF(eof); });
    }
    STDMETHODIMP MoveFirst() override {
        return Pass("Recordset.MoveFirst", [&] { return inner_->MoveFirst(); });
    }
    STDMETHODIMP MoveNext() override {
        return Pass("Recordset.MoveNext", [&] { return inner_->MoveNext(); });
    }
    STDMETHODIMP MoveLast() override {
        return Pass("Recordset.MoveLast", [&] { return inner_->MoveLast(); });
    }
    STDMETHODIMP get_Fields(Fields** fields) override {
        return PassPart<FaultyFields>("Recordset.Fields", fields,
                                      [&](Fields** part) { return inner_->get_Fields(part); });
    }

    ADO_REFUSED(MovePrevious)
    ADO_REFUSED(put_ActiveConnection, VARIANT)
    ADO_REFUSED(get_ActiveConnection, VARIANT*)
    ADO_REFUSED(get_BOF, VARIANT_BOOL*)
    ADO_REFUSED(get_CursorType, CursorTypeEnum*)
    ADO_REFUSED(put_CursorType, CursorTypeEnum)
    ADO_REFUSED(get_LockType, LockTypeEnum*)
    ADO_REFUSED(put_LockType, LockTypeEnum)
    ADO_REFUSED(get_RecordCount, ADO_LONGPTR*)
    ADO_REFUSED(putref_Source, IDispatch*)
    ADO_REFUSED(put_Source, BSTR)
    ADO_REFUSED(get_Source, VARIANT*)
    ADO_REFUSED(get_State, LONG*)
    ADO_REFUSED(GetRows, LONG, VARIANT, VARIANT, VARIANT*)
};

class FaultyConnection final
    : public Faulty<FaultyConnection,
                    AdoObject<FaultyConnection, _Connection, InterfaceList<Connection15, _ADO>>,
                    _Connection> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Connection";
    using Faulty::Faulty;

    // The record set inside a wrapper asks for the session behind its connection.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return iid == __uuidof(ado::ISessionSource) ? inner_->QueryInterface(iid, object)
                                                    : AdoObject::QueryInterface(iid, object);
    }

    STDMETHODIMP get_ConnectionString(BSTR* text) override {
        return Pass("Connection.ConnectionString",
                    [&] { return inner_->get_ConnectionString(text); });
    }
    STDMETHODIMP put_ConnectionString(BSTR text) override {
        return Pass("Connection.ConnectionString",
                    [&] { return inner_->put_ConnectionString(text); });
    }
    STDMETHODIMP put_Provider(BSTR name) override {
        return Pass("Connection.Provider", [&] { return inner_->put_Provider(name); });
    }
    STDMETHODIMP Open(BSTR text, BSTR user, BSTR password, LONG options) override {
        return Pass("Connection.Open", [&] { return inner_->Open(text, user, password, options); });
    }
    STDMETHODIMP Close() override {
        return Pass("Connection.Close", [&] { return inner_->Close(); });
    }
    STDMETHODIMP get_State(LONG* state) override {
        return Pass("Connection.State", [&] { return inner_->get_State(state); });
    }
    STDMETHODIMP Execute(BSTR command, VARIANT* affected, LONG options,
                         _Recordset** rows) override {
        return Pass("Connection.Execute", [&] {
            const HRESULT result = inner_->Execute(command, affected, options, rows);
            writes += SUCCEEDED(result);
            return result;
        });
    }

    STDMETHODIMP BeginTrans(LONG* level) override {
        return Pass("Connection.BeginTrans", [&] { return inner_->BeginTrans(level); });
    }
    STDMETHODIMP CommitTrans() override {
        return Pass("Connection.CommitTrans", [&] { return inner_->CommitTrans(); });
    }
    STDMETHODIMP RollbackTrans() override {
        return Pass("Connection.RollbackTrans", [&] { return inner_->RollbackTrans(); });
    }
    STDMETHODIMP get_Properties(Properties** properties) override {
        return Pass("Connection.Properties", [&] { return inner_->get_Properties(properties); });
    }

    ADO_REFUSED(get_Provider, BSTR*)
    ADO_REFUSED(get_Errors, Errors**)
    ADO_REFUSED(get_CommandTimeout, LONG*)
    ADO_REFUSED(put_CommandTimeout, LONG)
    ADO_REFUSED(get_ConnectionTimeout, LONG*)
    ADO_REFUSED(put_ConnectionTimeout, LONG)
    ADO_REFUSED(get_Version, BSTR*)
    ADO_REFUSED(get_DefaultDatabase, BSTR*)
    ADO_REFUSED(put_DefaultDatabase, BSTR)
    ADO_REFUSED(get_IsolationLevel, IsolationLevelEnum*)
    ADO_REFUSED(put_IsolationLevel, IsolationLevelEnum)
    ADO_REFUSED(get_Attributes, LONG*)
    ADO_REFUSED(put_Attributes, LONG)
    ADO_REFUSED(get_CursorLocation, CursorLocationEnum*)
    ADO_REFUSED(put_CursorLocation, CursorLocationEnum)
    ADO_REFUSED(get_Mode, ConnectModeEnum*)
    ADO_REFUSED(put_Mode, ConnectModeEnum)
    ADO_REFUSED(OpenSchema, SchemaEnum, VARIANT, VARIANT, _Recordset**)
    ADO_REFUSED(Cancel)
};

class FaultyParameters final
    : public Faulty<
          FaultyParameters,
          AdoObject<FaultyParameters, Parameters, InterfaceList<_DynaCollection, _Collection>>,
          Parameters> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Parameters";
    using Faulty::Faulty;

    STDMETHODIMP Append(IDispatch* parameter) override {
        return Pass("Parameters.Append", [&] { return inner_->Append(parameter); });
    }

    ADO_REFUSED(get_Count, LONG*)
    ADO_REFUSED(_NewEnum, IUnknown**)
    ADO_REFUSED(Refresh)
    ADO_REFUSED(Delete, VARIANT)
    ADO_REFUSED(get_Item, VARIANT, _Parameter**)
};

class FaultyCommand final
    : public Faulty<FaultyCommand,
                    AdoObject<FaultyCommand, _Command, InterfaceList<Command25, Command15, _ADO>>,
                    _Command> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Command";
    using Faulty::Faulty;

    STDMETHODIMP putref_ActiveConnection(_Connection* connection) override {
        return Pass("Command.ActiveConnection",
                    [&] { return inner_->putref_ActiveConnection(connection); });
    }
    STDMETHODIMP put_CommandType(CommandTypeEnum type) override {
        return Pass("Command.CommandType", [&] { return inner_->put_CommandType(type); });
    }
    STDMETHODIMP put_CommandText(BSTR text) override {
        return Pass("Command.CommandText", [&] { return inner_->put_CommandText(text); });
    }
    STDMETHODIMP CreateParameter(BSTR name, DataTypeEnum type, ParameterDirectionEnum direction,
                                 ADO_LONGPTR size, VARIANT value, _Parameter** parameter) override {
        return Pass("Command.CreateParameter", [&] {
            return inner_->CreateParameter(name, type, direction, size, value, parameter);
        });
    }
    STDMETHODIMP get_Parameters(Parameters** parameters) override {
        return PassPart<FaultyParameters>("Command.Parameters", parameters, [&](Parameters** part) {
            return inner_->get_Parameters(part);
        });
    }
    // Those that bring no rows are those that write.
    STDMETHODIMP Execute(VARIANT* affected, VARIANT* values, LONG options,
                         _Recordset** rows) override {
        if (options & adExecuteNoRecords)
            return Pass("Command.Execute", [&] {
                const HRESULT result = inner_->Execute(affected, values, options, rows);
                writes += SUCCEEDED(result);
                return result;
            });
        return PassPart<FaultyRecordset>("Command.Open", rows, [&](_Recordset** part) {
            return inner_->Execute(affected, values, options, part);
        });
    }

    ADO_REFUSED(get_ActiveConnection, _Connection**)
    ADO_REFUSED(put_ActiveConnection, VARIANT)
    ADO_REFUSED(get_CommandText, BSTR*)
    ADO_REFUSED(get_CommandTimeout, LONG*)
    ADO_REFUSED(put_CommandTimeout, LONG)
    ADO_REFUSED(get_Prepared, VARIANT_BOOL*)
    ADO_REFUSED(put_Prepared, VARIANT_BOOL)
    ADO_REFUSED(get_CommandType, CommandTypeEnum*)
    ADO_REFUSED(get_Name, BSTR*)
    ADO_REFUSED(put_Name, BSTR)
    ADO_REFUSED(get_State, LONG*)
    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(Cancel)
    ADO_REFUSED(putref_CommandStream, IUnknown*)
    ADO_REFUSED(get_CommandStream, VARIANT*)
    ADO_REFUSED(put_Dialect, BSTR)
    ADO_REFUSED(get_Dialect, BSTR*)
    ADO_REFUSED(put_NamedParameters, VARIANT_BOOL)
    ADO_REFUSED(get_NamedParameters, VARIANT_BOOL*)
};

// Makes wrappers around the objects of the class that was registered before.
template <class Wrapper, class Interface> class Factory final : public ComObject<IClassFactory> {
public:
    Factory(const char* name, ComPtr<IClassFactory> inner)
        : name_(name), inner_(std::move(inner)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        *object = nullptr;
        if (Next(name_) == Verdict::Fail)
            return E_FAIL;
        ComPtr<Interface> inner;
        const HRESULT created = inner_->CreateInstance(outer, IID_PPV_ARGS(&inner));
        return FAILED(created) ? created : MakeCom<Wrapper>(inner)->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL lock) override { return inner_->LockServer(lock); }

private:
    const char* const name_;
    const ComPtr<IClassFactory> inner_;
};

template <class Wrapper, class Interface> DWORD Replace(const char* name) {
    CLSID clsid;
    ComPtr<IClassFactory> inner;
    DWORD cookie = 0;
    EXPECT_SUCCEEDED(CLSIDFromProgID(Wrapper::kProgId, &clsid));
    EXPECT_SUCCEEDED(CoGetClassObject(clsid, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&inner)));
    EXPECT_SUCCEEDED(CoRegisterClassObject(clsid,
                                           MakeCom<Factory<Wrapper, Interface>>(name, inner).Get(),
                                           CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
    return cookie;
}

} // namespace

FaultyAdo::FaultyAdo()
    : cookies_{Replace<FaultyConnection, _Connection>("new Connection"),
               Replace<FaultyRecordset, _Recordset>("new Recordset"),
               Replace<FaultyCommand, _Command>("new Command")} {
    Begin();
}

FaultyAdo::~FaultyAdo() {
    for (const DWORD cookie : cookies_)
        CoRevokeClassObject(cookie);
}

void FaultyAdo::Begin(size_t call, Fault fault) {
    calls.clear();
    writes = 0;
    failing = call;
    kind = fault;
}

const std::vector<std::string>& FaultyAdo::Calls() const {
    return calls;
}
int FaultyAdo::Writes() const {
    return writes;
}
long FaultyAdo::Objects() const {
    return objects;
}

} // namespace vndesk::test
