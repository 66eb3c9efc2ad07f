// SPDX-License-Identifier: MIT
#include "comkit/base/variant.h"

#include <oleauto.h>

#include "comkit/base/com_error.h"

namespace vndesk {

namespace {

// How many references are followed. Scripts add one for each procedure that passes its argument on.
constexpr int kDeepest = 32;

constexpr BYTE kMaxScale = 28;

bool IsSoundDecimal(const DECIMAL& number) noexcept {
    return number.scale <= kMaxScale && (number.sign & ~DECIMAL_NEG) == 0;
}

} // namespace

bool IsSound(const VARIANT& value) noexcept {
    const VARIANT* at = &value;
    for (int depth = 0; depth < kDeepest; ++depth) {
        if (V_VT(at) == VT_DECIMAL)
            return IsSoundDecimal(V_DECIMAL(at));
        if (!(V_VT(at) & VT_BYREF))
            return true;
        if (!V_BYREF(at))
            return false;
        if (V_VT(at) == (VT_BYREF | VT_DECIMAL))
            return IsSoundDecimal(*V_DECIMALREF(at));
        if (V_VT(at) != (VT_BYREF | VT_VARIANT))
            return true;
        at = V_VARIANTREF(at);
    }
    return false;
}

_variant_t Resolved(const VARIANT& value) {
    _variant_t result;
    if (!IsSound(value))
        throw ComError(DISP_E_TYPEMISMATCH);
    CheckHr(VariantCopyInd(&result, const_cast<VARIANT*>(&value)));
    return result;
}

} // namespace vndesk
