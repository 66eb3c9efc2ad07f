// SPDX-License-Identifier: MIT
#include "comkit/object/coerced.h"

#include <oleauto.h>

#include <cstring>
#include <utility>

#include "comkit/base/com_error.h"

namespace vndesk {

namespace {

// The variable that an argument refers to, behind a script's VARIANT* if there is one.
const VARIANT* Target(const VARIANT* argument) {
    while (V_VT(argument) == (VT_BYREF | VT_VARIANT))
        argument = V_VARIANTREF(argument);
    return argument;
}

// Size in bytes of a number in a typed variable of the host; 0 for other types.
size_t SizeOf(VARTYPE type) {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
        return 8;
    default:
        return 0;
    }
}

// `value` already has the variable's type. Texts are swapped, so that the old one is freed with
// `value`.
void Put(VARIANT& value, const VARIANT& variable) {
    if (V_VT(&value) == VT_BSTR) {
        std::swap(*V_BSTRREF(&variable), V_BSTR(&value));
    } else if (V_VT(&value) == VT_DECIMAL) {
        *V_DECIMALREF(&variable) = V_DECIMAL(&value);
        V_DECIMALREF(&variable)->wReserved = 0; // shares its place with a VARIANT's vt
    } else {
        std::memcpy(V_BYREF(&variable), &V_NONE(&value), SizeOf(V_VT(&value)));
    }
}

} // namespace

bool Coerced::Needs(const VARIANT& argument, VARTYPE type) {
    if (type == VT_EMPTY || V_VT(&argument) == VT_ERROR || V_VT(&argument) == type)
        return false;
    if (type != VT_BSTR)
        return true;
    const VARIANT* target = Target(&argument);
    return (V_VT(target) == VT_BSTR && !V_BSTR(target)) ||
           (V_VT(target) == (VT_BYREF | VT_BSTR) && !*V_BSTRREF(target));
}

// The copy keeps the caller's own text alive whatever the method does to its argument.
Coerced::Coerced(VARIANT* argument, VARTYPE type) : argument_(argument), original_(*argument) {
    if (type == VT_BSTR) {
        // A copy would be an empty text; some members treat a null one differently.
        V_VT(argument) = VT_BSTR;
        V_BSTR(argument) = nullptr;
        return;
    }
    CheckHr(VariantCopyInd(&value_, const_cast<VARIANT*>(Target(argument))));
    if (type == VT_UI4) {
        // Scripts have signed numbers only: a system colour (0x80000000 and up) is negative.
        CheckHr(VariantChangeType(&value_, &value_, 0, VT_I4));
        V_VT(argument) = VT_UI4;
        V_UI4(argument) = V_UI4(&value_);
        return;
    }
    CheckHr(VariantChangeType(&value_, &value_, 0, static_cast<VARTYPE>(type & ~VT_BYREF)));
    CheckHr(VariantCopy(&before_, &value_));
    if (V_VT(&value_) == VT_BSTR)
        place_ = V_BSTR(&value_);
    V_VT(argument) = type;
    V_BYREF(argument) = &V_NONE(&value_);
}

// A BSTR that the member has replaced counts as set, even if it reads as before.
bool Coerced::IsSet() const {
    if (V_VT(&before_) != VT_BSTR)
        return std::memcmp(&V_NONE(&before_), &V_NONE(&value_), SizeOf(V_VT(&before_))) != 0;
    const BSTR before = V_BSTR(&before_), now = V_BSTR(&value_);
    return now != place_ || SysStringByteLen(now) != SysStringByteLen(before) ||
           std::memcmp(now, before, SysStringByteLen(now)) != 0;
}

void Coerced::WriteBack() {
    if (!(V_VT(argument_) & VT_BYREF) || !(V_VT(&original_) & VT_BYREF) || !IsSet())
        return;
    auto* target = const_cast<VARIANT*>(Target(&original_));
    if (!(V_VT(target) & VT_BYREF)) {
        CheckHr(VariantCopy(target, &value_));
        return;
    }
    const auto type = static_cast<VARTYPE>(V_VT(target) & ~VT_BYREF);
    CheckHr(VariantChangeType(&value_, &value_, 0, type));
    Put(value_, *target);
}

} // namespace vndesk
