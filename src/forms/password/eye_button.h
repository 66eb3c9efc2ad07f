// SPDX-License-Identifier: MIT
// The button beside a password box that shows the password while it is held: by the mouse, or by
// the space bar when it has the keyboard.
#pragma once

#include <windows.h>

#include <string>

#include "comkit/base/handles.h"

namespace vndesk {

class EyeButton {
public:
    // `place` is in the form's pixels.
    EyeButton(HWND box, const RECT& place, const std::wstring& name);
    ~EyeButton();
    EyeButton(const EyeButton&) = delete;
    EyeButton& operator=(const EyeButton&) = delete;

    HWND Window() const { return eye_; }
    void SetEnabled(bool enabled);
    bool Shows() const { return shows_; }
    void Hide() { Show(false); }

private:
    static LRESULT CALLBACK Procedure(HWND eye, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);
    bool OnMessage(UINT message, WPARAM wParam);
    void Show(bool show);

    const HWND box_;
    HWND eye_;
    UniqueIcon icon_;
    WPARAM mask_ = 0; // the character that stands for each of the password's
    bool shows_ = false;
};

} // namespace vndesk
