// SPDX-License-Identifier: MIT
#include "ado/objects/late_create_parameter.h"

#include <comutil.h>

#include <algorithm>
#include <iterator>

#include "comkit/base/com_error.h"
#include "comkit/base/variant.h"
#include "comkit/object/com_object.h"

namespace vndesk::ado {

namespace {

enum Place : DISPID { kName, kType, kDirection, kSize, kValue, kPlaces };

// The arguments of a call by their places: named ones stand first, the others last to first.
class LateArguments {
public:
    explicit LateArguments(const DISPPARAMS& given) {
        std::fill(std::begin(given_), std::end(given_), &missing_);
        if (given.cArgs > kPlaces || given.cNamedArgs > given.cArgs)
            throw ComError(DISP_E_BADPARAMCOUNT);
        for (UINT i = 0; i < given.cArgs; ++i) {
            const DISPID place = i < given.cNamedArgs ? given.rgdispidNamedArgs[i]
                                                      : static_cast<DISPID>(given.cArgs - 1 - i);
            if (place < 0 || place >= kPlaces)
                throw ComError(DISP_E_PARAMNOTFOUND);
            given_[place] = &given.rgvarg[i];
        }
    }

    // Converted to the type; `otherwise` when the argument is left out.
    _variant_t As(VARTYPE type, Place place, const _variant_t& otherwise) const {
        _variant_t value = Resolved(*given_[place]);
        if (V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND)
            return otherwise;
        CheckHr(VariantChangeType(&value, &value, 0, type));
        return value;
    }

    const VARIANT& AsItIs(Place place) const { return *given_[place]; }

private:
    const _variant_t missing_{DISP_E_PARAMNOTFOUND, VT_ERROR};
    const VARIANT* given_[kPlaces] = {};
};

// What ITypeInfo::Invoke makes of a member's failure.
HRESULT Raise(HRESULT code, EXCEPINFO* exception) {
    if (!exception)
        return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = code;
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, &info) == S_OK) {
        info->GetSource(&exception->bstrSource);
        info->GetDescription(&exception->bstrDescription);
    }
    return DISP_E_EXCEPTION;
}

} // namespace

HRESULT InvokeCreateParameter(_Command& command, const DISPPARAMS& given, VARIANT* result,
                              EXCEPINFO* exception) noexcept {
    try {
        const LateArguments arguments(given);
        const _variant_t name = arguments.As(VT_BSTR, kName, L"");
        const _variant_t type = arguments.As(VT_I4, kType, static_cast<long>(adEmpty));
        const _variant_t direction =
            arguments.As(VT_I4, kDirection, static_cast<long>(adParamInput));
        const _variant_t size = arguments.As(VT_I4, kSize, 0l);
        ComPtr<_Parameter> made;
        const HRESULT created =
            command.CreateParameter(V_BSTR(&name), static_cast<DataTypeEnum>(V_I4(&type)),
                                    static_cast<ParameterDirectionEnum>(V_I4(&direction)),
                                    V_I4(&size), arguments.AsItIs(kValue), &made);
        if (FAILED(created))
            return Raise(created, exception);
        if (result) {
            V_VT(result) = VT_DISPATCH;
            V_DISPATCH(result) = made.Detach();
        }
        return S_OK;
    } catch (const ComError& error) {
        return error.Code();
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

} // namespace vndesk::ado
