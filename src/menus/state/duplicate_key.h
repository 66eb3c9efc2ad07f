// SPDX-License-Identifier: MIT
// The error of keyed collections, with the number that Visual Basic gives it.
#pragma once

#include <windows.h>

#include "comkit/base/com_error.h"

namespace vndesk {

inline constexpr HRESULT kDuplicateKey = static_cast<HRESULT>(0x800A01C9); // error 457

[[noreturn]] inline void ThrowDuplicateKey() {
    throw ComError(kDuplicateKey,
                   L"This key is already associated with an element of this collection");
}

} // namespace vndesk
