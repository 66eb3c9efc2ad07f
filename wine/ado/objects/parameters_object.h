// SPDX-License-Identifier: MIT
// The Parameters collection of a command.
#pragma once

#include <memory>

#include "ado/objects/ado_object.h"
#include "ado/objects/parameter_list.h"

namespace vndesk::ado {

class ParametersObject final
    : public AdoObject<ParametersObject, Parameters, InterfaceList<_DynaCollection, _Collection>> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Parameters";

    explicit ParametersObject(std::shared_ptr<ParameterList> list) : list_(std::move(list)) {}

    // Parameters("name") = value, which scripts shorten so, is a put to the property of the item.
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) override;
    ADO_REFUSED(Refresh) // no driver here tells types well enough
    STDMETHODIMP Append(IDispatch* parameter) override;
    STDMETHODIMP Delete(VARIANT index) override;
    STDMETHODIMP get_Item(VARIANT index, _Parameter** parameter) override;

private:
    std::size_t IndexOf(const VARIANT& index) const;

    const std::shared_ptr<ParameterList> list_;
};

} // namespace vndesk::ado
