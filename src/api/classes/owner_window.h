// SPDX-License-Identifier: MIT
// The window of a host that a form stays in front of, as hosts name it.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace vndesk {

// A window handle as a number, or an object with the property hWnd, which is asked now. Null for
// nothing, and for an object without one. Throws for what is neither.
HWND OwnerWindow(const VARIANT& owner);

} // namespace vndesk
