// SPDX-License-Identifier: MIT
// Makes an object of a class that is registered by a name. Failed calls throw HostError.
#pragma once
#include <windows.h>

#include <wrl/client.h>

#include "host_error.h"

template <class Interface> Microsoft::WRL::ComPtr<Interface> Create(const wchar_t* progId) {
    CLSID clsid;
    Microsoft::WRL::ComPtr<Interface> object;
    Check(CLSIDFromProgID(progId, &clsid));
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
    return object;
}
