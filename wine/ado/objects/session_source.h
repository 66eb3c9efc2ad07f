// SPDX-License-Identifier: MIT
// How a record set finds the session behind a connection object, and that the object is one of
// ours.
#pragma once

#include <windows.h>

#include <memory>

namespace vndesk::ado {

class Session;

MIDL_INTERFACE("b0a5d1f2-3c0e-4a57-9b37-2f8f6f1d7c64")
ISessionSource : public IUnknown {
public:
    // Null while the connection is closed. Both sides stand in this DLL.
    virtual std::shared_ptr<Session> OpenedSession() = 0;
};

} // namespace vndesk::ado

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(vndesk::ado::ISessionSource, 0xb0a5d1f2, 0x3c0e, 0x4a57, 0x9b, 0x37, 0x2f, 0x8f,
                0x6f, 0x1d, 0x7c, 0x64)
#endif
