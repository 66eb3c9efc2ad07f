// SPDX-License-Identifier: MIT
// A message box whose texts are all Unicode: heading, details, own captions, a check box, a limit
// of time. Its answers have the numbers of Visual Basic's MsgBox.
#pragma once

#include <windows.h>

#include <string>

#include "msgbox/text/notice_answers.h"

namespace vndesk {

struct Notice {
    std::wstring text = {};
    std::wstring title = {}; // empty: the word for notice
    std::wstring heading = {};
    std::wstring details = {}; // shown when the user asks for them
    long buttons = 0;          // the numbers of the button sets; any other is OK alone
    long icon = 0;             // the numbers of the icons; any other shows none
    NoticeAnswer defaultButton = NoticeAnswer::None; // None: the first one
    // What Escape and the close box answer; None: Cancel, or the only button.
    NoticeAnswer cancelButton = NoticeAnswer::None;
    NoticeCaptions captions = {}; // instead of the library's
    std::wstring checkText = {};  // empty: no check box
    bool checked = false;         // at first, and then as the user left it
    long timeoutSeconds = 0;      // then the default button is pressed; 0: never
    HWND owner = nullptr;         // null: the window in which the user works
};

// Shows the box in the middle of its owner's monitor and waits.
NoticeAnswer ShowNotice(Notice& notice);

} // namespace vndesk
