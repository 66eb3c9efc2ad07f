// SPDX-License-Identifier: MIT
// Text work of the search conditions: a typed value written for its field type, dates rearranged,
// brackets counted.
#pragma once

#include "data/text/literals.h"

#include <string>
#include <string_view>

namespace vndesk {

// What a field's type asks for. None: fields of the type cannot be searched by value.
enum class ValueForm { None, Number, Date, Text };
ValueForm FormOfType(long typeCode);

// `op` is the operator in capitals. Types that cannot be searched by value give "".
std::wstring FormatValue(std::wstring_view value, long typeCode, std::wstring_view op,
                         DatabaseKind dbKind);

// Matches of `searched`, overlapping ones included.
long CountChar(std::wstring_view text, std::wstring_view searched);

// A day/month/year entry as month/day/year; empty when it is not a date.
std::wstring ToUSDate(std::wstring_view text);

} // namespace vndesk
