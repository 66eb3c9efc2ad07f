// SPDX-License-Identifier: MIT
// ADO's interfaces: adoint.h of the Windows SDK for MSVC, Wine's msado15 headers for mingw-w64.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#ifdef _MSC_VER
#include <adoint.h>
#else
#include <msado15_backcompat.h>
#endif

namespace vndesk {

using Microsoft::WRL::ComPtr;

using AdoConnection = ComPtr<_Connection>;
using AdoRecordset = ComPtr<_Recordset>;

// "Unspecified", for cursor types, lock types and options.
inline constexpr long kAdoUnspecified = -1;

} // namespace vndesk
