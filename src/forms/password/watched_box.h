// SPDX-License-Identifier: MIT
// A password box that notices an input method and the Caps Lock key, with the button that shows
// what has been typed.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "comkit/base/wiped.h"
#include "forms/password/eye_button.h"
#include "forms/password/text/typing_watch.h"
#include "forms/password/warning_strip.h"

namespace vndesk {

class WatchedBox {
public:
    // `eye` is the button's place in the form's pixels. `isWatched` knows the form's other boxes,
    // which say in the same strip what holds for them.
    WatchedBox(HWND box, const RECT& eye, const std::wstring& name, WarningStrip& strip,
               std::function<bool(HWND)> isWatched);
    ~WatchedBox();
    WatchedBox(const WatchedBox&) = delete;
    WatchedBox& operator=(const WatchedBox&) = delete;

    HWND Window() const { return box_; }
    HWND Eye() const { return eye_.Window(); }

private:
    struct Content {
        Wiped<wchar_t> text;
        DWORD start; // of the selection
        DWORD end;
        bool filled;
    };

    static LRESULT CALLBACK Procedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);
    std::optional<LRESULT> BeforeBox(UINT message, WPARAM wParam);
    void AfterBox(UINT message, WPARAM wParam, LPARAM lParam);
    bool Takes(wchar_t character);
    bool IsNewBeginning() const;
    void Remember();
    void PutBack();
    void Warn();
    void Say();
    void CheckEye();

    HWND box_;
    EyeButton eye_;
    WarningStrip& strip_;
    std::function<bool(HWND)> isWatched_;
    TypingWatch watch_;
    std::optional<Content> before_; // the Backspaces that may be an input method's
    bool warned_ = false;
    bool focused_ = false;
    // The form has filled the box, and the user has not emptied it: this is not to be seen.
    bool filled_ = false;
};

} // namespace vndesk
