// SPDX-License-Identifier: MIT
// The library's message box: Vietnamese buttons, an icon, a text that decides the size.
#pragma once

#include <string>

namespace vndesk {

// The icons' numbers, as hosts know them.
enum MessageIcon : long {
    kNoIcon = 0,
    kCritical = 16,
    kQuestion = 32,
    kExclamation = 48,
    kInformation = 64
};

// The button sets' numbers.
enum MessageButtons : long {
    kOkOnly = 0,
    kOkCancel = 1,
    kAbortRetryIgnore = 2,
    kYesNoCancel = 3,
    kYesNo = 4,
    kRetryCancel = 5
};

// Shows the box and waits. Message and title are TCVN3; an empty title becomes the word for Notice,
// in the caller's text. The result is the pressed button's number as text, empty when the box was
// closed without one.
std::wstring ShowMsg(const std::wstring& message, long buttons, std::wstring& title, long icon,
                     bool rightToLeft);

} // namespace vndesk
