// SPDX-License-Identifier: MIT
// A registered class as an early-bound host makes it.
#pragma once

#include <wrl/client.h>

#include "support/check_hr.h"

namespace vndesk::test {

template <class Interface> Microsoft::WRL::ComPtr<Interface> NewObject(const wchar_t* progId) {
    CLSID clsid = {};
    Microsoft::WRL::ComPtr<Interface> object;
    EXPECT_SUCCEEDED(CLSIDFromProgID(progId, &clsid));
    EXPECT_SUCCEEDED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
    return object;
}

} // namespace vndesk::test
