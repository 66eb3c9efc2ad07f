// SPDX-License-Identifier: MIT
#include "data/connect/values.h"

#include <comutil.h>
#include <oleauto.h>

#include <algorithm>

#include "comkit/base/bstr.h"
#include "comkit/base/com_error.h"
#include "comkit/base/variant.h"

namespace vndesk {

namespace {

// In the invariant locale, so that the same row reads the same on every machine.
bool Convert(const VARIANT& value, VARTYPE type, _variant_t& result) {
    return IsSound(value) && SUCCEEDED(VariantChangeTypeEx(&result, const_cast<VARIANT*>(&value),
                                                           LOCALE_INVARIANT, 0, type));
}

} // namespace

// Most values already have the wanted type: they are used without VariantChangeType, which would
// copy texts.

std::wstring NullToText(const VARIANT& value) {
    if (V_VT(&value) == VT_BSTR)
        return FromBstr(V_BSTR(&value));
    _variant_t text;
    if (!Convert(value, VT_BSTR, text))
        return {};
    return {V_BSTR(&text), SysStringLen(V_BSTR(&text))};
}

long NullToInteger(const VARIANT& value) {
    if (V_VT(&value) == VT_I4)
        return V_I4(&value);
    _variant_t number;
    return Convert(value, VT_I4, number) ? V_I4(&number) : 0;
}

double NullToDouble(const VARIANT& value) {
    _variant_t number;
    return Convert(value, VT_R8, number) ? V_R8(&number) : 0;
}

std::optional<Moment> NullToMoment(const VARIANT& value) {
    if (V_VT(&value) == VT_DATE)
        return Moment{V_DATE(&value)};
    if (V_VT(&value) != VT_BSTR)
        return std::nullopt;
    // Fractions of a second would not be read.
    std::wstring text = FromBstr(V_BSTR(&value));
    text.resize(std::min(text.find(L'.'), text.size()));
    Moment moment;
    if (FAILED(VarDateFromStr(text.data(), LOCALE_INVARIANT, 0, &moment.days)))
        return std::nullopt;
    return moment;
}

long ToInteger(const VARIANT& value) {
    _variant_t number;
    if (!Convert(value, VT_I4, number))
        throw ComError(DISP_E_TYPEMISMATCH);
    return V_I4(&number);
}

} // namespace vndesk
