// SPDX-License-Identifier: MIT
#include "comkit/object/dispatch.h"

#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "comkit/base/variant.h"
#include "comkit/object/coerced.h"

namespace vndesk {

namespace {

// The type that an argument is converted to. rgvarg begins with the named arguments, whose
// parameters are in rgdispidNamedArgs (DISPID_PROPERTYPUT is the last one); the others follow, the
// last one first.
VARTYPE PassedType(const DISPPARAMS& parameters, UINT argument, const Member& member) {
    size_t position = parameters.cArgs - 1 - argument;
    if (argument < parameters.cNamedArgs) {
        const DISPID name = parameters.rgdispidNamedArgs[argument];
        position =
            name == DISPID_PROPERTYPUT ? member.passed.size() - 1 : static_cast<size_t>(name);
    }
    return position < member.passed.size() ? member.passed[position] : VARTYPE{VT_EMPTY};
}

// The arrays exist; no parameter is named twice.
HRESULT CheckList(const DISPPARAMS& parameters, const Member& member) {
    if ((parameters.cArgs > 0 && !parameters.rgvarg) ||
        (parameters.cNamedArgs > 0 && !parameters.rgdispidNamedArgs) ||
        parameters.cNamedArgs > parameters.cArgs)
        return E_INVALIDARG;
    const DISPID* const names = parameters.rgdispidNamedArgs;
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        if (names[i] != DISPID_PROPERTYPUT &&
            (names[i] < 0 || static_cast<size_t>(names[i]) >= member.passed.size()))
            return DISP_E_PARAMNOTFOUND;
        if (std::find(names, names + i, names[i]) != names + i)
            return E_INVALIDARG;
    }
    return S_OK;
}

} // namespace

HRESULT InvokeCoerced(const TypeDescription& type, void* instance, DISPID id, WORD flags,
                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                      UINT* badArgument) noexcept {
    try {
        // ITypeInfo::Invoke reports pending error information: an earlier call's must not count.
        SetErrorInfo(0, nullptr);
        const Member* member = type.members.Find(id, flags);
        // ITypeInfo::Invoke returns different codes here on Windows and Wine.
        if (!member)
            return DISP_E_MEMBERNOTFOUND;
        CheckHr(CheckList(*parameters, *member));
        std::vector<std::unique_ptr<Coerced>> coerced;
        // ITypeInfo::Invoke may ignore surplus arguments.
        if (parameters->cArgs > member->mostArguments)
            return DISP_E_BADPARAMCOUNT;
        for (UINT i = 0; i < parameters->cArgs; ++i) {
            // VariantCopyInd and VariantChangeType follow every reference.
            if (!IsSound(parameters->rgvarg[i])) {
                if (badArgument)
                    *badArgument = i;
                return DISP_E_TYPEMISMATCH;
            }
            const VARTYPE wanted = PassedType(*parameters, i, *member);
            VARIANT* argument = &parameters->rgvarg[i];
            if (!Coerced::Needs(*argument, wanted))
                continue;
            try {
                coerced.push_back(std::make_unique<Coerced>(argument, wanted));
            } catch (const ComError&) {
                // ITypeInfo::Invoke itself reports a bad argument by value.
                if (!(wanted & VT_BYREF))
                    continue;
                if (badArgument)
                    *badArgument = i;
                return DISP_E_TYPEMISMATCH;
            }
        }
        const HRESULT called =
            type.info->Invoke(instance, id, flags, parameters, result, exception, badArgument);
        if (FAILED(called)) {
            if (result) // ITypeInfo::Invoke may leave the declared type and no value
                VariantInit(result);
            return called;
        }
        if (result && member->unsignedResult && V_VT(result) == VT_UI4)
            V_VT(result) = VT_I4;
        // Fails where the caller's variable has no room for the value.
        const ErrorState lost = Trap([&] {
            for (const auto& argument : coerced)
                argument->WriteBack();
        });
        if (lost && result)
            VariantClear(result);
        return lost ? lost.code : called;
    } catch (...) {
        return CurrentError().code;
    }
}

} // namespace vndesk
