// SPDX-License-Identifier: MIT
#include "ado/objects/command_object.h"

#include <algorithm>
#include <optional>

#include "ado/engine/ado_error.h"
#include "ado/objects/active_connection.h"
#include "ado/objects/affected_variable.h"
#include "ado/objects/command_options.h"
#include "ado/objects/given_values.h"
#include "ado/objects/late_create_parameter.h"
#include "ado/objects/parameter_object.h"
#include "ado/objects/parameters_object.h"
#include "ado/objects/recordset_object.h"

namespace vndesk::ado {

namespace {

constexpr DISPID kExecute = 0x60030009;
constexpr DISPID kCreateParameter = 0x6003000a;
constexpr long kKindBits =
    adCmdText | adCmdTable | adCmdStoredProc | adCmdUnknown | adCmdFile | adCmdTableDirect;

bool IsLeftOut(const VARIANT& value) {
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

} // namespace

STDMETHODIMP CommandObject::Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* badArgument) {
    if (member == kCreateParameter && iid == IID_NULL && parameters && (flags & DISPATCH_METHOD))
        return InvokeCreateParameter(*this, *parameters, result, exception);
    if (member == DISPID_VALUE && (flags & DISPATCH_PROPERTYPUT) && parameters &&
        parameters->cArgs == 2) { // command("name") = value
        ComPtr<Parameters> list;
        const HRESULT got = get_Parameters(&list);
        return FAILED(got) ? got
                           : list->Invoke(member, iid, lcid, flags, parameters, result, exception,
                                          badArgument);
    }
    std::optional<AffectedVariable> affected;
    if (member == kExecute && parameters && parameters->cArgs >= 1 && parameters->cNamedArgs == 0)
        affected.emplace(parameters->rgvarg[parameters->cArgs - 1]);
    return AdoObject::Invoke(member, iid, lcid, flags, parameters, result, exception, badArgument);
}

void CommandObject::SetConnection(ComPtr<_Connection> connection) {
    if (connection && !SessionOf(connection.Get()))
        ThrowMisuse(AdoMisuse::InvalidConnection);
    connection_ = std::move(connection);
}

std::vector<ParameterValue> CommandObject::Values(const VARIANT* given) const {
    // Objects among them run code of the host, which may change the parameters.
    std::vector<_variant_t> overriding = GivenValues(given);
    std::vector<bool> kept;
    for (_variant_t& value : overriding) {
        kept.push_back(IsLeftOut(value));
        value = PlainValue(value);
    }
    const std::vector<ParameterList::Entry>& own = parameters_->entries;
    std::vector<ParameterValue> values;
    values.reserve(std::max(own.size(), overriding.size()));
    for (std::size_t i = 0; i < own.size() || i < overriding.size(); ++i) {
        const bool isOwn = i >= overriding.size() || (kept[i] && i < own.size());
        if (i >= own.size()) {
            values.push_back(TypedValue(overriding[i], adVariant, 0));
            continue;
        }
        const ParameterState& state = *own[i].state;
        if (state.direction != adParamInput)
            throw ComError(E_NOTIMPL,
                           L"Parameters that return values are not available in the ADO for Wine.");
        values.push_back(TypedValue(isOwn ? state.value : overriding[i], state.type, state.size));
    }
    return values;
}

CommandRun CommandObject::Run(const VARIANT* values, long options) {
    const std::shared_ptr<Session> session = SessionOf(connection_.Get());
    if (!session)
        ThrowMisuse(AdoMisuse::InvalidConnection);
    if (text_.empty())
        throw ComError(kNoCommand, L"Command text was not set for the command object.");
    const bool says = options != adOptionUnspecified && (options & kKindBits);
    const std::vector<ParameterValue> typed = Values(values);
    CommandRun run = {text_, connection_, session, {}};
    run.outcome =
        session->Execute(run.text, KindOfCommand(says ? options : static_cast<long>(type_)), typed,
                         prepared_ ? Preparation::Kept : Preparation::Once);
    return run;
}

STDMETHODIMP CommandObject::get_ActiveConnection(_Connection** connection) {
    return Get(connection, [&](_Connection*& out) { connection_.CopyTo(&out); });
}

STDMETHODIMP CommandObject::putref_ActiveConnection(_Connection* connection) {
    return Guard([&] { SetConnection(ConnectionFrom(connection)); });
}

STDMETHODIMP CommandObject::put_ActiveConnection(VARIANT connection) {
    return Guard([&] { SetConnection(ConnectionFrom(Argument(connection))); });
}

STDMETHODIMP CommandObject::get_CommandText(BSTR* text) {
    return Get(text, [&](BSTR& out) { out = ToBstr(text_); });
}

STDMETHODIMP CommandObject::put_CommandText(BSTR text) {
    return Guard([&] { text_ = FromBstr(text); });
}

STDMETHODIMP CommandObject::get_CommandTimeout(LONG* seconds) {
    return Get(seconds, [&](LONG& out) { out = timeout_; });
}

STDMETHODIMP CommandObject::put_CommandTimeout(LONG seconds) {
    return Guard([&] {
        if (seconds < 0)
            ThrowMisuse(AdoMisuse::InvalidArgument);
        timeout_ = seconds;
    });
}

STDMETHODIMP CommandObject::get_Prepared(VARIANT_BOOL* prepared) {
    return Get(prepared, [&](VARIANT_BOOL& out) { out = prepared_; });
}

STDMETHODIMP CommandObject::put_Prepared(VARIANT_BOOL prepared) {
    prepared_ = prepared ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP CommandObject::Execute(VARIANT* affected, VARIANT* values, LONG options,
                                    _Recordset** recordset) {
    if (recordset)
        *recordset = nullptr;
    return Guard([&] {
        CommandRun run = Run(values, options);
        if (affected) {
            V_VT(affected) = VT_I4;
            V_I4(affected) = run.outcome.affected;
        }
        if (recordset && !WantsNoRecords(options))
            *recordset = MakeCom<RecordsetObject>(run.connection, run.session, run.text,
                                                  std::move(run.outcome))
                             .Detach();
    });
}

STDMETHODIMP CommandObject::CreateParameter(BSTR name, DataTypeEnum type,
                                            ParameterDirectionEnum direction, ADO_LONGPTR size,
                                            VARIANT value, _Parameter** parameter) {
    return Get(parameter, [&](_Parameter*& out) {
        const ComPtr<ParameterObject> made = MakeCom<ParameterObject>();
        made->Define(FromBstr(name), type, direction, size, value);
        made.CopyTo(&out);
    });
}

STDMETHODIMP CommandObject::get_Parameters(Parameters** parameters) {
    return Get(parameters,
               [&](Parameters*& out) { out = MakeCom<ParametersObject>(parameters_).Detach(); });
}

STDMETHODIMP CommandObject::put_CommandType(CommandTypeEnum type) {
    return Guard([&] {
        switch (static_cast<long>(type)) {
        case adCmdUnspecified:
        case adCmdUnknown:
        case adCmdText:
        case adCmdTable:
        case adCmdTableDirect:
        case adCmdStoredProc:
        case adCmdFile:
            KindOfCommand(type); // refuses those that this ADO does not have
            type_ = type;
            return;
        default:
            ThrowMisuse(AdoMisuse::InvalidArgument);
        }
    });
}

STDMETHODIMP CommandObject::get_CommandType(CommandTypeEnum* type) {
    return Get(type, [&](CommandTypeEnum& out) { out = type_; });
}

STDMETHODIMP CommandObject::get_Name(BSTR* name) {
    return Get(name, [&](BSTR& out) { out = ToBstr(name_); });
}

STDMETHODIMP CommandObject::put_Name(BSTR name) {
    return Guard([&] { name_ = FromBstr(name); });
}

STDMETHODIMP CommandObject::get_State(LONG* state) {
    return Get(state, [](LONG& out) { out = adStateClosed; }); // nothing runs on after a call
}

} // namespace vndesk::ado
