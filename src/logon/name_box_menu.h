// SPDX-License-Identifier: MIT
// The shortcut menu of the logon dialog's name box: what every box has, and a way to have the kept
// names forgotten. An EDIT control's own menu takes no further items.
#pragma once

#include <windows.h>

#include <functional>

namespace vndesk {

class NameBoxMenu {
public:
    NameBoxMenu() = default;
    ~NameBoxMenu();
    NameBoxMenu(const NameBoxMenu&) = delete;
    NameBoxMenu& operator=(const NameBoxMenu&) = delete;

    // `box` is an EDIT control, or a combo box that has one. `forget` is called when the user has
    // chosen so; `any` asks whether there are names.
    void Attach(HWND box, std::function<bool()> any, std::function<void()> forget);

private:
    static LRESULT CALLBACK Procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);

    void Show(POINT place);

    HWND edit_ = nullptr;
    std::function<bool()> any_;
    std::function<void()> forget_;
};

} // namespace vndesk
