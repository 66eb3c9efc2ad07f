// SPDX-License-Identifier: MIT
// How an object reads the settings behind an ISettings of its host, and that it is one of ours.
#pragma once

#include <windows.h>

#include "settings/settings.h"

namespace vndesk {

MIDL_INTERFACE("0dbeb560-023b-4beb-8489-8ad5aa31825c")
ISettingsSource : public IUnknown {
public:
    // Both sides stand in this DLL.
    virtual Settings Values() const = 0;
};

} // namespace vndesk

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(vndesk::ISettingsSource, 0x0dbeb560, 0x023b, 0x4beb, 0x84, 0x89, 0x8a, 0xd5, 0xaa,
                0x31, 0x82, 0x5c)
#endif
