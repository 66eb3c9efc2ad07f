// SPDX-License-Identifier: MIT
#include "forms/look/theme_scope.h"

#include <commctrl.h>

#include <string>

#include "comkit/base/module.h"
#include "forms/look/images.h"

namespace vndesk {

namespace {

// GetClassInfoEx makes Windows register the classes of the controls, under the manifest in force.
// Otherwise their first windows would, and two threads may see a half-registered class.
// LoadLibrary, because the DLL does not import the controls.
void RegisterControls() {
    LoadLibraryW(L"comctl32.dll");
    for (const wchar_t* name : {WC_BUTTONW, WC_COMBOBOXW, L"ComboLBox", WC_EDITW, WC_LISTBOXW,
                                WC_LISTVIEWW, WC_STATICW, TOOLTIPS_CLASSW}) {
        WNDCLASSEXW known = {};
        known.cbSize = sizeof known;
        GetClassInfoExW(nullptr, name, &known);
    }
}

// Reading a manifest takes longer than loading the DLL, so it is read once. Without it the controls
// work, in their classic look.
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
        ULONG_PTR cookie = 0;
        const bool active = Activate(&cookie);
        RegisterControls();
        if (active)
            DeactivateActCtx(0, cookie);
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
}

ThemeScope::~ThemeScope() {
    if (active_)
        DeactivateActCtx(0, cookie_);
}

} // namespace vndesk
