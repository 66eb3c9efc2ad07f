// SPDX-License-Identifier: MIT
// Texts across the COM boundary: BSTRs may hold zero characters and a null one is the empty text.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

#include "comkit/base/com_error.h"

namespace vndesk {

inline std::wstring FromBstr(BSTR text) {
    return {text ? text : L"", SysStringLen(text)};
}

// The caller owns the result.
inline BSTR ToBstr(std::wstring_view text) {
    const BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!copy)
        throw ComError(E_OUTOFMEMORY);
    return copy;
}

// Out parameters are cleared before anything can fail.
template <class T> T& ClearedOut(T* out) {
    if (!out)
        throw ComError(E_POINTER);
    *out = T{};
    return *out;
}

// The pointer to the text must not be null; the BSTR itself may be.
inline std::wstring FromReference(const BSTR* text) {
    if (!text)
        throw ComError(E_POINTER);
    return FromBstr(*text);
}

} // namespace vndesk
