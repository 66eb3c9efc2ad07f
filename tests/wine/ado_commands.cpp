// SPDX-License-Identifier: MIT
#include "wine/ado_commands.h"

#include <algorithm>
#include <cstring>

#include "support/check_hr.h"
#include "support/new_object.h"

namespace vndesk::test {

namespace {

void Check(HRESULT hr) {
    if (FAILED(hr))
        Fail(L"a command failed: " + ErrorText());
}

ComPtr<_Recordset> RunWith(_Command* command, const _variant_t& values) {
    ComPtr<_Recordset> rows;
    _variant_t copy(values);
    Check(command->Execute(nullptr, &copy, -1, &rows));
    return rows;
}

} // namespace

ComPtr<_Parameter> NewParameter(DataTypeEnum type, const _variant_t& value, long size,
                                const wchar_t* name) {
    const auto command = NewObject<_Command>(L"ADODB.Command");
    ComPtr<_Parameter> parameter;
    if (size == 0)
        size = V_VT(&value) == VT_BSTR
                   ? static_cast<long>(std::max(1u, SysStringLen(V_BSTR(&value))))
                   : 100;
    Check(command->CreateParameter(_bstr_t(name), type, adParamInput, size, value, &parameter));
    return parameter;
}

ComPtr<Parameters> ParametersOf(_Command* command) {
    ComPtr<Parameters> parameters;
    Check(command->get_Parameters(&parameters));
    return parameters;
}

HRESULT TryAppend(_Command* command, _Parameter* parameter) {
    return ParametersOf(command)->Append(parameter);
}

ComPtr<_Command> NewCommand(_Connection* connection, const std::wstring& text,
                            const std::vector<Given>& given) {
    const auto command = NewObject<_Command>(L"ADODB.Command");
    Check(command->putref_ActiveConnection(connection));
    Check(command->put_CommandText(_bstr_t(text.c_str())));
    for (const auto& [type, value, size] : given)
        Check(TryAppend(command.Get(), NewParameter(type, value, size).Get()));
    return command;
}

ComPtr<_Recordset> RowsOf(_Command* command) {
    return RunWith(command, Missing());
}

HRESULT TryRun(_Command* command, const _variant_t& values) {
    ComPtr<_Recordset> rows;
    _variant_t copy(values);
    return command->Execute(nullptr, &copy, -1, &rows);
}

long Changed(_Command* command) {
    _variant_t affected;
    Check(command->Execute(&affected, nullptr, adExecuteNoRecords, nullptr));
    return affected;
}

_variant_t ScalarOf(_Command* command, const _variant_t& values) {
    return ValueAt(RunWith(command, values).Get(), 0l);
}

_variant_t Asked(_Connection* connection, const std::wstring& text,
                 const std::vector<Given>& given) {
    return ScalarOf(NewCommand(connection, text, given).Get());
}

long Written(_Connection* connection, const std::wstring& text, const std::vector<Given>& given) {
    return Changed(NewCommand(connection, text, given).Get());
}

HRESULT TryWrite(_Connection* connection, const std::wstring& text,
                 const std::vector<Given>& given) {
    return TryRun(NewCommand(connection, text, given).Get());
}

_variant_t ArrayOf(const std::vector<_variant_t>& values) {
    _variant_t array;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
    V_VT(&array) = VT_ARRAY | VT_VARIANT;
    for (LONG i = 0; i < static_cast<LONG>(values.size()); ++i)
        Check(SafeArrayPutElement(V_ARRAY(&array), &i,
                                  const_cast<_variant_t*>(&values[static_cast<size_t>(i)])));
    return array;
}

_variant_t BytesOf(const std::string& bytes) {
    _variant_t array;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    V_VT(&array) = VT_ARRAY | VT_UI1;
    std::memcpy(V_ARRAY(&array)->pvData, bytes.data(), bytes.size());
    return array;
}

_variant_t NullValue() {
    _variant_t value;
    V_VT(&value) = VT_NULL;
    return value;
}

_variant_t TextValue(const std::wstring& text) {
    _variant_t value;
    V_BSTR(&value) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    V_VT(&value) = VT_BSTR;
    return value;
}

} // namespace vndesk::test
