// SPDX-License-Identifier: MIT
#include "forms/window/form_window.h"

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"

namespace vndesk {

namespace {

int formUsers_;

// A DLGTEMPLATE without controls that names our window class.
struct EmptyTemplate {
    DLGTEMPLATE header;
    WORD menu;
    wchar_t className[ARRAYSIZE(kFormClass)];
    wchar_t title[1];
};

} // namespace

FormClass::FormClass(WNDPROC procedure)
    : CountedClass({kFormClass, procedure, CS_DBLCLKS, DLGWINDOWEXTRA,
                    reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1))},
                   formUsers_) {}

HWND CreateEmptyDialog(HWND owner, DWORD style, DWORD extendedStyle) {
    EmptyTemplate dialog = {};
    dialog.header.style = style;
    dialog.header.dwExtendedStyle = extendedStyle;
    for (size_t i = 0; i < ARRAYSIZE(kFormClass); ++i)
        dialog.className[i] = kFormClass[i];
    const HWND window =
        CreateDialogIndirectParamW(ModuleInstance(), &dialog.header, owner, nullptr, 0);
    if (!window)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    return window;
}

} // namespace vndesk
