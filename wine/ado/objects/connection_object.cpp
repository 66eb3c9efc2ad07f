// SPDX-License-Identifier: MIT
#include "ado/objects/connection_object.h"

#include <iterator>
#include <optional>

#include "ado/engine/ado_error.h"
#include "ado/objects/command_options.h"
#include "ado/objects/error_objects.h"
#include "ado/objects/given_values.h"
#include "ado/objects/property_objects.h"
#include "ado/objects/recordset_object.h"
#include "ado/text/connection_string.h"

namespace vndesk::ado {

namespace {

constexpr const wchar_t* kDefaultProvider = L"MSDASQL"; // ADO's own default
constexpr DISPID kExecute = 6;

} // namespace

// A script's variable for the records affected may still hold a text or an object. By the vtable
// the argument is pure output, which must not be looked at; only here is it known to be a valid
// Variant.
STDMETHODIMP ConnectionObject::Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags,
                                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                      UINT* badArgument) {
    if (member == kExecute && parameters && parameters->cArgs >= 2 && parameters->cNamedArgs == 0) {
        VARIANT& affected = parameters->rgvarg[parameters->cArgs - 2];
        if (V_VT(&affected) == (VT_BYREF | VT_VARIANT))
            VariantClear(V_VARIANTREF(&affected));
    }
    return AdoObject::Invoke(member, iid, lcid, flags, parameters, result, exception, badArgument);
}

Session& ConnectionObject::RequireSession() const {
    if (!session_)
        ThrowMisuse(AdoMisuse::ObjectClosed);
    return *session_;
}

void ConnectionObject::RequireClosed() const {
    if (session_)
        ThrowMisuse(AdoMisuse::ObjectOpen);
}

void ConnectionObject::OpenWith(const std::wstring& connectionString, const std::wstring& user,
                                const std::wstring& password) {
    RequireClosed();
    if (!connectionString.empty())
        connectionString_ = connectionString;
    log_->Clear();
    session_ = OpenSession({provider_, connectionString_, user, password}, log_);
}

STDMETHODIMP ConnectionObject::get_ConnectionString(BSTR* text) {
    return Get(text, [&](BSTR& out) { out = ToBstr(connectionString_); });
}

STDMETHODIMP ConnectionObject::put_ConnectionString(BSTR text) {
    return Guard([&] {
        RequireClosed();
        connectionString_ = FromBstr(text);
    });
}

STDMETHODIMP ConnectionObject::get_Provider(BSTR* name) {
    return Get(name,
               [&](BSTR& out) { out = ToBstr(provider_.empty() ? kDefaultProvider : provider_); });
}

STDMETHODIMP ConnectionObject::put_Provider(BSTR name) {
    return Guard([&] {
        RequireClosed();
        const std::wstring given = FromBstr(name);
        provider_ = TrimProvider(given);
    });
}

STDMETHODIMP ConnectionObject::Open(BSTR connectionString, BSTR user, BSTR password, LONG) {
    return Guard([&] { OpenWith(FromBstr(connectionString), FromBstr(user), FromBstr(password)); });
}

STDMETHODIMP ConnectionObject::Close() {
    return Guard([&] {
        RequireSession().Close(); // record sets that share it see that it is closed
        session_.reset();
    });
}

STDMETHODIMP ConnectionObject::Execute(BSTR command, VARIANT* affected, LONG options,
                                       _Recordset** recordset) {
    if (recordset)
        *recordset = nullptr;
    return Guard([&] {
        const std::wstring statement = FromBstr(command);
        Outcome outcome = RequireSession().Execute(statement, KindOfCommand(options));
        if (affected) {
            V_VT(affected) = VT_I4;
            V_I4(affected) = outcome.affected;
        }
        if (recordset && !WantsNoRecords(options))
            *recordset = MakeCom<RecordsetObject>(ComPtr<IDispatch>(this), session_, statement,
                                                  std::move(outcome))
                             .Detach();
    });
}

STDMETHODIMP ConnectionObject::get_State(LONG* state) {
    return Get(state, [&](LONG& out) { out = session_ ? adStateOpen : adStateClosed; });
}

STDMETHODIMP ConnectionObject::get_Errors(Errors** errors) {
    return Get(errors, [&](Errors*& out) { out = MakeCom<ErrorsObject>(log_).Detach(); });
}

STDMETHODIMP ConnectionObject::get_Properties(Properties** properties) {
    return Get(properties, [&](Properties*& out) {
        out = MakeCom<PropertiesObject>(session_ ? PropertiesOf(*session_)
                                                 : std::vector<PropertyValue>())
                  .Detach();
    });
}

STDMETHODIMP ConnectionObject::BeginTrans(LONG* level) {
    LONG begun = 0;
    const HRESULT result = Guard([&] { begun = RequireSession().BeginTransaction(); });
    if (level)
        *level = begun;
    return result;
}

STDMETHODIMP ConnectionObject::CommitTrans() {
    return Guard([&] { RequireSession().EndTransaction(true); });
}

STDMETHODIMP ConnectionObject::RollbackTrans() {
    return Guard([&] { RequireSession().EndTransaction(false); });
}

// Of the many schemas the one by which a program finds the rows that it changes.
STDMETHODIMP ConnectionObject::OpenSchema(SchemaEnum schema, VARIANT restrictions, VARIANT,
                                          _Recordset** recordset) {
    if (schema != adSchemaPrimaryKeys)
        return Refuse(L"OpenSchema");
    return Get(recordset, [&](_Recordset*& out) {
        // Catalogue, schema, table.
        std::optional<std::wstring> names[3];
        const std::vector<_variant_t> given = GivenValues(&restrictions);
        for (std::size_t i = 0; i < given.size() && i < std::size(names); ++i)
            if (const Argument name(given[i]); name.IsText())
                names[i] = name.Text();
        if (!names[2] || given.size() > std::size(names))
            ThrowMisuse(AdoMisuse::InvalidArgument);
        Outcome keys = RequireSession().PrimaryKeys(names[0], names[1], *names[2]);
        out = MakeCom<RecordsetObject>(ComPtr<IDispatch>(this), session_, std::wstring(),
                                       std::move(keys))
                  .Detach();
    });
}

} // namespace vndesk::ado
