// SPDX-License-Identifier: MIT
// The answer to a message that the Windows user does not want to see again.
#pragma once

#include <optional>
#include <string>

#include "msgbox/text/notice_answers.h"

namespace vndesk {

// `key` is a path below HKEY_CURRENT_USER. A registry that cannot be read keeps none.
std::optional<NoticeAnswer> KeptAnswer(const std::wstring& key);
void KeepAnswer(const std::wstring& key, NoticeAnswer answer);
void ForgetAnswer(const std::wstring& key);

} // namespace vndesk
