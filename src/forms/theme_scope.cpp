// SPDX-License-Identifier: MIT
#include "theme_scope.h"

#include <string>

#include "com/kit/module.h"

namespace vndesk {

ThemeScope::ThemeScope() {
    const std::wstring path = ModulePath();
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.hModule = ModuleInstance();
    description.lpSource = path.c_str();
    // A DLL's manifest is resource 2 by convention.
    description.lpResourceName = MAKEINTRESOURCEW(2);
    context_ = CreateActCtxW(&description);
    // Without the manifest the classic look is still a working one.
    if (context_ != INVALID_HANDLE_VALUE && !ActivateActCtx(context_, &cookie_)) {
        ReleaseActCtx(context_);
        context_ = INVALID_HANDLE_VALUE;
    }
}

ThemeScope::~ThemeScope() {
    if (context_ == INVALID_HANDLE_VALUE)
        return;
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
}

} // namespace vndesk
