// SPDX-License-Identifier: MIT
// The library's message box: Vietnamese buttons, an icon, a text that decides the size.
#pragma once

#include <windows.h>

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

// The button that closed the box, by the number that hosts know.
enum class Pressed : long {
    None = -1, // closed without a button
    Unmatched = 0,
    Ok = 1,
    Cancel = 2,
    Abort = 3,
    Retry = 4,
    Ignore = 5,
    Yes = 6,
    No = 7
};

// Shows the box and waits. Message and title are TCVN3. Without an owner it is in front of the
// window in which the user works.
Pressed ShowMsg(const std::wstring& message, long buttons, const std::wstring& title,
                long icon = kNoIcon, bool rightToLeft = false, HWND owner = nullptr);

// The same for texts that are Unicode already.
Pressed ShowUnicodeMsg(const std::wstring& message, long buttons, const std::wstring& title,
                       long icon = kNoIcon, bool rightToLeft = false, HWND owner = nullptr);

} // namespace vndesk
