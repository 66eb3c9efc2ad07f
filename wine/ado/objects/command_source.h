// SPDX-License-Identifier: MIT
// How a record set runs the command that it is opened with.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include <msado15_backcompat.h>

#include "ado/engine/session.h"
#include "comkit/object/com_object.h"

namespace vndesk::ado {

struct CommandRun {
    std::wstring text;
    ComPtr<IDispatch> connection;
    std::shared_ptr<Session> session;
    Outcome outcome;
};

MIDL_INTERFACE("2e8a3c64-7d15-4f0b-a6a1-93c1b0c4d7e5")
ICommandSource : public IUnknown {
public:
    // `values` may be null. Both sides stand in this DLL: it throws.
    virtual CommandRun Run(const VARIANT* values, long options) = 0;
};

} // namespace vndesk::ado

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(vndesk::ado::ICommandSource, 0x2e8a3c64, 0x7d15, 0x4f0b, 0xa6, 0xa1, 0x93, 0xc1,
                0xb0, 0xc4, 0xd7, 0xe5)
#endif
