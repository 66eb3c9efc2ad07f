// SPDX-License-Identifier: MIT
// The class objects of the module, one per row of its class table.
#pragma once

#include <windows.h>

#include "comkit/base/module.h"

namespace vndesk {

HRESULT GetClassFactory(REFCLSID clsid, REFIID iid, void** factory) noexcept;

} // namespace vndesk
