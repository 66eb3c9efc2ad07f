// SPDX-License-Identifier: MIT
#include "form_window.h"

#include "com/kit/com_error.h"
#include "com/kit/lock.h"
#include "com/kit/module.h"

namespace vndesk {

namespace {

// Hosts may have forms in several threads.
SRWLOCK lock_ = SRWLOCK_INIT;
int users_;

// A dialog template without controls, naming the class in place of the platform's.
struct EmptyTemplate {
    DLGTEMPLATE header;
    WORD menu;
    wchar_t className[ARRAYSIZE(kFormClass)];
    wchar_t title[1];
};

} // namespace

FormClass::FormClass(WNDPROC procedure) {
    const Writing writing(lock_);
    if (users_++ > 0)
        return;
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.cbWndExtra = DLGWINDOWEXTRA;
    description.hInstance = ModuleInstance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    description.lpszClassName = kFormClass;
    RegisterClassExW(&description);
}

FormClass::~FormClass() {
    const Writing writing(lock_);
    if (--users_ == 0)
        UnregisterClassW(kFormClass, ModuleInstance());
}

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
