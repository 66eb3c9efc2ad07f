// SPDX-License-Identifier: MIT
// Gives a window the name that it has in the design, so that tests and tools find it, from other
// processes too.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

// The property's value is a global atom; its text is the name.
inline constexpr wchar_t kWindowNameProperty[] = L"VnDesk.Name";

inline void SetWindowName(HWND window, const std::wstring& name) {
    if (const ATOM atom = GlobalAddAtomW(name.c_str()))
        SetPropW(window, kWindowNameProperty,
                 reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)));
}

// Properties and atoms are not freed with the window.
inline void ClearWindowName(HWND window) {
    if (const HANDLE atom = RemovePropW(window, kWindowNameProperty))
        GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)));
}

} // namespace vndesk
