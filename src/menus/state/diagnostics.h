// SPDX-License-Identifier: MIT
// The hook suppresses its errors and writes them to the debugger.
#pragma once

#include <windows.h>

#include "comkit/base/com_error.h"

namespace vndesk {

// Writes the system's message for an error and the routine's name to the debugger.
inline void Diagnose(const ErrorState& error, const wchar_t* routine) {
    Trap([&] { OutputDebugStringW((error.description + routine + L"\n").c_str()); });
}

inline ErrorState LastError() {
    ErrorState error;
    error.code = HRESULT_FROM_WIN32(GetLastError());
    Trap([&] { error.description = SystemMessage(error.code); });
    return error;
}

// Runs a routine of the hook; an error ends it and nothing else.
template <class Routine> void Suppress(const wchar_t* name, Routine&& routine) {
    const ErrorState error = Trap(routine);
    if (error)
        Diagnose(error, name);
}

} // namespace vndesk
