// SPDX-License-Identifier: MIT
// ADODB.Command: a statement whose values are kept apart from its text.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ado/objects/command_refused.h"
#include "ado/objects/parameter_list.h"

namespace vndesk::ado {

class CommandObject final : public CommandRefused<CommandObject> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Command";

    CommandRun Run(const VARIANT* values, long options) override;

    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_ActiveConnection(_Connection** connection) override;
    STDMETHODIMP putref_ActiveConnection(_Connection* connection) override;
    STDMETHODIMP put_ActiveConnection(VARIANT connection) override;
    STDMETHODIMP get_CommandText(BSTR* text) override;
    STDMETHODIMP put_CommandText(BSTR text) override;
    STDMETHODIMP get_CommandTimeout(LONG* seconds) override;
    STDMETHODIMP put_CommandTimeout(LONG seconds) override;
    STDMETHODIMP get_Prepared(VARIANT_BOOL* prepared) override;
    STDMETHODIMP put_Prepared(VARIANT_BOOL prepared) override;
    STDMETHODIMP Execute(VARIANT* affected, VARIANT* values, LONG options,
                         _Recordset** recordset) override;
    STDMETHODIMP CreateParameter(BSTR name, DataTypeEnum type, ParameterDirectionEnum direction,
                                 ADO_LONGPTR size, VARIANT value, _Parameter** parameter) override;
    STDMETHODIMP get_Parameters(Parameters** parameters) override;
    STDMETHODIMP put_CommandType(CommandTypeEnum type) override;
    STDMETHODIMP get_CommandType(CommandTypeEnum* type) override;
    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP put_Name(BSTR name) override;
    STDMETHODIMP get_State(LONG* state) override;

private:
    void SetConnection(ComPtr<_Connection> connection);
    std::vector<ParameterValue> Values(const VARIANT* given) const;

    ComPtr<_Connection> connection_;
    std::wstring text_;
    std::wstring name_;
    LONG timeout_ = 30; // ADO's own default
    VARIANT_BOOL prepared_ = VARIANT_FALSE;
    CommandTypeEnum type_ = adCmdUnknown;
    const std::shared_ptr<ParameterList> parameters_ = std::make_shared<ParameterList>();
};

} // namespace vndesk::ado
