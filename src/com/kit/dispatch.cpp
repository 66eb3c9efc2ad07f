// SPDX-License-Identifier: MIT
#include "dispatch.h"

#include <windows.h>
#include <oleauto.h>
#include <comutil.h>

#include <memory>
#include <utility>
#include <vector>

namespace vndesk {

namespace {

// Where a by-reference argument really lives: behind a script's VARIANT*, if there is one.
VARIANT* Target(VARIANT* argument) {
    while (V_VT(argument) == (VT_BYREF | VT_VARIANT))
        argument = V_VARIANTREF(argument);
    return argument;
}

// The type behind a pointer parameter, or VT_EMPTY when the platform's call serves it well.
VARTYPE ReferredType(const ELEMDESC& parameter) {
    if (parameter.tdesc.vt != VT_PTR)
        return VT_EMPTY;
    switch (const VARTYPE type = parameter.tdesc.lptdesc->vt) {
    case VT_BSTR:
    case VT_BOOL:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_UI1:
        return type;
    case VT_INT:
        return VT_I4;
    default:
        return VT_EMPTY;
    }
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

// The function's description for as long as it is looked at.
class FunctionDescription {
public:
    FunctionDescription(ITypeInfo* type, DISPID member, WORD flags) : type_(type) {
        // Walked, not asked for by member: of a dual interface the platforms count that index from
        // different functions, with those of IDispatch or without.
        for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &description_)); ++i) {
            if (description_->memid == member && (description_->invkind & flags))
                return;
            type->ReleaseFuncDesc(description_);
            description_ = nullptr;
        }
        description_ = nullptr;
    }

    ~FunctionDescription() {
        if (description_)
            type_->ReleaseFuncDesc(description_);
    }

    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;

    const FUNCDESC* operator->() const { return description_; }
    const FUNCDESC& operator*() const { return *description_; }
    explicit operator bool() const { return description_ != nullptr; }

private:
    ITypeInfo* type_;
    FUNCDESC* description_ = nullptr;
};

// How many arguments a call may have. A property without parameters may have some: they go to what
// it returns.
UINT MostArguments(const FUNCDESC& function) {
    if (function.invkind != INVOKE_FUNC || function.cParamsOpt < 0)
        return UINT_MAX;
    UINT count = 0;
    for (SHORT i = 0; i < function.cParams; ++i)
        if (!(function.lprgelemdescParam[i].paramdesc.wParamFlags &
              (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID)))
            ++count;
    return count;
}

// The parameter that an argument is for. Named arguments stand first and carry their parameter's
// place (a property's new value a negative number); the others follow, the last one first.
UINT PositionOf(const DISPPARAMS& parameters, UINT argument) {
    return argument < parameters.cNamedArgs
               ? static_cast<UINT>(parameters.rgdispidNamedArgs[argument])
               : parameters.cArgs - 1 - argument;
}

} // namespace

HRESULT InvokeCoerced(ITypeInfo* type, void* instance, DISPID member, WORD flags,
                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                      UINT* badArgument) noexcept {
    try {
        // The platform raises what it finds pending: an error left by an earlier call must not
        // count.
        SetErrorInfo(0, nullptr);
        const FunctionDescription function(type, member, flags);
        // The platforms name different errors.
        if (!function)
            return DISP_E_MEMBERNOTFOUND;
        std::vector<std::unique_ptr<Coerced>> coerced;
        // The platform's call may overlook what is too much.
        if (parameters->cArgs > MostArguments(*function))
            return DISP_E_BADPARAMCOUNT;
        for (UINT i = 0; i < parameters->cArgs; ++i) {
            const UINT position = PositionOf(*parameters, i);
            if (position >= static_cast<UINT>(function->cParams))
                continue;
            const VARTYPE wanted = ReferredType(function->lprgelemdescParam[position]);
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
            type->Invoke(instance, member, flags, parameters, result, exception, badArgument);
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
