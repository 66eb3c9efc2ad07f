// SPDX-License-Identifier: MIT
// The window class of the forms, registered while a form exists, and empty windows of it.
#pragma once

#include "forms/window/counted_class.h"

namespace vndesk {

inline constexpr wchar_t kFormClass[] = L"VnDeskForm";

class FormClass : public CountedClass {
public:
    explicit FormClass(WNDPROC procedure);
};

// An empty dialog of the form class, hidden.
HWND CreateEmptyDialog(HWND owner, DWORD style, DWORD extendedStyle);

} // namespace vndesk
