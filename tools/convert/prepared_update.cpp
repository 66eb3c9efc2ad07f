// SPDX-License-Identifier: MIT
#include "convert/prepared_update.h"

#include "comkit/base/com_error.h"
#include "data/connect/values.h"

namespace vndesk::convert {

PreparedUpdate::PreparedUpdate(const AdoConnection& connection, const std::wstring& text,
                               const std::vector<Column>& parameters)
    : command_(NewCommand(connection, text)) {
    const auto check = [&](HRESULT code) { CheckCall(code, command_.Get(), __uuidof(_Command)); };
    ComPtr<Parameters> list;
    check(command_->get_Parameters(&list));
    for (const Column& column : parameters) {
        ComPtr<_Parameter> parameter;
        check(command_->CreateParameter(_bstr_t(L""), column.type, adParamInput, column.size,
                                        _variant_t(), &parameter));
        if (column.precision != 0) {
            CheckHr(parameter->put_Precision(column.precision));
            CheckHr(parameter->put_NumericScale(column.scale));
        }
        CheckCall(list->Append(parameter.Get()), list.Get(), __uuidof(Parameters));
        parameters_.push_back(std::move(parameter));
    }
    check(command_->put_Prepared(VARIANT_TRUE));
}

void PreparedUpdate::Set(std::size_t parameter, const _variant_t& value) {
    _Parameter& given = *parameters_[parameter].Get();
    CheckCall(given.put_Value(value), &given, __uuidof(_Parameter));
}

long PreparedUpdate::Run() {
    AdoRecordset none;
    _variant_t affected;
    CheckCall(
        command_->Execute(&affected, nullptr, long{adCmdText} | long{adExecuteNoRecords}, &none),
        command_.Get(), __uuidof(_Command));
    return NullToInteger(affected);
}

} // namespace vndesk::convert
