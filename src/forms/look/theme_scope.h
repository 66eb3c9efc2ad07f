// SPDX-License-Identifier: MIT
// The DLL's own manifest asks for common controls 6. While one of these lives, windows are created
// under it, whatever the host's manifest says.
#pragma once

#include <windows.h>

namespace vndesk {

class ThemeScope {
public:
    ThemeScope();
    ~ThemeScope();
    ThemeScope(const ThemeScope&) = delete;
    ThemeScope& operator=(const ThemeScope&) = delete;

private:
    bool active_;
    ULONG_PTR cookie_ = 0;
};

} // namespace vndesk
