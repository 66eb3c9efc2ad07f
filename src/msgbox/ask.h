// SPDX-License-Identifier: MIT
// A question as Visual Basic's MsgBox asks it.
#pragma once

#include "msgbox/notice_box.h"

namespace vndesk {

// `flags` may hold an icon and the place of the default button, too, as in
// vbYesNo + vbQuestion + vbDefaultButton2; an icon of its own counts first.
NoticeAnswer Ask(const std::wstring& text, long flags, long icon, const std::wstring& title,
                 HWND owner);

} // namespace vndesk
