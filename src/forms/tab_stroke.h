// SPDX-License-Identifier: MIT
// A Tab stroke for a form above which a window has just closed. For a moment the keyboard can be
// nobody's then, and a stroke that is sent at once would be lost.
#pragma once

#include <windows.h>

namespace vndesk {

class TabStroke {
public:
    explicit TabStroke(HWND form) : form_(form) {}
    ~TabStroke();
    TabStroke(const TabStroke&) = delete;
    TabStroke& operator=(const TabStroke&) = delete;

    // Sends it as soon as the form has the keyboard and keeps it. Never, when the user has gone
    // to another window.
    void Send();

private:
    static void CALLBACK OnTimer(HWND form, UINT message, UINT_PTR id, DWORD time);
    void Look();
    void Stop();

    HWND form_;
    int looks_ = 0;
    int steady_ = 0;
};

} // namespace vndesk
