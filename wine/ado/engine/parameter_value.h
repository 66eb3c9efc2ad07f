// SPDX-License-Identifier: MIT
// What a host gives for a parameter, turned into the parameter's type.
#pragma once

#include <windows.h>
#include <comutil.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ado/text/date_value.h"

namespace vndesk::ado {

enum class ParameterKind { Integer, Double, Decimal, Boolean, Date, Time, TimeStamp, Text, Binary };

struct ParameterValue {
    ParameterKind kind = ParameterKind::Text;
    bool null = true;
    std::int64_t integer = 0; // Integer and Boolean
    double number = 0;
    std::wstring text;
    std::string decimal;
    DateValue date;
    std::vector<BYTE> bytes;
};

// Types are DataTypeEnum, by which a host declares a parameter.
bool IsParameterType(long type) noexcept;
// Whether its values have no length of their own, so that the parameter needs one.
bool IsSized(long type) noexcept;

// The value itself: references are followed, an object gives its default value, and what is missing
// becomes Empty. Throws ADO's error 3421 for what no parameter can hold.
_variant_t PlainValue(const VARIANT& given);

// A plain value as the type has it; Null and Empty are a Null of that type. adVariant takes the
// value's own type. Longer texts and bytes than `size` are refused when it is positive. Throws
// ADO's errors 3421 and 3708.
ParameterValue TypedValue(const VARIANT& plain, long type, LONGLONG size);

} // namespace vndesk::ado
