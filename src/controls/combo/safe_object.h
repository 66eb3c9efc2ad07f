// SPDX-License-Identifier: MIT
// IObjectSafety with an identifier that every compiler can look up: not all headers give it one.
#pragma once

#include <windows.h>
#include <objsafe.h>

namespace vndesk {

struct DECLSPEC_UUID("CB5BDC81-93C1-11CF-8F20-00805F2CD064") SafeObject : public IObjectSafety {};

} // namespace vndesk

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(vndesk::SafeObject, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C,
                0xD0, 0x64)
#endif
