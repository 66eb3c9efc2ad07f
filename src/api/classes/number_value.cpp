// SPDX-License-Identifier: MIT
#include "api/classes/number_value.h"

#include <comutil.h>
#include <olectl.h>

#include "comkit/base/com_error.h"
#include "comkit/base/variant.h"
#include "data/text/number_text.h"
#include "find/text/number_display.h"

namespace vndesk {

namespace {

ExactNumber Float(double value, int digits, double largest) {
    const auto number = FromDouble(value, digits, largest);
    if (!number)
        throw ComError(
            CTL_E_OVERFLOW,
            L"A Double holds every number up to 9007199254740992, a Single up to 16777216: "
            L"give larger ones as Decimal or as text.");
    return *number;
}

ExactNumber Text(std::wstring_view text) {
    if (auto number = FromDigits(text))
        return *number;
    // What is no plain number is read all the same.
    return Float(CvTextToN(text), kDoubleDigits, kLargestExact);
}

ExactNumber Unsigned(ULONGLONG value) {
    return FromScaled(0, value, 0, false);
}

} // namespace

std::optional<ExactNumber> ToNumber(const VARIANT& given) {
    const _variant_t value = Resolved(given);
    switch (V_VT(&value)) {
    case VT_EMPTY:
    case VT_NULL:
        return std::nullopt;
    case VT_I1:
        return FromInteger(static_cast<signed char>(V_I1(&value)));
    case VT_I2:
        return FromInteger(V_I2(&value));
    case VT_I4:
        return FromInteger(V_I4(&value));
    case VT_INT:
        return FromInteger(V_INT(&value));
    case VT_I8:
        return FromInteger(V_I8(&value));
    case VT_UI1:
        return Unsigned(V_UI1(&value));
    case VT_UI2:
        return Unsigned(V_UI2(&value));
    case VT_UI4:
        return Unsigned(V_UI4(&value));
    case VT_UINT:
        return Unsigned(V_UINT(&value));
    case VT_UI8:
        return Unsigned(V_UI8(&value));
    case VT_CY: {
        const LONGLONG units = V_CY(&value).int64;
        const auto bits = static_cast<ULONGLONG>(units);
        return FromScaled(0, units < 0 ? 0 - bits : bits, 4, units < 0);
    }
    case VT_DECIMAL: {
        const DECIMAL& number = V_DECIMAL(&value);
        return FromScaled(number.Hi32, number.Lo64, number.scale, (number.sign & DECIMAL_NEG) != 0);
    }
    case VT_R4:
        return Float(V_R4(&value), kSingleDigits, kLargestExactSingle);
    case VT_R8:
        return Float(V_R8(&value), kDoubleDigits, kLargestExact);
    case VT_BSTR:
        return Text({V_BSTR(&value) ? V_BSTR(&value) : L"", SysStringLen(V_BSTR(&value))});
    default:
        throw ComError(DISP_E_TYPEMISMATCH);
    }
}

} // namespace vndesk
