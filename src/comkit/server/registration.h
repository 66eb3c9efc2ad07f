// SPDX-License-Identifier: MIT
// Writes the class table and the type library into the registry, for the machine or for the user,
// and takes out exactly what was written.
#pragma once

#include <windows.h>

namespace vndesk {

enum class Hive { Machine, User };

// The first failure is returned, after taking back what was written before it.
HRESULT RegisterModule(Hive hive) noexcept;

// Missing keys are not errors. What belongs to another copy of the DLL stays. The first failure is
// returned, after everything else has been taken out.
HRESULT UnregisterModule(Hive hive) noexcept;

} // namespace vndesk
