// SPDX-License-Identifier: MIT
// The Tab stroke that follows a look-up. Just after a window has closed, for a moment no window may
// have the keyboard, and a stroke sent at once would be lost.
#pragma once

#include <windows.h>

namespace vndesk {

class TabStroke {
public:
    // `window` is the form, or a control in it.
    explicit TabStroke(HWND window) : window_(window) {}
    ~TabStroke();
    TabStroke(const TabStroke&) = delete;
    TabStroke& operator=(const TabStroke&) = delete;

    // Sends it at once where the form has the keyboard, else as soon as it has.
    void Send();
    // Sends it as soon as the form has the keyboard and keeps it. Never, when the user has gone
    // to another window.
    void SendAfterClosing();

private:
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
    bool FormHasKeyboard() const;
    void Look();
    void Stop();

    HWND window_;
    int looks_ = 0;
    int steady_ = 0;
};

} // namespace vndesk
