// SPDX-License-Identifier: MIT
#include "data/connect/command.h"

#include <comutil.h>

#include <algorithm>

#include "comkit/base/bstr.h"
#include "comkit/base/com_error.h"
#include "data/connect/values.h"

namespace vndesk {

namespace {

// The longest text that every provider takes as adVarWChar.
constexpr std::size_t kMaxVarWChar = 4000;

// A value as ADO takes it. Null has a type, which providers ask for.
struct AdoValue {
    DataTypeEnum type;
    long size;
    _variant_t value;
    AdoValue(DataTypeEnum dataType, long length) : type(dataType), size(length) {
        V_VT(&value) = VT_NULL;
    }
};

AdoValue ToAdo(const std::optional<long>& number) {
    AdoValue value{adInteger, 0};
    if (number)
        value.value = *number;
    return value;
}

AdoValue ToAdo(const std::optional<double>& number) {
    AdoValue value{adDouble, 0};
    if (number)
        value.value = *number;
    return value;
}

AdoValue ToAdo(const std::optional<std::wstring>& text) {
    const std::size_t length = text ? text->size() : 0;
    AdoValue value{length > kMaxVarWChar ? adLongVarWChar : adVarWChar,
                   static_cast<long>(std::max<std::size_t>(length, 1))};
    if (text) {
        value.value.Clear();
        V_BSTR(&value.value) = ToBstr(*text);
        V_VT(&value.value) = VT_BSTR;
    }
    return value;
}

AdoValue ToAdo(const std::optional<Moment>& moment) {
    AdoValue value{adDBTimeStamp, 0};
    if (moment)
        value.value = _variant_t(moment->days, VT_DATE);
    return value;
}

void Append(_Command& command, const BoundValue& bound) {
    const AdoValue value = std::visit([](const auto& given) { return ToAdo(given); }, bound);
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
