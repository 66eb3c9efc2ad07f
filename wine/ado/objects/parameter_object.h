// SPDX-License-Identifier: MIT
// ADODB.Parameter: one value of a command.
#pragma once

#include <memory>

#include "ado/objects/parameter_refused.h"

namespace vndesk::ado {

class ParameterObject final : public ParameterRefused<ParameterObject> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Parameter";

    std::shared_ptr<ParameterState> State() override { return state_; }

    // Throws as the properties fail.
    void Define(std::wstring name, DataTypeEnum type, ParameterDirectionEnum direction,
                ADO_LONGPTR size, const VARIANT& value);

    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP put_Name(BSTR name) override;
    STDMETHODIMP get_Value(VARIANT* value) override;
    STDMETHODIMP put_Value(VARIANT value) override;
    STDMETHODIMP get_Type(DataTypeEnum* type) override;
    STDMETHODIMP put_Type(DataTypeEnum type) override;
    STDMETHODIMP put_Direction(ParameterDirectionEnum direction) override;
    STDMETHODIMP get_Direction(ParameterDirectionEnum* direction) override;
    STDMETHODIMP put_Precision(BYTE precision) override;
    STDMETHODIMP get_Precision(BYTE* precision) override;
    STDMETHODIMP put_NumericScale(BYTE scale) override;
    STDMETHODIMP get_NumericScale(BYTE* scale) override;
    STDMETHODIMP put_Size(ADO_LONGPTR size) override;
    STDMETHODIMP get_Size(ADO_LONGPTR* size) override;
    STDMETHODIMP get_Attributes(LONG* attributes) override;
    STDMETHODIMP put_Attributes(LONG attributes) override;

private:
    void SetType(DataTypeEnum type);
    void SetDirection(ParameterDirectionEnum direction);
    void SetValue(const VARIANT& value);

    const std::shared_ptr<ParameterState> state_ = std::make_shared<ParameterState>();
};

} // namespace vndesk::ado
