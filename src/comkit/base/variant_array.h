// SPDX-License-Identifier: MIT
// Arrays across the COM boundary: of Variants, which scripts can read, and of bytes.
#pragma once

#include <windows.h>
#include <comutil.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "comkit/base/com_error.h"

namespace vndesk {

// An array of Variants from 0, what `member` makes of each item.
template <class Items, class Member>
void GiveArray(VARIANT* value, const Items& items, Member member) {
    if (!value)
        throw ComError(E_POINTER);
    VariantInit(value);
    _variant_t array;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(items.size()));
    if (!V_ARRAY(&array))
        throw ComError(E_OUTOFMEMORY);
    V_VT(&array) = VT_ARRAY | VT_VARIANT;
    LONG i = 0;
    for (const auto& item : items) {
        _variant_t element = member(item);
        CheckHr(SafeArrayPutElement(V_ARRAY(&array), &i, &element));
        ++i;
    }
    *value = array.Detach();
}

using ByteString = std::basic_string<unsigned char>;

// A copy of an array of bytes with one dimension; Null, Empty and an array that was never made hold
// none. Nothing for all other values.
std::optional<ByteString> ToBytes(const VARIANT& value);

// `value` is empty.
void GiveBytes(VARIANT& value, std::basic_string_view<unsigned char> bytes);

} // namespace vndesk
