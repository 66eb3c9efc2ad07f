// SPDX-License-Identifier: MIT
// Owners for the platform's handles: one template, one line per kind.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace vndesk {

template <auto Close> struct HandleCloser {
    template <class Handle> void operator()(Handle* handle) const noexcept { Close(handle); }
};

template <class Handle, auto Close>
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<Handle>, HandleCloser<Close>>;

using UniqueFont = UniqueHandle<HFONT, DeleteObject>;
using UniqueBrush = UniqueHandle<HBRUSH, DeleteObject>;
using UniquePen = UniqueHandle<HPEN, DeleteObject>;
using UniqueBitmap = UniqueHandle<HBITMAP, DeleteObject>;
using UniqueIcon = UniqueHandle<HICON, DestroyIcon>;
using UniqueKey = UniqueHandle<HKEY, RegCloseKey>;

// Null where it cannot be opened.
inline UniqueKey OpenKey(HKEY root, const std::wstring& name, REGSAM access) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(root, name.c_str(), 0, access, &key);
    return UniqueKey(status == ERROR_SUCCESS ? key : nullptr);
}

} // namespace vndesk
