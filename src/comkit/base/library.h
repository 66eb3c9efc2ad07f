// SPDX-License-Identifier: MIT
// A system DLL and its functions, found when they are needed.
#pragma once

#include <windows.h>

#include "comkit/base/com_error.h"

namespace vndesk {

// The DLL stays loaded, as windows of its classes need it anyway. Throws for what is missing.
class Library {
public:
    explicit Library(const wchar_t* name) : module_(LoadLibraryW(name)) {
        // GetProcAddress of a null module would search the host's program.
        if (!module_)
            throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    }

    template <class Function> void Find(Function& function, const char* name) const {
        function =
            reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
        if (!function)
            throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    }

private:
    HMODULE module_;
};

} // namespace vndesk
