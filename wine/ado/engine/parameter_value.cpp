// SPDX-License-Identifier: MIT
#include "ado/engine/parameter_value.h"

#include <oleauto.h>

#include <msado15_backcompat.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "ado/engine/ado_error.h"
#include "ado/text/decimal_text.h"
#include "ado/text/utf8.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"

namespace vndesk::ado {

namespace {

struct TypeRow {
    DataTypeEnum ado;
    ParameterKind kind;
    VARTYPE variant; // what a value of it is converted to
    bool sized;
};

constexpr TypeRow kTypes[] = {{adTinyInt, ParameterKind::Integer, VT_I1, false},
                              {adSmallInt, ParameterKind::Integer, VT_I2, false},
                              {adInteger, ParameterKind::Integer, VT_I4, false},
                              {adBigInt, ParameterKind::Integer, VT_I8, false},
                              {adUnsignedTinyInt, ParameterKind::Integer, VT_UI1, false},
                              {adUnsignedSmallInt, ParameterKind::Integer, VT_UI2, false},
                              {adUnsignedInt, ParameterKind::Integer, VT_UI4, false},
                              {adUnsignedBigInt, ParameterKind::Decimal, VT_UI8, false},
                              {adSingle, ParameterKind::Double, VT_R4, false},
                              {adDouble, ParameterKind::Double, VT_R8, false},
                              {adCurrency, ParameterKind::Decimal, VT_CY, false},
                              {adDecimal, ParameterKind::Decimal, VT_DECIMAL, false},
                              {adNumeric, ParameterKind::Decimal, VT_DECIMAL, false},
                              {adBoolean, ParameterKind::Boolean, VT_BOOL, false},
                              {adDate, ParameterKind::TimeStamp, VT_DATE, false},
                              {adDBDate, ParameterKind::Date, VT_DATE, false},
                              {adDBTime, ParameterKind::Time, VT_DATE, false},
                              {adDBTimeStamp, ParameterKind::TimeStamp, VT_DATE, false},
                              {adBSTR, ParameterKind::Text, VT_BSTR, false},
                              {adChar, ParameterKind::Text, VT_BSTR, true},
                              {adVarChar, ParameterKind::Text, VT_BSTR, true},
                              {adLongVarChar, ParameterKind::Text, VT_BSTR, true},
                              {adWChar, ParameterKind::Text, VT_BSTR, true},
                              {adVarWChar, ParameterKind::Text, VT_BSTR, true},
                              {adLongVarWChar, ParameterKind::Text, VT_BSTR, true},
                              {adBinary, ParameterKind::Binary, VT_ARRAY | VT_UI1, true},
                              {adVarBinary, ParameterKind::Binary, VT_ARRAY | VT_UI1, true},
                              {adLongVarBinary, ParameterKind::Binary, VT_ARRAY | VT_UI1, true}};

const TypeRow* FindType(long type) noexcept {
    const auto* row = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [type](const TypeRow& known) { return known.ado == type; });
    return row == std::end(kTypes) ? nullptr : row;
}

// What a value without a declared type is.
DataTypeEnum OwnType(VARTYPE given) {
    switch (given) {
    case VT_INT:
        return adInteger;
    case VT_UINT:
        return adUnsignedInt;
    case VT_EMPTY:
    case VT_NULL:
        return adVarWChar;
    default:
        break;
    }
    // Of types with the same values the first one, and texts and bytes of any length.
    for (const TypeRow& row : kTypes)
        if (row.variant == given)
            return row.ado;
    ThrowMisuse(AdoMisuse::DataConversion);
}

// The object's default value, which may be another reference.
_variant_t DefaultValue(IDispatch* object) {
    DISPPARAMS none = {};
    _variant_t value;
    if (!object || FAILED(object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr)))
        ThrowMisuse(AdoMisuse::DataConversion);
    return Resolved(value);
}

_variant_t Converted(const VARIANT& plain, VARTYPE type) {
    _variant_t value;
    if (FAILED(VariantChangeType(&value, const_cast<VARIANT*>(&plain), 0, type)))
        ThrowMisuse(AdoMisuse::DataConversion);
    return value;
}

std::vector<BYTE> BytesOf(const VARIANT& value) {
    if (V_VT(&value) != (VT_ARRAY | VT_UI1) || SafeArrayGetDim(V_ARRAY(&value)) != 1)
        ThrowMisuse(AdoMisuse::DataConversion);
    const SAFEARRAY& array = *V_ARRAY(&value);
    const auto* first = static_cast<const BYTE*>(array.pvData);
    return {first, first + array.rgsabound[0].cElements};
}

bool HasSurrogate(std::wstring_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](wchar_t ch) { return ch >= 0xD800 && ch < 0xE000; });
}

// Without half characters, which drivers join with what comes after them.
std::wstring TextOf(const VARIANT& plain) {
    std::wstring text;
    if (V_VT(&plain) == VT_BSTR) {
        text = FromBstr(V_BSTR(&plain));
    } else {
        const _variant_t value = Converted(plain, VT_BSTR);
        text = FromBstr(V_BSTR(&value));
    }
    if (HasSurrogate(text))
        text = FromUtf8(ToUtf8(text));
    if (text.find(L'\0') != std::wstring::npos) // drivers end there
        ThrowMisuse(AdoMisuse::DataConversion);
    return text;
}

// As drivers write dates, whatever the locale; otherwise as the user's locale reads it.
std::optional<DateValue> DateOf(const VARIANT& plain) {
    if (V_VT(&plain) == VT_BSTR)
        if (const auto date = ParseIsoDate(ToUtf8(FromBstr(V_BSTR(&plain)))))
            return date;
    const _variant_t date = Converted(plain, VT_DATE);
    return FromOleDate(V_DATE(&date));
}

DateValue DateAs(const VARIANT& plain, DataTypeEnum type) {
    constexpr DateValue kDayZero = {1899, 12, 30, 0, 0, 0, false};
    const std::optional<DateValue> given = DateOf(plain);
    if (!given)
        ThrowMisuse(AdoMisuse::DataConversion);
    DateValue date = *given;
    const bool dayZero =
        date.year == kDayZero.year && date.month == kDayZero.month && date.day == kDayZero.day;
    const bool timeAlone = type == adDBTime || (type == adDate && dayZero && date.hasTime);
    if (timeAlone) {
        date.year = date.month = date.day = 0;
        date.hasTime = true;
    } else if (date.year == 0 && type != adDate) {
        date.year = kDayZero.year;
        date.month = kDayZero.month;
        date.day = kDayZero.day;
    }
    if (type == adDBDate)
        date.hasTime = false;
    if (type == adDBTimeStamp)
        date.hasTime = true;
    return date;
}

std::string DecimalOf(const VARIANT& plain, VARTYPE type) {
    const _variant_t number = Converted(Converted(plain, type), VT_DECIMAL);
    const DECIMAL& value = V_DECIMAL(&number);
    return DecimalText({value.Hi32, value.Lo64, value.scale, (value.sign & DECIMAL_NEG) != 0});
}

std::int64_t IntegerOf(const VARIANT& plain, VARTYPE type) {
    if (V_VT(&plain) == VT_I4 && type == VT_I4)
        return V_I4(&plain);
    const _variant_t number = Converted(Converted(plain, type), VT_I8);
    return V_I8(&number);
}

bool TruthOf(const VARIANT& plain) {
    const _variant_t truth = Converted(plain, VT_BOOL);
    return V_BOOL(&truth) != VARIANT_FALSE;
}

double DoubleOf(const VARIANT& plain, VARTYPE type) {
    const _variant_t value = Converted(Converted(plain, type), VT_R8);
    const double number = V_R8(&value);
    if (!std::isfinite(number))
        ThrowMisuse(AdoMisuse::DataConversion);
    return number;
}

void CheckSize(std::size_t length, LONGLONG size) {
    if (size > 0 && length > static_cast<ULONGLONG>(size))
        ThrowMisuse(AdoMisuse::DataConversion);
}

} // namespace

bool IsParameterType(long type) noexcept {
    return type == adEmpty || type == adVariant || FindType(type);
}

bool IsSized(long type) noexcept {
    const TypeRow* row = FindType(type);
    return row && row->sized;
}

_variant_t PlainValue(const VARIANT& given) {
    _variant_t value = Resolved(given);
    if (V_VT(&value) == VT_DISPATCH)
        value = DefaultValue(V_DISPATCH(&value));
    if (V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND)
        return {};
    if (V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN || V_VT(&value) == VT_ERROR)
        ThrowMisuse(AdoMisuse::DataConversion);
    return value;
}

ParameterValue TypedValue(const VARIANT& plain, long type, LONGLONG size) {
    const TypeRow* row =
        FindType(type == adVariant ? static_cast<long>(OwnType(V_VT(&plain))) : type);
    if (!row)
        ThrowMisuse(AdoMisuse::ParameterUndefined);
    ParameterValue value;
    value.kind = row->kind;
    value.null = V_VT(&plain) == VT_EMPTY || V_VT(&plain) == VT_NULL;
    if (value.null)
        return value;
    // Bytes would become a text of half as many letters.
    if ((V_VT(&plain) & VT_ARRAY) && row->kind != ParameterKind::Binary)
        ThrowMisuse(AdoMisuse::DataConversion);
    switch (row->kind) {
    case ParameterKind::Integer:
        value.integer = IntegerOf(plain, row->variant);
        break;
    case ParameterKind::Double:
        value.number = DoubleOf(plain, row->variant);
        break;
    case ParameterKind::Decimal:
        value.decimal = DecimalOf(plain, row->variant);
        break;
    case ParameterKind::Boolean:
        value.integer = TruthOf(plain);
        break;
    case ParameterKind::Date:
    case ParameterKind::Time:
    case ParameterKind::TimeStamp:
        value.date = DateAs(plain, row->ado);
        value.kind = value.date.year == 0 ? ParameterKind::Time
                     : value.date.hasTime ? ParameterKind::TimeStamp
                                          : ParameterKind::Date;
        break;
    case ParameterKind::Text:
        value.text = TextOf(plain);
        CheckSize(value.text.size(), row->sized ? size : 0);
        break;
    case ParameterKind::Binary:
        value.bytes = BytesOf(plain);
        CheckSize(value.bytes.size(), size);
        break;
    }
    return value;
}

} // namespace vndesk::ado
