// SPDX-License-Identifier: MIT
#include "dispatch.h"

#include <windows.h>
#include <oleauto.h>
#include <comutil.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "variant.h"

namespace vndesk {

namespace {

// Where a by-reference argument really lives: behind a script's VARIANT*, if there is one.
VARIANT* Target(VARIANT* argument) {
    while (V_VT(argument) == (VT_BYREF | VT_VARIANT))
        argument = V_VARIANTREF(argument);
    return argument;
}

// One argument brought to its declared type for the length of a call.
class Coerced {
public:
    Coerced(VARIANT* argument, VARTYPE type) : argument_(argument), original_(*argument) {
        VARIANT* target = Target(argument);
        // The copy keeps the caller's own text alive whatever the method does to its by-reference
        // argument.
        CheckHr(VariantCopyInd(&value_, target));
        CheckHr(VariantChangeType(&value_, &value_, 0, type));
        V_VT(argument) = static_cast<VARTYPE>(VT_BYREF | type);
        V_BYREF(argument) = &V_NONE(&value_);
    }

    ~Coerced() { *argument_ = original_; }

    Coerced(const Coerced&) = delete;
    Coerced& operator=(const Coerced&) = delete;

    // What the method left in the argument, put into the caller's variable.
    void WriteBack() {
        if (!(V_VT(&original_) & VT_BYREF))
            return;
        VARIANT* target = Target(&original_);
        if (!(V_VT(target) & VT_BYREF)) {
            CheckHr(VariantCopy(target, &value_));
            return;
        }
        const auto type = static_cast<VARTYPE>(V_VT(target) & ~VT_BYREF);
        CheckHr(VariantChangeType(&value_, &value_, 0, type));
        WriteTyped(target, type);
    }

private:
    void WriteTyped(VARIANT* target, VARTYPE type) {
        switch (type) {
        case VT_BSTR:
            std::swap(*V_BSTRREF(target), V_BSTR(&value_));
            break;
        case VT_I2:
        case VT_BOOL:
            *V_I2REF(target) = V_I2(&value_);
            break;
        case VT_UI1:
            *V_UI1REF(target) = V_UI1(&value_);
            break;
        case VT_I4:
        case VT_R4:
            *V_I4REF(target) = V_I4(&value_);
            break;
        case VT_R8:
        case VT_DATE:
        case VT_CY:
            *V_R8REF(target) = V_R8(&value_);
            break;
        default:
            break;
        }
    }

    VARIANT* argument_;
    VARIANT original_;
    // Owns what it holds from the first step of the constructor on.
    _variant_t value_;
};

// The parameter that an argument is for. Named arguments stand first and carry their parameter's
// place (a property's new value a negative number); the others follow, the last one first.
UINT PositionOf(const DISPPARAMS& parameters, UINT argument) {
    return argument < parameters.cNamedArgs
               ? static_cast<UINT>(parameters.rgdispidNamedArgs[argument])
               : parameters.cArgs - 1 - argument;
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
            (names[i] < 0 || static_cast<size_t>(names[i]) >= member.referred.size()))
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
            const UINT position = PositionOf(*parameters, i);
            if (position >= member->referred.size())
                continue;
            const VARTYPE wanted = member->referred[position];
            VARIANT* argument = &parameters->rgvarg[i];
            if (wanted == VT_EMPTY || V_VT(argument) == VT_ERROR ||
                V_VT(argument) == (VT_BYREF | wanted))
                continue;
            try {
                coerced.push_back(std::make_unique<Coerced>(argument, wanted));
            } catch (const ComError&) {
                if (badArgument)
                    *badArgument = i;
                return DISP_E_TYPEMISMATCH;
            }
        }
        const HRESULT called =
            type.info->Invoke(instance, id, flags, parameters, result, exception, badArgument);
        if (SUCCEEDED(called))
            for (const auto& argument : coerced)
                argument->WriteBack();
        else if (result) // the platform may leave the declared type with nothing in it
            VariantInit(result);
        return called;
    } catch (...) {
        return CurrentError().code;
    }
}

} // namespace vndesk
