// SPDX-License-Identifier: MIT
#include "msgbox/ask.h"

namespace vndesk {

NoticeAnswer Ask(const std::wstring& text, long flags, long icon, const std::wstring& title,
                 HWND owner) {
    constexpr long kButtons = 0xF, kIcon = 0xF0, kDefault = 0x300, kSecondDefault = 0x100;
    Notice notice = {.text = text,
                     .title = title,
                     .buttons = flags & kButtons,
                     .icon = icon ? icon : flags & kIcon,
                     .owner = owner};
    const auto answers = AnswersOf(notice.buttons);
    const auto place = static_cast<size_t>((flags & kDefault) / kSecondDefault);
    if (place < answers.size())
        notice.defaultButton = answers[place];
    return ShowNotice(notice);
}

} // namespace vndesk
