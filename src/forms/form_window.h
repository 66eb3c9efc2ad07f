// SPDX-License-Identifier: MIT
// The window class of the forms, registered while a form exists: a DLL that is unloaded must leave
// no class behind.
#pragma once

#include <windows.h>

namespace vndesk {

inline constexpr wchar_t kFormClass[] = L"VnDeskForm";

class FormClass {
public:
    explicit FormClass(WNDPROC procedure);
    ~FormClass();
    FormClass(const FormClass&) = delete;
    FormClass& operator=(const FormClass&) = delete;
};

// An empty dialog of the form class, hidden.
HWND CreateEmptyDialog(HWND owner, DWORD style, DWORD extendedStyle);

} // namespace vndesk
