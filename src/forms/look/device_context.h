// SPDX-License-Identifier: MIT
// What is set on a device context, and given back in time.
#pragma once

#include <windows.h>

namespace vndesk {

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
