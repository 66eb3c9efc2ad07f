// SPDX-License-Identifier: MIT
#include "data/connect/command.h"

#include <comutil.h>

#include "comkit/base/com_error.h"
#include "data/connect/ado_value.h"
#include "data/connect/values.h"

namespace vndesk {

namespace {

void Append(_Command& command, const BoundValue& bound) {
    const AdoValue value = ToAdoValue(bound);
    ComPtr<_Parameter> parameter;
    CheckCall(command.CreateParameter(_bstr_t(L""), value.type, adParamInput, value.size,
                                      value.value, &parameter),
              &command, __uuidof(_Command));
    ComPtr<Parameters> parameters;
    CheckCall(command.get_Parameters(&parameters), &command, __uuidof(_Command));
    CheckCall(parameters->Append(parameter.Get()), parameters.Get(), __uuidof(Parameters));
}

} // namespace

AdoCommand NewCommand(const AdoConnection& connection, const Statement& statement) {
    CLSID clsid;
    AdoCommand command;
    CheckHr(CLSIDFromProgID(L"ADODB.Command", &clsid));
    CheckHr(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&command)));
    const auto check = [&](HRESULT code) { CheckCall(code, command.Get(), __uuidof(_Command)); };
    check(command->putref_ActiveConnection(connection.Get()));
    check(command->put_CommandType(adCmdText));
    check(command->put_CommandText(_bstr_t(statement.text.c_str())));
    for (const BoundValue& value : statement.values)
        Append(*command.Get(), value);
    return command;
}

AdoRecordset RunCommand(const AdoConnection& connection, const Statement& statement) {
    const AdoCommand command = NewCommand(connection, statement);
    AdoRecordset rows;
    _variant_t affected;
    CheckCall(command->Execute(&affected, nullptr, adCmdText, &rows), command.Get(),
              __uuidof(_Command));
    return rows;
}

long ExecuteCommand(const AdoConnection& connection, const Statement& statement) {
    const AdoCommand command = NewCommand(connection, statement);
    AdoRecordset none;
    _variant_t affected;
    CheckCall(
        command->Execute(&affected, nullptr, long{adCmdText} | long{adExecuteNoRecords}, &none),
        command.Get(), __uuidof(_Command));
    return NullToInteger(affected);
}

} // namespace vndesk
