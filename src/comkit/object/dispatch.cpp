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

// The type that an argument is brought to. Named arguments stand first and carry their parameter's
// place (a property's new value, the last parameter, a number of its own); the others follow, the
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

// What is said to be there is there, and each parameter is named once at most.
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
        // The platform raises what it finds pending: an error left by an earlier call must not
        // count.
        SetErrorInfo(0, nullptr);
        const Member* member = type.members.Find(id, flags);
        // The platforms name different errors.
        if (!member)
            return DISP_E_MEMBERNOTFOUND;
        CheckHr(CheckList(*parameters, *member));
        std::vector<std::unique_ptr<Coerced>> coerced;
        // The platform's call may overlook what is too much.
        if (parameters->cArgs > member->mostArguments)
            return DISP_E_BADPARAMCOUNT;
        for (UINT i = 0; i < parameters->cArgs; ++i) {
            // The platform's conversions follow every reference.
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
                // The platform's call names the error of an argument by value.
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
            if (result) // the platform may leave the declared type with nothing in it
                VariantInit(result);
            return called;
        }
        if (result && member->unsignedResult && V_VT(result) == VT_UI4)
            V_VT(result) = VT_I4;
        // What a variable's type has no room for.
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
