// SPDX-License-Identifier: MIT
// The answer to a message that the Windows user does not want to see again.
#pragma once

#include <string>

#include "msgbox/notice_box.h"

namespace vndesk {

// Shows the box, with a check box for it, unless an answer is kept. `key` is a path below
// HKEY_CURRENT_USER; a registry that cannot be read keeps none.
NoticeAnswer ShowUnlessAnswered(Notice& notice, const std::wstring& key);
void ForgetAnswer(const std::wstring& key);

} // namespace vndesk
