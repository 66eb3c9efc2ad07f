// SPDX-License-Identifier: MIT
// A typed value as a literal of an engine that the host has named.
#pragma once

#include <string>
#include <string_view>

#include "data/text/dialect.h"

namespace vndesk {

// `op` is the operator in capitals. What does not suit the field's type is written as a text. Types
// that cannot be searched by value give "".
std::wstring WriteValue(std::wstring_view value, long typeCode, std::wstring_view op,
                        const Dialect& dialect);

} // namespace vndesk
