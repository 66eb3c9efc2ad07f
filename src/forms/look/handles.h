// SPDX-License-Identifier: MIT
// Owners for GDI and window handles: one template, one line per kind.
#pragma once

#include <windows.h>

#include <memory>
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
using UniqueWindow = UniqueHandle<HWND, DestroyWindow>;

// A GDI object selected for as long as this lives.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, previous_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};

// Everything that is set on the device context while this lives is undone.
class SavedDc {
public:
    explicit SavedDc(HDC dc) : dc_(dc), state_(SaveDC(dc)) {}
    ~SavedDc() { RestoreDC(dc_, state_); }
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;

private:
    HDC dc_;
    int state_;
};

} // namespace vndesk
