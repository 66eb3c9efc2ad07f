// SPDX-License-Identifier: MIT
// Plays what input methods send into whatever has the keyboard, as fast as they do.
#pragma once

#include <windows.h>

#include "support/typing_streams.h"

namespace vndesk::test {

enum class SentBy {
    Input, // keys, and KEYEVENTF_UNICODE for what has none: all at once
    Posts  // WM_CHAR to the window, Backspaces too
};

void PlayStroke(const Stroke& stroke, SentBy way, HWND window);
void PlayTyping(const TypingStream& stream, SentBy way, HWND window);
// The same by hand: each stroke when the one before it has been served.
void PlaySlowly(const TypingStream& stream, HWND window);
// Real keys, one by one, without a pause; capitals with Shift, commands (\x16) with Ctrl.
void TypeKeys(std::wstring_view keys);
// A key that goes down, or up.
void SendKeyEvent(WORD key, bool down);

} // namespace vndesk::test
