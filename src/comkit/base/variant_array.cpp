// SPDX-License-Identifier: MIT
#include "comkit/base/variant_array.h"

#include <oleauto.h>

#include <cstring>

#include "comkit/base/variant.h"

namespace vndesk {

std::optional<ByteString> ToBytes(const VARIANT& given) {
    const _variant_t value = Resolved(given);
    if (V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL)
        return ByteString();
    if (V_VT(&value) != (VT_ARRAY | VT_UI1))
        return std::nullopt;
    SAFEARRAY* const array = V_ARRAY(&value);
    if (!array)
        return ByteString();
    LONG first = 0, last = -1;
    if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
        FAILED(SafeArrayGetUBound(array, 1, &last)))
        return std::nullopt;
    void* data = nullptr;
    CheckHr(SafeArrayAccessData(array, &data));
    // Taken before it can fail, so that the array is let go.
    ByteString bytes;
    const ErrorState error = Trap([&] {
        if (last >= first)
            bytes.assign(static_cast<const unsigned char*>(data),
                         static_cast<std::size_t>(static_cast<long long>(last) - first + 1));
    });
    SafeArrayUnaccessData(array);
    if (error)
        throw ComError(error.code);
    return bytes;
}

void GiveBytes(VARIANT& value, std::basic_string_view<unsigned char> bytes) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (!array)
        throw ComError(E_OUTOFMEMORY);
    if (!bytes.empty())
        std::memcpy(array->pvData, bytes.data(), bytes.size());
    V_VT(&value) = VT_ARRAY | VT_UI1;
    V_ARRAY(&value) = array;
}

} // namespace vndesk
