// SPDX-License-Identifier: MIT
#include "theme_scope.h"

#include <string>

#include "com/kit/module.h"
#include "images.h"

namespace vndesk {

namespace {

// Reading a manifest takes longer than loading the DLL: once is enough. Without it the classic look
// is still a working one.
class ControlsManifest {
public:
    ControlsManifest() {
        const std::wstring path = ModulePath();
        ACTCTXW description = {};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        description.hModule = ModuleInstance();
        description.lpSource = path.c_str();
        description.lpResourceName = MAKEINTRESOURCEW(kManifestControls);
        context_ = CreateActCtxW(&description);
    }
    ~ControlsManifest() {
        if (context_ != INVALID_HANDLE_VALUE)
            ReleaseActCtx(context_);
    }
    ControlsManifest(const ControlsManifest&) = delete;
    ControlsManifest& operator=(const ControlsManifest&) = delete;

    bool Activate(ULONG_PTR* cookie) const {
        return context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, cookie);
    }

private:
    HANDLE context_;
};

} // namespace

ThemeScope::ThemeScope() {
    static const ControlsManifest manifest;
    active_ = manifest.Activate(&cookie_);
    // Nothing else brings the classes of the controls: the DLL does not import them.
    [[maybe_unused]] static const HMODULE controls = LoadLibraryW(L"comctl32.dll");
}

ThemeScope::~ThemeScope() {
    if (active_)
        DeactivateActCtx(0, cookie_);
}

} // namespace vndesk
