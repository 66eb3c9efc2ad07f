// SPDX-License-Identifier: MIT
// Windows of a host, as their handles come through the interfaces.
#pragma once

#include <windows.h>

namespace vndesk {

// Window handles fit into 32 bits and are sign-extended.
inline HWND ToWindow(LONGLONG handle) {
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
}

} // namespace vndesk
